// The external as its installer calls it, from the factory to the last release, with each call that it makes of the
// platform failing in each way that the platform has.

#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxTest.h"
#include "tests/support/RecordDifferences.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

struct Transcript {
    HRESULT queried;
    ExternParmBlock record;
    std::string log;  // of the main entry
};

// All that an installer does with the external.
Transcript perform(Scenario scenario)
{
    Transcript transcript = {S_OK, recordFor(scenario), std::string()};
    const CFUUIDRef type = CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
    XcodInstance* const instance = static_cast<XcodInstance*>(MyFactory(nullptr, type));

    LPVOID queried = nullptr;
    transcript.queried = instance->functions->QueryInterface(instance, EXTERNAL_INTERFACE, &queried);
    const std::size_t begin = Log().size();
    instance->functions->XCodMain(&transcript.record);
    transcript.log = Log().substr(begin);
    if (queried != nullptr)
        instance->functions->Release(queried);
    instance->functions->Release(instance);
    return transcript;
}

// ---- What a log tells

std::vector<std::string> linesOf(const std::string& log)
{
    std::istringstream stream(log);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::size_t depthOf(const std::string& line)
{
    return line.find_first_not_of(' ');
}

std::string functionOf(const std::string& line)
{
    return line.substr(depthOf(line), line.find('(') - depthOf(line));
}

// `log` without the results of calls that others happened inside: when one of those fails, they are others.
std::string withoutOuterResults(const std::string& log)
{
    const std::vector<std::string> lines = linesOf(log);
    std::string rest;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool isOuter =
            functionOf(lines[i]) == "handler" || (i + 1 < lines.size() && depthOf(lines[i + 1]) > depthOf(lines[i]));
        rest += (isOuter ? lines[i].substr(0, lines[i].rfind(" = ")) : lines[i]) + '\n';
    }
    return rest;
}

// The log of a scenario up to the failing call, which gives `result`.
std::string cutAt(const Failure& failure, long result)
{
    int occurrence = 0;
    std::string cut;
    for (std::string line : linesOf(logOf(failure.scenario))) {
        if (functionOf(line) == failure.function && ++occurrence == std::max(failure.occurrence, 1)) {
            const std::size_t gives = line.rfind(" = ");
            if (gives == std::string::npos)
                return cut + line + '\n';
            const char first = line[gives + 3];
            const bool isNumber = first == '-' || std::isdigit(static_cast<unsigned char>(first)) != 0;
            return cut + line.substr(0, gives) + " = " + (isNumber ? std::to_string(result) : "null") + '\n';
        }
        cut += line + '\n';
    }
    return std::string();  // not of the main entry
}

// ---- The failures

class PlatformFailure : public ToolboxTestWith<Failure> { };

TEST_P(PlatformFailure, ShowsChangesAndLeavesWhatItShouldAndEndsTheCallOrGoesOn)
{
    const Failure& failure = GetParam();
    for (const long result : failure.results) {
        SCOPED_TRACE(std::string(failure.function) + " gives " + std::to_string(result) + ", after " + failure.source);
        prepare(failure, result);
        ExternParmBlock expected = recordFor(failure.scenario);
        expected.chosenLanguage = failure.chosen;
        if (failure.scenario == Scenario::NotServed)
            expected.resultFlags = 0x80000001;

        const Transcript transcript = perform(failure.scenario);
        EXPECT_NE(Log().find(std::string(failure.function) + "("), std::string::npos) << "nothing failed:\n" << Log();
        const bool alerts = Log().find("StandardAlert(") != std::string::npos;
        EXPECT_EQ(alerts, hasBox(failure) || failure.scenario == Scenario::WithoutNib) << Log();
        EXPECT_NE(Log().find(hasBox(failure) ? boxLog(failure.seen) : ""), std::string::npos) << Log();
        EXPECT_EQ(recordDifferences(transcript.record, expected), "");
        EXPECT_EQ(LeftBehind(), failure.leftBehind);
        EXPECT_EQ(transcript.queried, std::string(failure.name) == "QueriedUUID" ? E_NOINTERFACE : S_OK);
        // What failed has put a wrong reference where the right one was to be.
        EXPECT_EQ(Log().find("unknown"), std::string::npos) << Log();
        EXPECT_EQ(Log().find("dead "), std::string::npos) << Log();

        const std::string log = withoutOuterResults(transcript.log);
        const std::string until = withoutOuterResults(cutAt(failure, result)) + failure.then;
        if (failure.stops)
            EXPECT_EQ(log, until + (hasBox(failure) ? boxLog(failure.seen) : ""));
        else
            EXPECT_EQ(log.substr(0, until.size()), until) << "the log begins otherwise:\n" << log;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, PlatformFailure, testing::ValuesIn(failures()), RowName());

// ---- That none is missing

// They have neither a result that tells of a failure nor an error that can be asked for.
const char* const CANNOT_FAIL[] = {"BitTst", "BlockMoveData", "CFEqual", "CFRelease", "CFUUIDGetConstantUUIDWithBytes",
    "DisposeEventHandlerUPP", "DisposeNibReference", "DisposeWindow", "GetEventClass", "GetEventKind", "HideWindow",
    "SetControl32BitValue", "ShowWindow"};

// The factory does not look whether there was memory: what it then does is undefined.
const char NOT_LOOKED_AT[] = "NewPtr";

TEST(PlatformFailures, CoverEveryCallThatIsMadeInItsOrderWhenNothingFails)
{
    std::set<std::string> covered(std::begin(CANNOT_FAIL), std::end(CANNOT_FAIL));
    covered.insert(NOT_LOOKED_AT);
    for (const Failure& failure : failures())
        covered.insert(failure.function);

    std::set<std::string> called;
    for (const Scenario scenario : {Scenario::Served, Scenario::WithoutNib, Scenario::NotServed}) {
        prepare(scenario);
        const Transcript transcript = perform(scenario);
        EXPECT_EQ(transcript.log, logOf(scenario));
        EXPECT_EQ(transcript.queried, S_OK);
        EXPECT_EQ(transcript.record.chosenLanguage, scenario == Scenario::Served ? 3 : UNTOUCHED);
        EXPECT_EQ(LeftBehind(), scenario == Scenario::NotServed ? "" : "bundle1\nauthorization1\n");
        for (const std::string& line : linesOf(Log()))
            called.insert(functionOf(line));
    }
    called.erase("handler");  // the external's own
    EXPECT_EQ(called, covered);
}

}  // namespace
