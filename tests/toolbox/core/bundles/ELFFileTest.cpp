#include "toolbox/core/bundles/ELFFile.h"

#include "tests/toolbox/core/bundles/PlugInBundle.h"

#include <link.h>

#include <algorithm>
#include <cstring>
#include <tuple>
#include <vector>

namespace {

using Segment = ElfW(Phdr);

// The plug-in's file, whose header and segments a test may change.
class Code {
public:
    Code()
        : m_bytes(contents(PLUG_IN_FILE))
    {
        std::memcpy(&header, m_bytes.data(), sizeof header);
        segments.resize(header.e_phnum);
        m_table = header.e_phoff;
        std::memcpy(segments.data(), m_bytes.data() + m_table, segments.size() * sizeof(Segment));
    }

    std::size_t size() const { return m_bytes.size(); }

    std::string bytes() const
    {
        std::string all = m_bytes;
        std::memcpy(all.data(), &header, sizeof header);
        std::memcpy(all.data() + m_table, segments.data(), segments.size() * sizeof(Segment));
        return all;
    }

    // The first segment that is mapped, or that is not. Which there are, and in what order, depends on the linker.
    Segment& first(bool isMapped)
    {
        return *std::find_if(segments.begin(), segments.end(),
            [isMapped](const Segment& each) { return (each.p_type == PT_LOAD) == isMapped; });
    }

    ElfW(Ehdr) header;
    std::vector<Segment> segments;

private:
    std::string m_bytes;
    std::size_t m_table;
};

constexpr ElfW(Off) PAST_THE_END = 1U << 30;

class ELFFile : public BundleTest {
protected:
    bool isWhole(const std::string& content)
    {
        writeFile(in("code"), content);
        return Toolbox::isWholeELFFile(in("code"));
    }
};

TEST_F(ELFFile, IsWholeUpToTheEndOfItsSegments)
{
    const Code code;
    std::size_t end = 0;
    for (const Segment& each : code.segments) {
        if (each.p_type == PT_LOAD)
            end = std::max(end, static_cast<std::size_t>(each.p_offset + each.p_filesz));
    }
    const std::string content = code.bytes();
    ASSERT_LT(end, content.size()) << "what follows is for the debugger and is not mapped";
    EXPECT_TRUE(isWhole(content));
    EXPECT_TRUE(isWhole(content + "more"));
    EXPECT_TRUE(isWhole(content.substr(0, end)));
    EXPECT_FALSE(isWhole(content.substr(0, end - 1)));
    for (std::size_t length = 0; length < end; length += 97)
        EXPECT_FALSE(isWhole(content.substr(0, length))) << length;
    EXPECT_FALSE(Toolbox::isWholeELFFile(in("missing")));
    EXPECT_FALSE(Toolbox::isWholeELFFile(in("")));
}

TEST_F(ELFFile, IsNotWholeWithAnImpossibleHeaderOrWhereASegmentThatIsMappedIsNotThere)
{
    const std::tuple<const char*, void (*)(Code&), bool> rows[] = {
        {"nothing changed", [](Code&) {}, true},
        {"table that wraps", [](Code& c) { c.header.e_phoff = static_cast<ElfW(Off)>(-1); }, false},
        {"table past the end", [](Code& c) { c.header.e_phoff = PAST_THE_END; }, false},
        {"most segments", [](Code& c) { c.header.e_phnum = 0xFFFF; }, false},
        {"segments of no size", [](Code& c) { c.header.e_phentsize = 0; }, false},
        {"segments of another size", [](Code& c) { c.header.e_phentsize += 1; }, false},
        {"mapped segment past the end", [](Code& c) { c.first(true).p_offset = PAST_THE_END; }, false},
        {"last segment past the end",
            [](Code& c) { c.segments.back().p_type = PT_LOAD, c.segments.back().p_offset = PAST_THE_END; }, false},
        {"offset and size that are a small number together",
            [](Code& c) { c.first(true).p_offset = 2, c.first(true).p_filesz -= c.first(true).p_filesz + 1; }, false},
        {"segment past the end that is not mapped", [](Code& c) { c.first(false).p_offset = PAST_THE_END; }, true},
        {"empty segment at the end", [](Code& c) { c.first(true).p_offset = c.size(), c.first(true).p_filesz = 0; },
            true},
        {"empty segment behind the end",
            [](Code& c) { c.first(true).p_offset = c.size() + 1, c.first(true).p_filesz = 0; }, false},
        {"what would be one more segment",
            [](Code& c) { c.segments.push_back(c.first(true)), c.segments.back().p_offset = PAST_THE_END; }, true},
    };
    for (const auto& [name, change, whole] : rows) {
        Code code;
        change(code);
        EXPECT_EQ(isWhole(code.bytes()), whole) << name;
    }
}

}  // namespace
