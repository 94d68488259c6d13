#include "toolbox/base/resources/ResourceMap.h"

#include "tests/toolbox/base/resources/ResourceFork.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <tuple>

namespace {

using Toolbox::ResourceKey;
using Toolbox::ResourceMap;
using Toolbox::ResourcePlace;

// Reads `bytes` from a block of exactly their length, so that a sanitizer sees every byte read past it. Whatever they
// are, the outcome must be one of those promised.
OSErr read(const Bytes& bytes, ResourceMap* resources)
{
    const auto block = std::make_unique<unsigned char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), block.get());
    resources->emplace(ResourceKey('old ', 1), ResourcePlace());
    const OSErr result = Toolbox::readResourceMap(Toolbox::BigEndianBytes(block.get(), bytes.size()), resources);

    EXPECT_EQ(result == eofErr, bytes.size() < 16);
    EXPECT_TRUE(result == noErr || result == eofErr || result == mapReadErr);
    EXPECT_TRUE(result == noErr || resources->empty());
    for (const auto& [key, place] : *resources) {
        EXPECT_LE(place.offset, bytes.size());
        EXPECT_LE(place.length, bytes.size() - place.offset);
    }
    return result;
}

OSErr resultOf(const Bytes& bytes)
{
    ResourceMap resources;
    return read(bytes, &resources);
}

std::string dataOf(const Bytes& fork, const ResourcePlace& place)
{
    return std::string(
        fork.begin() + std::ptrdiff_t(place.offset), fork.begin() + std::ptrdiff_t(place.offset + place.length));
}

const std::vector<TestResource> RESOURCES = {
    {'CALL', 1000, "first"},
    {'ALRT', 5000, "alert", 0, "An alert"},
    {'ALRT', -1, ""},
    {'DITL', 5000, std::string(300, 'x'), 0x20},
    {'ALRT', -32768, "lowest", 0, ""},
    {'ALRT', 32767, "highest"},
};

TEST(ResourceMap, HasEveryResource)
{
    for (const std::vector<TestResource>& given : {RESOURCES, {}}) {
        const Bytes fork = makeFork(given).bytes();
        ResourceMap resources;
        ASSERT_EQ(read(fork, &resources), noErr);
        EXPECT_EQ(resources.size(), given.size());
        for (const TestResource& resource : given) {
            const ResourcePlace& place = resources.at(ResourceKey(resource.type, resource.id));
            EXPECT_EQ(dataOf(fork, place), resource.data);
            EXPECT_FALSE(place.isCompressed);
        }
    }
}

TEST(ResourceMap, TakesTheFirstOfSeveralWithOneTypeAndId)
{
    const Bytes inOneList = makeFork({{'CALL', 1, "one"}, {'CALL', 1, "two"}}).bytes();
    TestFork inTwoLists = makeFork({{'CALL', 1, "one"}, {'DALL', 1, "two"}});
    setNumber(inTwoLists.types, 2 + 8, 4, 'CALL');
    for (const Bytes& fork : {inOneList, inTwoLists.bytes()}) {
        ResourceMap resources;
        ASSERT_EQ(read(fork, &resources), noErr);
        EXPECT_EQ(resources.size(), 1u);
        EXPECT_EQ(dataOf(fork, resources.at(ResourceKey('CALL', 1))), "one");
    }
}

TEST(ResourceMap, KnowsCompressedResourcesByTheirLowestAttribute)
{
    for (unsigned attributes = 0; attributes < 256; ++attributes) {
        ResourceMap resources;
        ASSERT_EQ(read(makeFork({{'CALL', 1, "x", attributes}}).bytes(), &resources), noErr);
        EXPECT_EQ(resources.at(ResourceKey('CALL', 1)).isCompressed, (attributes & 1) != 0) << attributes;
    }
}

TEST(ResourceMap, MayPrecedeTheData)
{
    const TestFork parts = makeFork({{'CALL', 1, "data"}});
    const Bytes ordinary = parts.bytes();
    Bytes fork(ordinary.begin(), ordinary.begin() + 16);
    const std::size_t mapLength = ordinary.size() - parts.mapOffset();
    setNumber(fork, 0, 4, 16 + mapLength);
    setNumber(fork, 4, 4, 16);
    fork.insert(fork.end(), ordinary.begin() + std::ptrdiff_t(parts.mapOffset()), ordinary.end());
    fork.insert(fork.end(), parts.data.begin(), parts.data.end());
    ResourceMap resources;
    ASSERT_EQ(read(fork, &resources), noErr);
    EXPECT_EQ(dataOf(fork, resources.at(ResourceKey('CALL', 1))), "data");
}

TEST(ResourceMap, IgnoresItsCopyOfTheHeader)
{
    const TestFork parts = makeFork(RESOURCES);
    Bytes fork = parts.bytes();
    std::fill_n(fork.begin() + std::ptrdiff_t(parts.mapOffset()), 24, static_cast<unsigned char>(0xFF));
    EXPECT_EQ(resultOf(fork), noErr);
}

// One field set to one value. The fork has one type of two resources, its data are 7 and 9 bytes long with the length,
// its map 62 bytes.
enum class Base { Header, Map, Types, References, Data };

constexpr unsigned DATA_AT = 256;
constexpr unsigned DATA = 16;
constexpr unsigned MAP_AT = DATA_AT + DATA;
constexpr unsigned MAP = 62;
constexpr unsigned FORK = MAP_AT + MAP;

// clang-format off
const std::tuple<const char*, Base, std::size_t, std::size_t, unsigned, OSErr> FIELD_CASES[] = {
    // name                           field                      value          result
    {"DataAreaEndsAtTheEnd",          Base::Header, 0, 4,        FORK - DATA,   mapReadErr},  // no lengths there
    {"DataAreaEndsPastTheEnd",        Base::Header, 0, 4,        FORK - DATA + 1, mapReadErr},
    {"DataOffsetAtTheEnd",            Base::Header, 0, 4,        FORK,          mapReadErr},
    {"DataOffsetWrapsAround",         Base::Header, 0, 4,        0xFFFFFFF0,    mapReadErr},
    {"DataLengthOneTooShort",         Base::Header, 8, 4,        DATA - 1,      mapReadErr},
    {"DataLengthLonger",              Base::Header, 8, 4,        DATA + 1,      noErr},
    {"DataLengthToTheEnd",            Base::Header, 8, 4,        DATA + MAP,    noErr},
    {"DataLengthPastTheEnd",          Base::Header, 8, 4,        DATA + MAP + 1, mapReadErr},
    {"DataLengthZero",                Base::Header, 8, 4,        0,             mapReadErr},
    {"DataLengthWrapsAround",         Base::Header, 8, 4,        0xFFFFFF10,    mapReadErr},
    {"MapOffsetOneMore",              Base::Header, 4, 4,        MAP_AT + 1,    mapReadErr},
    {"MapOffsetAtTheEnd",             Base::Header, 4, 4,        FORK,          mapReadErr},
    {"MapOffsetWrapsAround",          Base::Header, 4, 4,        0xFFFFFFC2,    mapReadErr},
    {"MapOfZeros",                    Base::Header, 4, 4,        32,            noErr},  // one resource of type 0
    {"MapLengthOneMore",              Base::Header, 12, 4,       MAP + 1,       mapReadErr},
    {"MapLengthOneLess",              Base::Header, 12, 4,       MAP - 1,       mapReadErr},
    {"MapLengthZero",                 Base::Header, 12, 4,       0,             mapReadErr},
    {"MapLengthMax",                  Base::Header, 12, 4,       0xFFFFFFFF,    mapReadErr},
    {"TypeListAtTheEnd",              Base::Map, 24, 2,          MAP,           mapReadErr},
    {"TypeListOneBeforeTheEnd",       Base::Map, 24, 2,          MAP - 1,       mapReadErr},
    {"TypeListMax",                   Base::Map, 24, 2,          0xFFFF,        mapReadErr},
    {"NameListIsNotFollowed",         Base::Map, 26, 2,          0xFFFF,        noErr},
    {"NoTypes",                       Base::Types, 0, 2,         0xFFFF,        noErr},
    {"TwoTypesOfWhichOneIsThere",     Base::Types, 0, 2,         1,             mapReadErr},
    {"TypesUpToTheEnd",               Base::Types, 0, 2,         3,             mapReadErr},
    {"TypesPastTheEnd",               Base::Types, 0, 2,         4,             mapReadErr},
    {"TypesMax",                      Base::Types, 0, 2,         0xFFFE,        mapReadErr},
    {"OneResource",                   Base::Types, 6, 2,         0,             noErr},
    {"TwoResources",                  Base::Types, 6, 2,         1,             noErr},
    {"OneResourceTooMany",            Base::Types, 6, 2,         2,             mapReadErr},
    {"ResourcesMax",                  Base::Types, 6, 2,         0xFFFF,        mapReadErr},
    {"ReferencesOneLater",            Base::Types, 8, 2,         11,            mapReadErr},
    {"ReferencesAtTheEnd",            Base::Types, 8, 2,         MAP - 28,      mapReadErr},
    {"ReferencesMax",                 Base::Types, 8, 2,         0xFFFF,        mapReadErr},
    {"DataOfNoLength",                Base::Data, 0, 4,          0,             noErr},
    {"DataUpToTheEnd",                Base::Data, 0, 4,          DATA - 4,      noErr},
    {"DataOnePastTheEnd",             Base::Data, 0, 4,          DATA - 3,      mapReadErr},
    {"DataWrapsAround",               Base::Data, 0, 4,          0xFFFFFFFC,    mapReadErr},
    {"LastDataOnePastTheEnd",         Base::Data, 7, 4,          6,             mapReadErr},
    {"DataAtTheLastLength",           Base::References, 5, 3,    7,             noErr},
    {"DataWithoutALength",            Base::References, 5, 3,    DATA - 3,      mapReadErr},
    {"DataAtTheEnd",                  Base::References, 5, 3,    DATA,          mapReadErr},
    {"LastDataPlaceMax",              Base::References, 17, 3,   0xFFFFFF,      mapReadErr},
    {"NameIsNotFollowed",             Base::References, 2, 2,    0,             noErr},
    {"WordsForUseInMemory",           Base::References, 8, 4,    0xFFFFFFFF,    noErr},
};
// clang-format on

TEST(ResourceMapField, DecidesWhetherTheForkIsGood)
{
    const TestFork parts = makeFork({{'CALL', 1, "abc"}, {'CALL', 2, "vwxyz"}});
    const Bytes good = parts.bytes();
    ASSERT_EQ(good.size(), FORK);
    ASSERT_EQ(parts.data.size(), DATA);
    const std::map<Base, std::size_t> bases = {
        {Base::Header, 0},
        {Base::Map, parts.mapOffset()},
        {Base::Types, parts.typeListOffset()},
        {Base::References, parts.referencesOffset()},
        {Base::Data, parts.dataOffset},
    };
    for (const auto& [name, base, position, width, value, result] : FIELD_CASES) {
        Bytes fork = good;
        setNumber(fork, bases.at(base) + position, width, value);
        EXPECT_EQ(resultOf(fork), result) << name;
    }
}

TEST(ResourceMap, IsThirtyBytesLongAtLeast)
{
    // A map of zeros, which lies before the data: one resource of type 0.
    Bytes fork = makeFork({{'CALL', 1, "abc"}}).bytes();
    setNumber(fork, 4, 4, 32);
    setNumber(fork, 12, 4, 30);
    EXPECT_EQ(resultOf(fork), noErr);
    setNumber(fork, 12, 4, 29);
    EXPECT_EQ(resultOf(fork), mapReadErr);
}

TEST(ResourceMap, IsRefusedWhereverTheForkIsCut)
{
    const Bytes good = makeFork(RESOURCES).bytes();
    for (std::size_t length = 0; length < good.size(); ++length) {
        const Bytes cut(good.begin(), good.begin() + std::ptrdiff_t(length));
        EXPECT_EQ(resultOf(cut), length < 16 ? int(eofErr) : int(mapReadErr)) << length;
    }
}

TEST(ResourceMap, HasRoomForAllIdsOfAType)
{
    TestFork fork;
    addNumber(fork.data, 4, 0);
    addNumber(fork.types, 2, 0);
    addNumber(fork.types, 4, 'CALL');
    addNumber(fork.types, 2, 0xFFFF);
    addNumber(fork.types, 2, 10);
    for (unsigned id = 0; id <= 0xFFFF; ++id) {
        addNumber(fork.references, 2, id);
        addNumber(fork.references, 2, 0xFFFF);
        addNumber(fork.references, 8, 0);
    }
    ResourceMap resources;
    EXPECT_EQ(read(fork.bytes(), &resources), noErr);
    EXPECT_EQ(resources.size(), 65536u);
    EXPECT_LE(fork.bytes().size(), Toolbox::MAX_FORK_LENGTH);
}

TEST(ResourceMap, MayHaveNoMoreReferencesThanTheMapHasRoomFor)
{
    // Two types of four references each, which share their list. Eight references would be as long as this map.
    TestFork fork = makeFork({{'AAAA', 1, ""}, {'AAAA', 2, ""}, {'AAAA', 3, ""}, {'AAAA', 4, ""}, {'BBBB', 1, ""}});
    fork.references.resize(4 * 12);
    setNumber(fork.types, 2 + 8 + 4, 2, 4 - 1);
    setNumber(fork.types, 2 + 8 + 6, 2, fork.types.size());
    fork.names.resize(2);
    ASSERT_EQ(28 + fork.types.size() + fork.references.size() + fork.names.size(), 8u * 12);
    EXPECT_EQ(resultOf(fork.bytes()), noErr);
    fork.names.resize(1);
    EXPECT_EQ(resultOf(fork.bytes()), mapReadErr);
}

}  // namespace
