// Resource files that other programs wrote: the same small font, packed as a resource of type 'sfnt'.
//
// files/tiny.dfont is FontForge's data-fork suitcase. files/tiny.appledouble was packed by ufond (from Debian's fondu)
// and made AppleDouble by unar -k hidden.

#include "toolbox/base/BigEndianBytes.h"
#include "toolbox/base/files/FileReferences.h"

#include <Carbon/MacMemory.h>
#include <Carbon/Resources.h>

#include <gtest/gtest.h>

namespace {

// The sum of a TrueType font's big-endian words: every font is made so that it is 0xB1B0AFBA.
std::uint32_t fontSum(const void* data, std::size_t length)
{
    const Toolbox::BigEndianBytes font(data, length);
    std::uint32_t sum = 0;
    for (std::size_t position = 0; font.holds(position, 4); position += 4)
        sum += font.number32(position);
    return sum;
}

struct ForeignFile {
    const char* name;
    Size familySize;  // of the 'FOND' beside the font, which the two programs fill differently
};

const ForeignFile FOREIGN_FILES[] = {
    {"tiny.dfont", 663},
    {"tiny.appledouble", 598},
};

TEST(ForeignFile, HasItsResources)
{
    for (const ForeignFile& row : FOREIGN_FILES) {
        SCOPED_TRACE(row.name);
        FSRef file;
        ASSERT_EQ(Toolbox::makeFileReference(std::string(TEST_FILES) + "/" + row.name, &file), noErr);
        SInt16 refNum = 0;
        ASSERT_EQ(FSOpenResourceFile(&file, 0, nullptr, fsRdPerm, &refNum), noErr);

        const Handle font = GetResource('sfnt', 5177);
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(GetHandleSize(font), 1428);
        EXPECT_EQ(fontSum(*font, 1428), 0xB1B0AFBAu);
        const Handle family = GetResource('FOND', 5177);
        ASSERT_NE(family, nullptr);
        EXPECT_EQ(GetHandleSize(family), row.familySize);
        EXPECT_EQ(Toolbox::BigEndianBytes(*family, 4).signed16(2), 5177) << "a family begins with flags and its number";

        EXPECT_EQ(GetResource('sfnt', 5178), nullptr);
        EXPECT_EQ(GetResource('NFNT', 5177), nullptr);
        CloseResFile(refNum);
    }
}

}  // namespace
