#include "Velbase/common/common_smart_ptr.h"
#include "tests/support/Allocations.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <type_traits>

namespace {

// Counts its objects, so that a test sees when one is destroyed.
struct Counted {
    explicit Counted(int given = 0)
        : number(given)
    {
        ++alive;
    }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --alive; }

    int number;
    static int alive;
};

int Counted::alive = 0;

typedef shared_ptr<Counted> Owner;

// A word of an owner as it lies in memory: 0 is what it owns, 1 its count.
template <typename T> void* wordOf(const T& owner, int index)
{
    void* words[2];
    static_assert(sizeof words == sizeof owner, "an owner is two words");
    std::memcpy(words, &owner, sizeof words);
    return words[index];
}

static_assert(std::is_nothrow_copy_constructible<Owner>::value, "a copy only counts");
static_assert(std::is_nothrow_copy_assignable<Owner>::value, "an assignment only counts");
static_assert(!std::is_convertible<Counted*, Owner>::value, "an owner is made on purpose only");

// Every test leaves nothing behind, neither objects nor counts.
class SharedPtr : public testing::Test {
protected:
    void SetUp() override { m_live = allocations::live(); }
    void TearDown() override
    {
        EXPECT_EQ(Counted::alive, 0);
        EXPECT_EQ(allocations::live(), m_live);
    }

private:
    long m_live;
};

TEST_F(SharedPtr, OwnsThePointerOrNullWithACountOfOne)
{
    Counted* const object = new Counted(7);
    const Owner owner(object);
    EXPECT_EQ(owner.get(), object);
    EXPECT_EQ(&*owner, object);
    EXPECT_EQ(owner->number, 7);
    EXPECT_TRUE(owner.unique());
    const Owner null;
    EXPECT_EQ(null.get(), nullptr);
    EXPECT_EQ(null.use_count(), 1);
    Owner another;
    another = null;
    EXPECT_EQ(wordOf(another, 1), wordOf(null, 1)) << "both were null, but not one owner's";
    EXPECT_EQ(null.use_count(), 2);
}

TEST_F(SharedPtr, CopySharesTheObjectAndACountOf32Bits)
{
    Owner owner(new Counted);
    {
        const Owner copy(owner);
        const Owner moved(static_cast<Owner&&>(owner));
        for (const Owner& each : {copy, moved}) {
            EXPECT_EQ(wordOf(each, 0), owner.get());
            EXPECT_EQ(wordOf(each, 1), wordOf(owner, 1));
        }
        std::int32_t count = 0;
        std::memcpy(&count, wordOf(owner, 1), sizeof count);
        EXPECT_EQ(count, 3);
        EXPECT_EQ(owner.use_count(), 3);
        EXPECT_FALSE(owner.unique());
    }
    EXPECT_EQ(owner.use_count(), 1);
    EXPECT_EQ(Counted::alive, 1);
}

TEST_F(SharedPtr, AssignmentGivesUpTheOldObjectAndSharesTheNew)
{
    Owner owner(new Counted(1));
    Owner last(owner);
    const Owner source(new Counted(2));
    owner = source;
    EXPECT_EQ(last->number, 1) << "its other owners keep the old one";
    EXPECT_EQ(last.use_count(), 1);
    last = source;
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(owner->number, 2);
    EXPECT_EQ(wordOf(owner, 1), wordOf(source, 1));
    EXPECT_EQ(source.use_count(), 3);
}

TEST_F(SharedPtr, AssignmentBetweenSharersOrToItselfChangesNothing)
{
    Owner owner(new Counted);
    const Owner copy(owner);
    for (const Owner* const source : std::initializer_list<const Owner*>{&owner, &copy}) {
        EXPECT_EQ(&(owner = *source), &owner);
        EXPECT_EQ(owner.get(), copy.get());
        EXPECT_EQ(owner.use_count(), 2);
        EXPECT_EQ(Counted::alive, 1);
    }
}

// A list whose elements own the next one: assigning from the second gives up the first, and with it the source itself.
struct Link {
    Owner object;
    shared_ptr<Link> next;
};

TEST_F(SharedPtr, AssignmentFromInsideTheOldObjectIsSafe)
{
    shared_ptr<Link> list(new Link);
    list->next.reset(new Link);
    list->next->object.reset(new Counted(2));
    list = list->next;
    EXPECT_EQ(list->object->number, 2);
    EXPECT_EQ(list.use_count(), 1);
    EXPECT_EQ(list->next.get(), nullptr);
}

TEST_F(SharedPtr, ResetWithThePointerThatItHoldsDoesNothing)
{
    for (Counted* const object : {new Counted, static_cast<Counted*>(nullptr)}) {
        Owner owner(object);
        const Owner copy(owner);
        EXPECT_EQ(allocations::countIn([&] { owner.reset(object); }), 0u);
        EXPECT_EQ(wordOf(owner, 1), wordOf(copy, 1));
        EXPECT_EQ(owner.use_count(), 2);
    }
}

TEST_F(SharedPtr, ResetLeavesTheObjectAndTheCountToOtherOwnersAndOfTheLastUsesTheCountAgain)
{
    Owner owner(new Counted(1));
    const Owner keeper(owner);
    void* const count = wordOf(keeper, 1);
    Counted* const object = new Counted(2);
    EXPECT_EQ(allocations::sizesIn([&] { owner.reset(object); }), std::vector<std::size_t>{4});
    EXPECT_EQ(keeper->number, 1);
    EXPECT_EQ(keeper.use_count(), 1);
    EXPECT_EQ(wordOf(keeper, 1), count);
    EXPECT_EQ(owner->number, 2);
    EXPECT_EQ(owner.use_count(), 1);
    void* const ownCount = wordOf(owner, 1);
    EXPECT_NE(ownCount, count);
    for (Counted* const next : {new Counted(3), static_cast<Counted*>(nullptr)}) {
        EXPECT_EQ(allocations::countIn([&] { owner.reset(next); }), 0u);
        EXPECT_EQ(Counted::alive, next == nullptr ? 1 : 2) << "the old one is freed";
        EXPECT_EQ(owner.get(), next);
        EXPECT_EQ(wordOf(owner, 1), ownCount);
        EXPECT_EQ(owner.use_count(), 1);
    }
}

TEST_F(SharedPtr, DisposeOfTheLastOwnerAloneFreesTheObjectAndTheCountAndLeavesAnOwnerThatCanBeUsedAgain)
{
    const long before = allocations::live();
    Owner owner(new Counted);
    Owner last(owner);
    owner.dispose();
    EXPECT_EQ(last.use_count(), 1);
    EXPECT_EQ(Counted::alive, 1);
    last.dispose();
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(allocations::live(), before);
    EXPECT_EQ(last.get(), nullptr);
    EXPECT_EQ(last.use_count(), 0);
    last.dispose();
    Owner none;
    none.dispose();
    const Owner copy(none);
    EXPECT_EQ(copy.use_count(), 0);

    owner = Owner(new Counted(1));
    EXPECT_EQ(owner->number, 1);
    owner.dispose();
    owner.reset(new Counted(2));
    EXPECT_EQ(owner->number, 2);
    EXPECT_EQ(owner.use_count(), 1);
    owner = copy;
    EXPECT_EQ(owner.use_count(), 0);
    EXPECT_EQ(Counted::alive, 0);
}

TEST_F(SharedPtr, SharedArrayGivesItsElementsAndFreesThemAll)
{
    Counted* const elements = new Counted[3];
    shared_array<Counted> array(elements);
    const shared_array<Counted> copy(array);
    array[2].number = 5;
    EXPECT_EQ(copy[2].number, 5);
    EXPECT_EQ(&array[1], elements + 1);
    EXPECT_EQ(array.get(), elements);
    EXPECT_EQ(array.use_count(), 2);
    array.reset(new Counted[1]);
    EXPECT_EQ(Counted::alive, 4);
    EXPECT_EQ(copy[2].number, 5);
}

}  // namespace
