#include "host/demo_application/ResourceFileWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace {

using namespace Resources;

// Hexadecimal digits, blanks between them as one likes, as bytes.
Bytes hex(std::string digits)
{
    digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
    Bytes bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    return bytes;
}

Bytes joined(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST(ByteWriter, PutsTheHighestByteFirst)
{
    ByteWriter writer;
    writer.put8(0x101).put16(0x12345).put24(0xAABBCCDD).put32(0x01020304).putText("ab").putZeros(2).putBytes({9});
    EXPECT_EQ(writer.bytes(), hex("01 2345 BBCCDD 01020304 6162 0000 09"));
}

TEST(ResourceFileWriter, WithoutResourcesIsAHeaderAndAnEmptyMap)
{
    const Bytes header = hex("00000100 00000100 00000000 0000001E");
    EXPECT_EQ(ResourceFileWriter().bytes(), joined({header, Bytes(240), header, Bytes(8), hex("001C 001E FFFF")}));
}

TEST(ResourceFileWriter, LiesInTheOrderOfTypesAndIds)
{
    ResourceFileWriter file;
    file.add('CALL', 1000, hex("AABBCC"));
    file.add('ALRT', 5000, hex("DD"));
    file.add('ALRT', -1, {});

    const Bytes data = joined({hex("00000000"), hex("00000001 DD"), hex("00000003 AABBCC")});
    const Bytes header = hex("00000100 00000110 00000010 00000052");
    const Bytes types = hex("0001"
                            "414C5254 0001 0012"
                            "43414C4C 0000 002A");
    const Bytes references = hex("FFFF FFFF 00 000000 00000000"
                                 "1388 FFFF 00 000004 00000000"
                                 "03E8 FFFF 00 000009 00000000");
    EXPECT_EQ(file.bytes(), joined({header, Bytes(240), data, header, Bytes(8), hex("001C 0052"), types, references}));
}

TEST(ResourceFileWriter, TakesNoResourceTwice)
{
    ResourceFileWriter file;
    file.add('CALL', 1000, {});
    EXPECT_NO_THROW(file.add('CALL', 1001, {}));
    EXPECT_NO_THROW(file.add('DITL', 1000, {}));
    EXPECT_THROW(file.add('CALL', 1000, {1}), std::invalid_argument);
}

TEST(ResourceFileWriter, RefusesMoreThanTheFormatHolds)
{
    ResourceFileWriter largest;
    largest.add('BIG ', 1, Bytes(0xFFFFFF - 4));
    EXPECT_EQ(largest.bytes().size(), 256 + 0xFFFFFFu + 28 + 2 + 8 + 12);
    largest.add('BIG ', 2, {});
    EXPECT_THROW(largest.bytes(), std::length_error);

    ResourceFileWriter manyResources;  // each takes 12 bytes of the map, which has 65,535
    for (std::int16_t id = 0; id < 5458; ++id)
        manyResources.add('MANY', id, {});
    EXPECT_NO_THROW(manyResources.bytes());
    manyResources.add('MANY', 5458, {});
    EXPECT_THROW(manyResources.bytes(), std::length_error);
}

TEST(AlertTemplate, HasBoundsItemsStagesAndPosition)
{
    EXPECT_EQ(alertTemplate({40, -1, 160, 440}, 5000), hex("0028 FFFF 00A0 01B8 1388 5555 300A"));
}

TEST(DialogItemList, HoldsEachItemAtAnEvenPlace)
{
    EXPECT_EQ(dialogItemList({
                  {DialogItem::Button, {1, 2, 3, 4}, "OK"},
                  {DialogItem::StaticText, {5, 6, 7, 8}, "abc"},
                  {DialogItem::StaticText, {9, 10, 11, 12}, ""},
              }),
        joined({hex("0002"), hex("00000000 0001 0002 0003 0004 04 02 4F4B"),
            hex("00000000 0005 0006 0007 0008 88 03 616263 00"), hex("00000000 0009 000A 000B 000C 88 00")}));
}

TEST(DialogItemList, RefusesWhatItCannotHold)
{
    const auto text = [](const std::string& characters) {
        return dialogItemList({{DialogItem::StaticText, {0, 0, 0, 0}, characters}});
    };
    EXPECT_NO_THROW(text(std::string(254, '~') + ' '));
    for (const std::string& bad :
        {std::string(256, 'x'), std::string("\xC3\xA4"), std::string("\x1F"), std::string("\x7F")})
        EXPECT_THROW(text(bad), std::invalid_argument);
    EXPECT_THROW(dialogItemList({}), std::invalid_argument);
}

}  // namespace
