// The external as its installer calls it, from the factory to the last release, with each call that it makes of the
// platform failing in each way that the platform has.

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"
#include "tests/support/RecordDifferences.h"

namespace {

using ToolboxDouble::Choose;
using ToolboxDouble::Command;
using ToolboxDouble::EVERY_CALL;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

const CFUUIDBytes EXTERNAL_INTERFACE = {
    0x00, 0xD5, 0xFB, 0xFE, 0x3D, 0x3D, 0x40, 0xE2, 0x9D, 0xCB, 0x92, 0xED, 0x69, 0x58, 0x34, 0xF8};

const UInt16 UNTOUCHED = 0xBEEF;
const UInt16 ITALIAN = 3;    // what the person chooses
const UInt16 JAPANESE = 11;  // the current language

// ---- The scenarios

enum class Scenario {
    Served,      // the right is demanded and granted, the person chooses Italian and presses OK
    WithoutNib,  // the same, but there is no nib to draw the dialog
    NotServed,   // the message is another one
};

void prepare(Scenario scenario)
{
    ToolboxDouble::Reset();
    ToolboxDouble::ProvideResource('CALL', 1000, std::vector<UInt8>(402, 0xFF));
    // Pressed twice, in case that the first time comes to nothing.
    ToolboxDouble::InModalLoop({Choose(5), Command(kHICommandOK), Command(kHICommandOK)});
    if (scenario == Scenario::WithoutNib)
        ToolboxDouble::FailCall("CreateNibReference", kIBCarbonRuntimeCantFindNibFile);
}

struct Outcome {
    HRESULT queried;
    ExternParmBlock record;
};

ExternParmBlock recordFor(Scenario scenario)
{
    ExternParmBlock record = recordWith(scenario == Scenario::NotServed ? 999 : 1000, JAPANESE);
    record.chosenLanguage = UNTOUCHED;
    record.resultFlags = 0x80000000;
    return record;
}

// All that an installer does with the external.
Outcome perform(Scenario scenario)
{
    Outcome outcome = {S_OK, recordFor(scenario)};
    const CFUUIDRef type = CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
    XcodInstance* const instance = static_cast<XcodInstance*>(MyFactory(nullptr, type));

    LPVOID queried = nullptr;
    outcome.queried = instance->functions->QueryInterface(instance, EXTERNAL_INTERFACE, &queried);
    instance->functions->XCodMain(&outcome.record);
    if (queried != nullptr)
        instance->functions->Release(queried);
    instance->functions->Release(instance);
    return outcome;
}

// ---- What the log tells

std::vector<std::string> logLines()
{
    std::istringstream log(Log());
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);)
        lines.push_back(line.substr(line.find_first_not_of(' ')));
    return lines;
}

std::string functionOf(const std::string& line)
{
    return line.substr(0, line.find('('));
}

int countCalls(const std::string& function)
{
    int count = 0;
    for (const std::string& line : logLines())
        count += functionOf(line) == function ? 1 : 0;
    return count;
}

// What the person has seen: the text of the message box, "blank" for one without, "5000" for the installer's alert;
// "nothing" otherwise.
std::string seen()
{
    const std::string box = "StandardAlert(1, ";
    const std::string shown = " = 0 -> 1";
    std::string all;
    for (const std::string& line : logLines()) {
        if (line == "StopAlert(5000, null) = 1")
            all += "5000";
        if (functionOf(line) != "StandardAlert" || line.substr(line.size() - shown.size()) != shown)
            continue;
        const std::string text = line.substr(box.size(), line.find(", null, {") - box.size());
        all += text == "null" ? "blank" : text.substr(1, text.size() - 2);
    }
    return all.empty() ? "nothing" : all;
}

// ---- The failures

struct Failure {
    const char* name;
    Scenario scenario;
    const char* function;
    int occurrence;
    std::vector<long> results;  // each of which is tried; 0 for null, false, or nothing done
    const char* source;         // that says so: the platform's header
    const char* seen;
    UInt16 chosen;
    std::string leftBehind;
};

const char NO_NIB[] = "Can't find Nib Reference";
const char NO_WINDOW[] = "Can't create windows from Nib";
const char NO_HANDLER[] = "Can't install window event handler";
const char NO_LOOP[] = "Can't run modal loop for window";

// What a call that has asked for the right keeps, whatever becomes of the dialog.
const std::string GATE = "bundle1\nauthorization1\n";

// clang-format off
const Failure FAILURES[] = {
    // The instance.
    {"QueriedUUID",        Scenario::Served, "CFUUIDCreateFromUUIDBytes", 1, {0},
        "CFUUID.h: null without memory",                          "nothing",  ITALIAN,   GATE},
    {"InstancesBlock",     Scenario::Served, "DisposePtr", 1, {memWZErr},
        "MacMemory.h: MemError",                                  "nothing",  ITALIAN,   "block1\n" + GATE},

    // The administrator's right: a failure stops in silence, unless it only means that the right is not demanded.
    {"Flag",               Scenario::Served, "GetResource", 1, {0},
        "Resources.h: null, ResError resNotFound or noErr",       "nothing",  ITALIAN,   ""},
    {"FlagsLock",          Scenario::Served, "HLock", 1, {nilHandleErr, memWZErr},
        "MacMemory.h: MemError",                                  "nothing",  ITALIAN,   GATE},
    {"FlagsUnlock",        Scenario::Served, "HUnlock", 1, {nilHandleErr, memWZErr},
        "MacMemory.h: MemError",                                  "nothing",  ITALIAN,   GATE},
    {"FlagsRelease",       Scenario::Served, "ReleaseResource", 1, {resNotFound},
        "Resources.h: ResError",                                  "nothing",  ITALIAN,   "handle1\n" + GATE},
    {"FrameworksFolder",   Scenario::Served, "FSFindFolder", 1,
        {fnfErr, nsvErr, -120, invalidFolderTypeErr, -5000, paramErr},
        "Folders.h; -120 is dirNFErr, -5000 afpAccessDenied",                                          "nothing",  UNTOUCHED, ""},
    {"FrameworksURL",      Scenario::Served, "CFURLCreateFromFSRef", 1, {0},
        "CFURL.h: null for a bad reference",                      "nothing",  UNTOUCHED, ""},
    {"SecurityURL",        Scenario::Served, "CFURLCreateCopyAppendingPathComponent", 1, {0},
        "CFURL.h: null for a URL without a path",                 "nothing",  UNTOUCHED, ""},
    {"SecurityBundle",     Scenario::Served, "CFBundleCreate", 1, {0},
        "CFBundle.h: null when there is no such folder",          "nothing",  UNTOUCHED, ""},
    {"SecurityCode",       Scenario::Served, "CFBundleLoadExecutable", 1, {0},
        "CFBundle.h: false when there is none to load",           "nothing",  UNTOUCHED, ""},
    {"CreateFunction",     Scenario::Served, "CFBundleGetFunctionPointerForName", 1, {0},
        "CFBundle.h: null when there is none",                    "nothing",  UNTOUCHED, "bundle1\n"},
    {"CopyRightsFunction", Scenario::Served, "CFBundleGetFunctionPointerForName", 2, {0},
        "CFBundle.h: null when there is none",                    "nothing",  UNTOUCHED, GATE},
    {"Authorization",      Scenario::Served, "AuthorizationCreate", 1,
        {-60001, -60002, -60003, -60004, -60005, -60006, -60007, -60008, -60011},
        "Authorization.h: errAuthorization...",                   "nothing",  UNTOUCHED, "bundle1\n"},
    {"Right",              Scenario::Served, "AuthorizationCopyRights", 1,
        {-60001, -60002, -60003, -60004, -60005, -60006, -60007, -60008, -60011},
        "Authorization.h: errAuthorization...",                   "nothing",  UNTOUCHED, GATE},

    // The dialog.
    {"Nib",                Scenario::Served, "CreateNibReference", 1, {kIBCarbonRuntimeCantFindNibFile, paramErr, memFullErr},
        "IBCarbonRuntime.h, MacErrors.h",                         NO_NIB,     UNTOUCHED, GATE},
    {"Window",             Scenario::Served, "CreateWindowFromNib", 1,
        {kIBCarbonRuntimeCantFindObject, kIBCarbonRuntimeObjectNotOfRequestedType, paramErr, memFullErr, noErr},
        "IBCarbonRuntime.h, MacErrors.h; noErr for no window",    NO_WINDOW,  UNTOUCHED, GATE + "nib1\n"},
    {"PopUpBefore",        Scenario::Served, "GetControlByID", 1,
        {-30596, errUnknownControl, errInvalidWindowRef, paramErr},
        "Controls.h; -30596 is errItemNotControl",                               "nothing",  ITALIAN,   GATE},
    {"PopUpAfter",         Scenario::Served, "GetControlByID", 2,
        {-30596, errUnknownControl, errInvalidWindowRef, paramErr},
        "Controls.h; -30596 is errItemNotControl",                               "nothing",  JAPANESE,  GATE},
    {"ProcedurePointer",   Scenario::Served, "NewEventHandlerUPP", 1, {0},
        "CarbonEvents.h: null without memory",                    NO_HANDLER, UNTOUCHED, GATE + "window1 hidden\n"},
    {"Target",             Scenario::Served, "GetWindowEventTarget", 1, {0},
        "CarbonEvents.h: null for no window",                     NO_HANDLER, UNTOUCHED, GATE + "window1 hidden\nupp1\n"},
    {"Handler",            Scenario::Served, "InstallEventHandler", 1,
        {eventHandlerAlreadyInstalledErr, eventInternalErr, paramErr, memFullErr},
        "CarbonEvents.h, MacErrors.h",                            NO_HANDLER, UNTOUCHED, GATE + "window1 hidden\nupp1\n"},
    {"Loop",               Scenario::Served, "RunAppModalLoopForWindow", 1,
        {errInvalidWindowRef, windowAppModalStateAlreadyExistsErr, eventInternalErr, paramErr},
        "CarbonEvents.h, MacErrors.h",                            NO_LOOP,    UNTOUCHED, GATE + "window1 shown\nupp1\nhandler1\n"},
    {"CommandOnce",        Scenario::Served, "GetEventParameter", 1, {eventParameterNotFoundErr, paramErr},
        "CarbonEvents.h, MacErrors.h",                            "nothing",  ITALIAN,   GATE},
    {"Command",            Scenario::Served, "GetEventParameter", EVERY_CALL, {eventParameterNotFoundErr, paramErr},
        "CarbonEvents.h, MacErrors.h",                            NO_LOOP,    UNTOUCHED, GATE + "window1 shown\nupp1\nhandler1\n"},
    {"Value",              Scenario::Served, "GetControl32BitValue", 1, {0},
        "Controls.h: 0 for no control",                           "nothing",  JAPANESE,  GATE},
    {"QuitOnce",           Scenario::Served, "QuitAppModalLoopForWindow", 1, {windowNoAppModalStateErr, errInvalidWindowRef},
        "CarbonEvents.h, MacErrors.h",                            "nothing",  ITALIAN,   GATE},
    {"Quit",               Scenario::Served, "QuitAppModalLoopForWindow", EVERY_CALL, {windowNoAppModalStateErr, errInvalidWindowRef},
        "CarbonEvents.h, MacErrors.h",                            NO_LOOP,    UNTOUCHED, GATE + "window1 shown\nupp1\nhandler1\n"},

    // The alerts themselves.
    {"BoxesString",        Scenario::WithoutNib, "CFStringCreateWithCString", 1, {0},
        "CFString.h: null for a text that is invalid",            "blank",    UNTOUCHED, GATE},
    {"BoxesPascalString",  Scenario::WithoutNib, "CFStringGetPascalStringPtr", 1, {0},
        "CFString.h: null at any time",                           "blank",    UNTOUCHED, GATE},
    {"Box",                Scenario::WithoutNib, "StandardAlert", 1, {paramErr, memFullErr, resNotFound},
        "Dialogs.h, MacErrors.h",                                 "nothing",  UNTOUCHED, GATE},
    {"InstallersAlert",    Scenario::NotServed, "StopAlert", 1, {-1},
        "Dialogs.h: -1 when there is no such alert",              "nothing",  UNTOUCHED, ""},
};
// clang-format on

class PlatformFailure : public testing::TestWithParam<Failure> { };

TEST_P(PlatformFailure, ShowsChangesAndLeavesWhatItShould)
{
    for (const long result : GetParam().results) {
        SCOPED_TRACE(
            std::string(GetParam().function) + " gives " + std::to_string(result) + ", after " + GetParam().source);
        prepare(GetParam().scenario);
        ToolboxDouble::FailCall(GetParam().function, result, GetParam().occurrence);
        ExternParmBlock expected = recordFor(GetParam().scenario);
        expected.chosenLanguage = GetParam().chosen;
        if (GetParam().scenario == Scenario::NotServed)
            expected.resultFlags = 0x80000001;

        const Outcome outcome = perform(GetParam().scenario);
        EXPECT_GE(countCalls(GetParam().function), std::max(GetParam().occurrence, 1)) << "nothing failed:\n" << Log();
        EXPECT_EQ(seen(), GetParam().seen) << Log();
        EXPECT_EQ(recordDifferences(bytesOf(outcome.record), bytesOf(expected)), "");
        EXPECT_EQ(LeftBehind(), GetParam().leftBehind);
        EXPECT_EQ(outcome.queried, std::string(GetParam().name) == "QueriedUUID" ? E_NOINTERFACE : S_OK);
        // What failed has put a wrong reference where the right one was to be.
        EXPECT_EQ(Log().find("unknown"), std::string::npos) << Log();
        EXPECT_EQ(Log().find("dead "), std::string::npos) << Log();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PlatformFailure, testing::ValuesIn(FAILURES), [](const auto& row) { return row.param.name; });

// ---- That none is missing

// They have neither a result that tells of a failure nor an error that can be asked for.
const char* const CANNOT_FAIL[] = {
    "BitTst",
    "BlockMoveData",
    "CFEqual",
    "CFRelease",
    "CFUUIDGetConstantUUIDWithBytes",
    "DisposeEventHandlerUPP",
    "DisposeNibReference",
    "DisposeWindow",
    "GetEventClass",
    "GetEventKind",
    "HideWindow",
    "SetControl32BitValue",
    "ShowWindow",
};

// The factory does not look whether there was memory: what it then does is undefined.
const char NOT_LOOKED_AT[] = "NewPtr";

TEST(PlatformFailures, CoverEveryCallThatIsMade)
{
    std::set<std::string> covered(std::begin(CANNOT_FAIL), std::end(CANNOT_FAIL));
    covered.insert(NOT_LOOKED_AT);
    for (const Failure& failure : FAILURES)
        covered.insert(failure.function);

    std::set<std::string> called;
    for (const Scenario scenario : {Scenario::Served, Scenario::WithoutNib, Scenario::NotServed}) {
        prepare(scenario);
        perform(scenario);
        for (const std::string& line : logLines())
            called.insert(functionOf(line));
    }
    called.erase("handler");  // the external's own
    EXPECT_EQ(called, covered);
}

TEST(PlatformFailures, AreAllThatIsWrongInTheirRuns)
{
    prepare(Scenario::Served);
    const Outcome outcome = perform(Scenario::Served);
    EXPECT_EQ(seen(), "nothing");
    EXPECT_EQ(outcome.record.chosenLanguage, ITALIAN);
    EXPECT_EQ(outcome.queried, S_OK);
    EXPECT_EQ(LeftBehind(), GATE);

    prepare(Scenario::WithoutNib);
    perform(Scenario::WithoutNib);
    EXPECT_EQ(seen(), NO_NIB);

    prepare(Scenario::NotServed);
    perform(Scenario::NotServed);
    EXPECT_EQ(seen(), "5000");
}

}  // namespace
