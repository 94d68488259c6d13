#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/support/RecordDifferences.h"
#include "tests/support/RowName.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace {

static_assert(std::is_trivial<ExternParmBlock>::value, "a record may lie in memory of the host's");
static_assert(std::is_standard_layout<ExternParmBlock>::value, "its layout is what it says");

TEST(ExternParmBlock, FieldsAreReadBigEndianFromTheirPlaces)
{
    RecordBytes bytes = {};
    bytes[0] = 0x03;
    bytes[1] = 0xE8;
    bytes[8] = 0x81;
    bytes[9] = 0x02;
    bytes[10] = 0x03;
    bytes[11] = 0x84;
    bytes[582] = 0xFE;
    bytes[583] = 0xDC;
    bytes[610] = 0xF1;
    bytes[611] = 0x22;
    bytes[612] = 0x33;
    bytes[613] = 0x44;
    const ExternParmBlock record = recordOf(bytes);
    EXPECT_EQ(record.message, 1000);
    EXPECT_EQ(record.resultFlags, 0x81020384u);
    EXPECT_EQ(record.chosenLanguage, 0xFEDC);
    EXPECT_EQ(record.currentLanguage, 0xF1223344u);
}

TEST(ExternParmBlock, MessageIsSigned)
{
    RecordBytes bytes = {};
    bytes[0] = 0xFF;
    bytes[1] = 0xFE;
    EXPECT_EQ(recordOf(bytes).message, -2);
    bytes[0] = 0x80;
    bytes[1] = 0x00;
    EXPECT_EQ(recordOf(bytes).message, -32768);
}

struct WriteCase {
    const char* name;
    void (*write)(ExternParmBlock& record);
    std::size_t position;
    std::vector<UInt8> written;
};

// clang-format off
const WriteCase WRITE_CASES[] = {
    {"Message",         [](ExternParmBlock& record) { record.message = -2; },                  0,   {0xFF, 0xFE}},
    {"ResultFlags",     [](ExternParmBlock& record) { record.resultFlags = 0x81020384; },      8,   {0x81, 0x02, 0x03, 0x84}},
    {"ChosenLanguage",  [](ExternParmBlock& record) { record.chosenLanguage = 0xFEDC; },       582, {0xFE, 0xDC}},
    {"CurrentLanguage", [](ExternParmBlock& record) { record.currentLanguage = 0xF1223344; },  610, {0xF1, 0x22, 0x33, 0x44}},
};
// clang-format on

class ExternParmBlockWrite : public testing::TestWithParam<WriteCase> { };

TEST_P(ExternParmBlockWrite, ChangesTheFieldsBytesAlone)
{
    ExternParmBlock record = recordWith(1000, 0);
    RecordBytes expected = bytesOf(record);
    for (std::size_t i = 0; i < GetParam().written.size(); ++i)
        expected[GetParam().position + i] = GetParam().written[i];

    GetParam().write(record);
    EXPECT_EQ(recordDifferences(bytesOf(record), expected), "");
}

INSTANTIATE_TEST_SUITE_P(Fields, ExternParmBlockWrite, testing::ValuesIn(WRITE_CASES), RowName());

}  // namespace
