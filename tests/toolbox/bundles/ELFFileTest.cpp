#include "toolbox/bundles/ELFFile.h"

#include "tests/toolbox/bundles/PlugInBundle.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <link.h>

namespace {

using Toolbox::isWholeELFFile;

using FileHeader = ElfW(Ehdr);
using Segment = ElfW(Phdr);

class ELFFile : public BundleTest {
protected:
    bool isWhole(const std::string& content)
    {
        writeFile(in("code"), content);
        return isWholeELFFile(in("code"));
    }
};

// The plug-in, with its header changed by `change`.
template <typename Change> std::string withHeader(Change change)
{
    std::string content = contentsOf(PLUG_IN_FILE);
    FileHeader header;
    std::memcpy(&header, content.data(), sizeof header);
    change(header);
    std::memcpy(content.data(), &header, sizeof header);
    return content;
}

// Where the last of what is mapped of the plug-in ends.
std::size_t endOfSegments()
{
    const std::string content = contentsOf(PLUG_IN_FILE);
    FileHeader header;
    std::memcpy(&header, content.data(), sizeof header);
    std::size_t end = 0;
    for (std::size_t index = 0; index < header.e_phnum; ++index) {
        Segment segment;
        std::memcpy(&segment, content.data() + header.e_phoff + index * sizeof segment, sizeof segment);
        if (segment.p_type == PT_LOAD)
            end = std::max(end, static_cast<std::size_t>(segment.p_offset + segment.p_filesz));
    }
    return end;
}

TEST_F(ELFFile, IsWholeUpToTheEndOfItsSegments)
{
    const std::string content = contentsOf(PLUG_IN_FILE);
    const std::size_t end = endOfSegments();
    ASSERT_LT(end, content.size()) << "what follows is for the debugger and is not mapped";
    EXPECT_TRUE(isWhole(content));
    EXPECT_TRUE(isWhole(content + "more"));
    EXPECT_TRUE(isWhole(content.substr(0, end)));
    EXPECT_FALSE(isWhole(content.substr(0, end - 1)));
    for (std::size_t length = 0; length < end; length += 97)
        EXPECT_FALSE(isWhole(content.substr(0, length))) << length;
}

TEST_F(ELFFile, WithAnImpossibleHeaderIsNotWhole)
{
    EXPECT_TRUE(isWhole(withHeader([](FileHeader&) {})));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phoff = static_cast<ElfW(Off)>(-1); })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phoff = 1U << 30; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phnum = 0xFFFF; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phentsize = 0; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phentsize += 1; })));
}

// The plug-in, with the first segment that is mapped changed by `change`. Which segment that is depends on the linker.
template <typename Change> std::string withMappedSegment(Change change)
{
    std::string content = contentsOf(PLUG_IN_FILE);
    FileHeader header;
    std::memcpy(&header, content.data(), sizeof header);
    char* place = content.data() + header.e_phoff;
    Segment segment;
    for (int index = 0; index < header.e_phnum; ++index, place += sizeof segment) {
        std::memcpy(&segment, place, sizeof segment);
        if (segment.p_type == PT_LOAD)
            break;
    }
    EXPECT_EQ(segment.p_type, static_cast<ElfW(Word)>(PT_LOAD));
    change(segment);
    std::memcpy(place, &segment, sizeof segment);
    return content;
}

TEST_F(ELFFile, WithASegmentPastAllNumbersIsNotWhole)
{
    EXPECT_TRUE(isWhole(withMappedSegment([](Segment&) {})));
    EXPECT_FALSE(isWhole(withMappedSegment([](Segment& segment) {
        segment.p_offset = static_cast<ElfW(Off)>(-1);  // offset and size together are a small number again
        segment.p_filesz = 2;
    })));
}

TEST_F(ELFFile, ThatIsNotThereIsNotWhole)
{
    EXPECT_FALSE(isWholeELFFile(in("missing")));
    EXPECT_FALSE(isWholeELFFile(in("")));
}

}  // namespace
