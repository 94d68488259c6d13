// The host's record file: loaded, read field by field, changed as a call changes it, reported and saved. What follows
// the record in the input is also the text of an alert in the report.

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "fuzz/must_hold.h"
#include "fuzz/scratch_file.h"
#include "host/Messages.h"
#include "host/Record.h"
#include "host/Report.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t RECORD_SIZE = 614;
constexpr std::size_t CHOSEN_LANGUAGE = 582;

// The `width` bytes from `position` on, the highest first.
std::uint32_t numberAt(std::string_view bytes, std::size_t position, std::size_t width)
{
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(position, width))
        number = number * 256 + static_cast<unsigned char>(byte);
    return number;
}

void checkReport(Host::Record& record, std::string_view bytes)
{
    const ExternParmBlock& block = record.block();
    Host::Report report;
    report.message = block.message;
    report.current = block.currentLanguage;
    report.chosenBefore = block.chosenLanguage;
    report.flagsBefore = block.resultFlags;
    report.flagsAfter = report.flagsBefore | RESULT_FLAG_UNKNOWN_MESSAGE;
    mustHold(static_cast<std::uint16_t>(report.message) == numberAt(bytes, 0, 2), "the message is at 0");
    mustHold(report.flagsBefore == numberAt(bytes, 8, 4), "the flags are at 8");
    mustHold(report.chosenBefore == numberAt(bytes, CHOSEN_LANGUAGE, 2), "the chosen language is at 582");
    mustHold(report.current == numberAt(bytes, 610, 4), "the current language is at 610");

    const std::string text(bytes.substr(RECORD_SIZE));
    report.toolbox.alerts.push_back({"stop", SInt16{5000}, text, text, {text}, 1});
    const std::string words = Host::inWords(report);
    mustHold(std::count(words.begin(), words.end(), '\n') == 6, "an alert's text ends no line");
    mustHold(Host::inJson(report).back() == '\n', "there is JSON for every text");
}

// What the language that a call chooses, here `chosen`, makes of the record and its file.
void checkChange(Host::Record& record, std::string bytes, UInt16 chosen, const std::filesystem::path& file)
{
    const UInt16 before = record.block().chosenLanguage;
    Host::ChosenLanguage unchanged(record.block());
    mustHold(!unchanged.settle() && record.block().chosenLanguage == before, "a field that nobody writes comes back");

    record.block().chosenLanguage = chosen;
    bytes[CHOSEN_LANGUAGE] = static_cast<char>(chosen >> 8);
    bytes[CHOSEN_LANGUAGE + 1] = static_cast<char>(chosen & 0xFF);
    std::filesystem::remove(file);  // which may look like no record, and would not be replaced
    record.save(file);
    mustHold(contents(file) == bytes, "a record is saved with every byte but those of the language");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TemporaryFolder folder;
    static ScratchFile file(folder / "record");
    file.hold(data, size);
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        Host::Record record = Host::Record::load(folder / "record");
        mustHold(size >= RECORD_SIZE, "a short record is refused");
        checkReport(record, bytes);
        checkChange(record, std::string(bytes), static_cast<UInt16>(numberAt(bytes, 0, 2)), folder / "saved");
    } catch (const Host::Problem&) {
        mustHold(size < RECORD_SIZE, "a whole record is taken");
    }
    return 0;
}
