#include "toolbox/base/LiveCount.h"
#include "toolbox/base/Referenced.h"

#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

std::size_t alive(const char* kind)
{
    return Toolbox::CountLiveObjects()[kind];
}

TEST(LiveCount, CountsEachKindByItself)
{
    const std::string kind = "kind";
    {
        const Toolbox::LiveCount one("kind");
        const Toolbox::LiveCount two(kind.c_str());
        const Toolbox::LiveCount other("other kind");
        EXPECT_EQ(alive("kind"), 2u) << "a kind is known by its name, not by its address";
        EXPECT_EQ(alive("other kind"), 1u);
    }
    EXPECT_EQ(alive("kind"), 0u);
    EXPECT_EQ(alive("other kind"), 0u);
}

struct OpaqueThing;
using ThingRef = OpaqueThing*;

class Thing : public Toolbox::Referenced<Thing, ThingRef> {
public:
    static constexpr const char* KIND = "thing";
};

TEST(Referenced, IsFoundByItsReferenceWhileItLives)
{
    auto thing = std::make_unique<Thing>();
    const ThingRef ref = thing->ref();
    EXPECT_NE(ref, nullptr);
    EXPECT_EQ(Thing::find(ref), thing.get());
    EXPECT_EQ(alive("thing"), 1u);
    thing.reset();
    EXPECT_EQ(Thing::find(ref), nullptr);
    EXPECT_EQ(alive("thing"), 0u);
    for (int i = 0; i < 1000; ++i)
        EXPECT_NE(Thing().ref(), ref) << "a reference is never given again";
}

class OtherThing : public Toolbox::Referenced<OtherThing, ThingRef> {
public:
    static constexpr const char* KIND = "other thing";
};

TEST(Referenced, IsNotFoundAsAnotherTypeOrByAForeignReference)
{
    const Thing thing;
    const OtherThing other;
    EXPECT_EQ(OtherThing::find(other.ref()), &other);
    EXPECT_EQ(Thing::find(other.ref()), nullptr);
    EXPECT_EQ(Thing::find(nullptr), nullptr);
    EXPECT_EQ(Thing::find(reinterpret_cast<ThingRef>(const_cast<Thing*>(&thing))), nullptr);
    EXPECT_EQ(Thing::find(reinterpret_cast<ThingRef>(std::uintptr_t(1))), nullptr);
}

}  // namespace
