// visex-host: stands in for the installer. Loads an external, calls it once, and says what it answered.

#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "host/CallGuard.h"
#include "host/DisplayChoice.h"
#include "host/External.h"
#include "host/Installer.h"
#include "host/Languages.h"
#include "host/Messages.h"
#include "host/Options.h"
#include "host/OutputChecks.h"
#include "host/Paths.h"
#include "host/Process.h"
#include "host/TraceFile.h"
#include "host/WrittenFiles.h"

#include <Toolbox/Application.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace {

using namespace Host;

void tellOfStrangeCode(const std::string& whose, std::uint32_t code)
{
    if (!isLanguageCode(code))
        complain(whose + ", " + std::to_string(code) + ", is not a Mac OS language code");
}

// A record that is loaded keeps what the options leave open; a new one gets the defaults.
Record makeRecord(const Options& options)
{
    Record record = options.record ? Record::load(*options.record) : Record();
    ExternParmBlock& block = record.block();
    if (options.record)  // nothing else in a file says whether it is a record
        tellOfStrangeCode("the file '" + *options.record + "' was taken for a record, but the current language in it",
            block.currentLanguage);
    if (options.current)
        tellOfStrangeCode("the given current language", *options.current);
    if (options.message || !options.record)
        block.message = options.message.value_or(MESSAGE_SELECT_LANGUAGE);
    if (options.current || !options.record)
        block.currentLanguage = options.current ? *options.current : offeredUserLanguage().code;
    return record;
}

// Where the trace goes: into the file if there is one, else to standard error if it is wanted at all.
Toolbox::TraceSink traceSink(const Options& options, std::optional<TraceFile>& file)
{
    if (file)
        return [&file](const std::string& line) { file->write(line); };
    return options.trace ? Toolbox::TraceSink(complain) : nullptr;
}

void savePicture(const std::string& file, const Toolbox::CallReport& report)
{
    if (!report.pictureProblem.empty())
        throw Problem(ExitStatus::NotDone, notWritten("picture", file, report.pictureProblem));
    writeFile("picture", file, report.picture);
}

// Does `work`, or says in a line why not, and then gives false. What becomes of the rest does not depend on it.
bool doOrTell(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const Problem& problem) {
        complain(problem.what());
        return false;
    }
}

ExitStatus callWith(Options options)
{
    settleOutputs(options);
    Record record = makeRecord(options);

    const std::filesystem::path support = supportFolder();
    Toolbox::SetFrameworksFolder(support / "Frameworks");
    Installer installer(options.application.value_or(support / "DemoInstaller.app"), options.resources);
    if (options.requireAdmin)
        installer.requireAdministrator();
    External external(options.external ? std::filesystem::path(*options.external) : installer.builtInExternal());
    const DisplayKind display = chooseDisplay(options);
    tellRemarks();  // before anybody is asked: why there is no window, for one
    if (options.picture)
        Toolbox::WantPicture();

    std::optional<TraceFile> traceFile;
    if (options.traceFile)
        traceFile.emplace(*options.traceFile);
    const Report report = external.call(record, display, traceSink(options, traceFile));
    const bool traced = !traceFile || doOrTell([&] { traceFile->finish(); });
    tellCallProblems(options, report.toolbox);
    // The answer is printed when the record is stored, so that it is true; and both before the external is released,
    // because its code may end the process.
    if (options.writeRecord)
        record.save(*options.writeRecord);
    const bool pictured = !options.picture || doOrTell([&] { savePicture(*options.picture, report.toolbox); });
    const bool printed = doOrTell([&] { print(options.json ? inJson(report) : inWords(report)); });
    external.release();
    return traced && pictured && printed ? statusOf(report) : ExitStatus::NotDone;
}

ExitStatus run(const std::vector<std::string>& arguments)
{
    const std::variant<Options, std::string> parsed = parseOptions(arguments);
    if (const Options* const options = std::get_if<Options>(&parsed))
        return callWith(*options);
    print(std::get<std::string>(parsed));
    return ExitStatus::Chosen;
}

ExitStatus runAndTell(const std::vector<std::string>& arguments)
{
    try {
        return run(arguments);
    } catch (const Problem& problem) {
        tellRemarks();
        complain(problem.what());
        return problem.status;
    } catch (const std::bad_alloc&) {
        complain("there is not enough memory");
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return ExitStatus::NotDone;
}

}  // namespace

int main(int count, char** arguments)
{
    holdStandardStreams();
    clearPlugInPaths();
    return static_cast<int>(watched(
        [&] { return runAndTell(std::vector<std::string>(arguments + std::min(count, 1), arguments + count)); }));
}
