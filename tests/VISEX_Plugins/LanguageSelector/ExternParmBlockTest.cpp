#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/support/RecordDifferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>
#include <vector>

namespace {

static_assert(std::is_trivial<ExternParmBlock>::value, "a record may lie in memory of the host's");
static_assert(std::is_standard_layout<ExternParmBlock>::value, "its layout is what it says");

struct WriteCase {
    const char* name;
    void (*write)(ExternParmBlock& record);
    std::ptrdiff_t position;
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

TEST(ExternParmBlock, FieldsAreReadBigEndianFromTheirPlaces)
{
    RecordBytes bytes = {};
    for (const WriteCase& each : WRITE_CASES)
        std::copy(each.written.begin(), each.written.end(), bytes.begin() + each.position);
    const ExternParmBlock record = recordOf(bytes);
    EXPECT_EQ(record.message, -2);
    EXPECT_EQ(record.resultFlags, 0x81020384u);
    EXPECT_EQ(record.chosenLanguage, 0xFEDC);
    EXPECT_EQ(record.currentLanguage, 0xF1223344u);
}

TEST(ExternParmBlock, IsWrittenInTheFieldsBytesAlone)
{
    for (const auto& row : WRITE_CASES) {
        SCOPED_TRACE(row.name);
        ExternParmBlock record = recordWith(1000, 0);
        RecordBytes expected = bytesOf(record);
        std::copy(row.written.begin(), row.written.end(), expected.begin() + row.position);
        row.write(record);
        EXPECT_EQ(recordDifferences(record, recordOf(expected)), "");
    }
}

}  // namespace
