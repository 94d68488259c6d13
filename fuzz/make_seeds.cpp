// Makes the seeds that are no texts: make_seeds FOLDER writes them into FOLDER/TARGET. Resource files are drawn by the
// tests' own helpers, field by field.

#include "tests/toolbox/base/resources/ResourceFork.h"
#include "tests/toolbox/core/dialogs/AlertBytes.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& bytes)
{
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream << bytes << std::flush;
}

std::string textOf(const Bytes& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

// ---- Resource files

const std::string TEXT_AND_BUTTONS = itemList({
    dialogItem(STATIC_TEXT | DISABLED, "^0 costs\r\xA5"),
    dialogItem(BUTTON, "OK"),
    dialogItem(BUTTON | DISABLED, "Cancel"),
    dialogItem(ICON, word(128)),
});

// A fork that starts its data where its header ends, so that a seed is short.
Bytes forkOf(const std::vector<TestResource>& resources)
{
    TestFork fork = makeFork(resources);
    fork.dataOffset = 16;
    return fork.bytes();
}

Bytes alertFork(int stages)
{
    return forkOf({{'ALRT', 1, alertTemplate(2, stages)}, {'DITL', 2, TEXT_AND_BUTTONS}});
}

void writeResourceFiles(const fs::path& folder)
{
    const Bytes alert = alertFork(0x5555);
    write(folder / "nothing", textOf(forkOf({})));
    write(folder / "flag", textOf(forkOf({{'CALL', 1000, "short", 0, "name"}})));
    write(folder / "compressed", textOf(forkOf({{'CALL', 1, "", 1}, {'CALL', -1, "x"}})));
    write(folder / "alert", textOf(alert));
    write(folder / "alert_at_its_fourth_stage", textOf(alertFork(0xC000)));
    write(folder / "apple_double", textOf(makeAppleDouble(APPLE_DOUBLE, {{RESOURCE_FORK_ENTRY, alert}})));
    write(folder / "apple_single",
        textOf(makeAppleDouble(APPLE_SINGLE, {{DATA_FORK_ENTRY, {'x'}}, {RESOURCE_FORK_ENTRY, alert}})));
}

// ---- Bundles with a file of code

void writeCode(const fs::path& folder)
{
    std::ifstream self("/proc/self/exe", std::ios::binary);
    std::string start(1024, '\0');
    self.read(start.data(), static_cast<std::streamsize>(start.size()));
    write(folder / "code_that_was_cut_short", '\0' + start);
}

// ---- Records

// A record with these fields, and a tail.
std::string record(int message, unsigned flags, int chosen, unsigned current, const std::string& tail)
{
    std::string bytes(614, '\0');
    bytes.replace(0, 2, word(message));
    bytes.replace(8, 4, bigEndian(flags, 4));
    bytes.replace(582, 2, word(chosen));
    bytes.replace(610, 4, bigEndian(current, 4));
    return bytes + tail;
}

void writeRecords(const fs::path& folder)
{
    write(folder / "german", record(1000, 0, 2, 2, ""));
    write(folder / "another_message", record(-1, 0x80000000, 0xFFFF, 6, "tail"));
    write(folder / "bad_text", record(1, 1, 11, 0xFFFFFFFF, "\n\x1B[m\xFF\xC3\xA4\"\\"));
    write(folder / "too_short", record(0, 0, 0, 0, "").substr(1));
}

// ---- UTF-16: a buffer's size, then text

std::string units(const std::u16string& text)
{
    return std::string(reinterpret_cast<const char*>(text.data()), 2 * text.size());
}

void writeTexts(const fs::path& folder)
{
    write(folder / "bytes",
        "\x40"
        "Fran\x8D\x61is \xDB\xF0");
    write(folder / "units", "\x40" + units(u"\u00A5 \u20AC \u2022"));
    write(folder / "surrogates", "\x40" + units(u"\U0001F600"));
    write(folder / "full_buffer", "\x03" + units(u"abcd"));
    write(folder / "long", "\xFF" + units(std::u16string(70, u'\u00E4') + u"\u3042" + std::u16string(40, u'x')));
    write(folder / "half_a_unit", "\x40" + units(u"a") + "b");
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("usage: make_seeds FOLDER\n", stderr);
        return 2;
    }
    const fs::path folder = arguments[1];
    writeResourceFiles(folder / "resource_file");
    writeCode(folder / "bundle");
    writeRecords(folder / "record");
    writeTexts(folder / "utf16");
    return 0;
}
