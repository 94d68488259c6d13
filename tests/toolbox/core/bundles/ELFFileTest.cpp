#include "toolbox/core/bundles/ELFFile.h"

#include "tests/toolbox/core/bundles/PlugInBundle.h"

#include <link.h>

#include <algorithm>
#include <cstring>

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

// The header of the plug-in with these bytes.
FileHeader headerOf(const std::string& content)
{
    FileHeader header;
    std::memcpy(&header, content.data(), sizeof header);
    return header;
}

// The plug-in, with its header changed by `change`.
template <typename Change> std::string withHeader(Change change)
{
    std::string content = contents(PLUG_IN_FILE);
    FileHeader header = headerOf(content);
    change(header);
    std::memcpy(content.data(), &header, sizeof header);
    return content;
}

// Where the last of what is mapped of the plug-in ends.
std::size_t endOfSegments()
{
    const std::string content = contents(PLUG_IN_FILE);
    const FileHeader header = headerOf(content);
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
    const std::string content = contents(PLUG_IN_FILE);
    const std::size_t end = endOfSegments();
    ASSERT_LT(end, content.size()) << "what follows is for the debugger and is not mapped";
    EXPECT_TRUE(isWhole(content));
    EXPECT_TRUE(isWhole(content + "more"));
    EXPECT_TRUE(isWhole(content.substr(0, end)));
    EXPECT_FALSE(isWhole(content.substr(0, end - 1)));
    for (std::size_t length = 0; length < end; length += 97)
        EXPECT_FALSE(isWhole(content.substr(0, length))) << length;
}

TEST_F(ELFFile, ThatIsNotThereOrHasAnImpossibleHeaderIsNotWhole)
{
    EXPECT_TRUE(isWhole(withHeader([](FileHeader&) {})));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phoff = static_cast<ElfW(Off)>(-1); })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phoff = 1U << 30; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phnum = 0xFFFF; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phentsize = 0; })));
    EXPECT_FALSE(isWhole(withHeader([](FileHeader& header) { header.e_phentsize += 1; })));
    EXPECT_FALSE(isWholeELFFile(in("missing")));
    EXPECT_FALSE(isWholeELFFile(in("")));
}

// The plug-in with one of its segments, which `isWanted` picks by its place and content, changed by `change`.
template <typename IsWanted, typename Change> std::string withSegment(IsWanted isWanted, Change change)
{
    std::string content = contents(PLUG_IN_FILE);
    const FileHeader header = headerOf(content);
    for (int index = 0; index < header.e_phnum; ++index) {
        char* const place = content.data() + header.e_phoff + static_cast<std::size_t>(index) * sizeof(Segment);
        Segment segment;
        std::memcpy(&segment, place, sizeof segment);
        if (isWanted(segment, header.e_phnum - 1 - index)) {
            change(segment);
            std::memcpy(place, &segment, sizeof segment);
            return content;
        }
    }
    ADD_FAILURE() << "there is no such segment";
    return content;
}

// Which segments there are, and in what order, depends on the linker.
bool isMapped(const Segment& segment, int)
{
    return segment.p_type == PT_LOAD;
}

bool isNotMapped(const Segment& segment, int)
{
    return segment.p_type != PT_LOAD;
}

bool isLast(const Segment&, int followers)
{
    return followers == 0;
}

void leadPastTheEnd(Segment& segment)
{
    segment.p_offset = 1U << 30;
}

TEST_F(ELFFile, IsNotWholeWhereASegmentThatIsMappedIsNotThere)
{
    EXPECT_TRUE(isWhole(withSegment(isMapped, [](Segment&) {})));
    EXPECT_FALSE(isWhole(withSegment(isMapped, leadPastTheEnd)));
    EXPECT_FALSE(isWhole(withSegment(isLast, [](Segment& segment) {
        segment.p_type = PT_LOAD;
        leadPastTheEnd(segment);
    })));
    EXPECT_FALSE(isWhole(withSegment(isMapped, [](Segment& segment) {
        segment.p_offset = static_cast<ElfW(Off)>(-1);  // offset and size together are a small number again
        segment.p_filesz = 2;
    })));
    EXPECT_TRUE(isWhole(withSegment(isNotMapped, leadPastTheEnd)));
}

TEST_F(ELFFile, MayHaveAnEmptySegmentAtItsEndAndNotBehind)
{
    const std::size_t size = contents(PLUG_IN_FILE).size();
    for (const std::size_t past : {std::size_t(0), std::size_t(1)}) {
        const std::string content = withSegment(isMapped, [&](Segment& segment) {
            segment.p_offset = size + past;
            segment.p_filesz = 0;
        });
        EXPECT_EQ(isWhole(content), past == 0) << past << " past the end";
    }
}

TEST_F(ELFFile, HasNoSegmentsBehindItsTable)
{
    std::string content = contents(PLUG_IN_FILE);
    const FileHeader header = headerOf(content);
    Segment segment = {};
    segment.p_type = PT_LOAD;
    leadPastTheEnd(segment);
    std::memcpy(content.data() + header.e_phoff + header.e_phnum * sizeof segment, &segment, sizeof segment);
    EXPECT_TRUE(isWhole(content));
}

}  // namespace
