#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"

#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxDouble.h"

namespace {

using ToolboxDouble::EVERY_CALL;

const char NO_NIB[] = "Can't find Nib Reference";
const char NO_WINDOW[] = "Can't create windows from Nib";
const char NO_HANDLER[] = "Can't install window event handler";
const char NO_LOOP[] = "Can't run modal loop for window";

const UInt16 ITALIAN = 3;
const UInt16 JAPANESE = 11;

const char GATE_LOG[] = R"(GetResource('CALL', 1000) = handle1
HLock(handle1)
BlockMoveData(handle1 + 401, 1) -> 80
BitTst(80, 0) = 1
HUnlock(handle1)
ReleaseResource(handle1)
FSFindFolder(-32767, 'fram', 1) = 0 -> folder1
CFURLCreateFromFSRef(system default, folder1) = url1
CFURLCreateCopyAppendingPathComponent(system default, url1, "Security.framework", 0) = url2
CFBundleCreate(system default, url2) = bundle1
CFBundleLoadExecutable(bundle1) = 1
CFRelease(url2)
CFRelease(url1)
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCreate") = given
AuthorizationCreate(null, null, 0) = 0 -> authorization1
CFBundleGetFunctionPointerForName(bundle1, "AuthorizationCopyRights") = given
AuthorizationCopyRights(authorization1, {"system.privilege.admin" 0 null 0}, null, 0, null) = 0
)";

const char DIALOG_LOG[] = R"(CreateNibReference("LanguageSelector") = 0 -> nib1
CreateWindowFromNib(nib1, "Language_Selector") = 0 -> window1
DisposeNibReference(nib1)
GetControlByID(window1, 'lsel', 1) = 0 -> popup1
SetControl32BitValue(popup1, 2)
NewEventHandlerUPP(given) = upp1
GetWindowEventTarget(window1) = target1
InstallEventHandler(target1, upp1, 1, {'cmds' 1}, given, null) = 0
ShowWindow(window1)
RunAppModalLoopForWindow(window1) = 0
  handler('cmds', 1, 'ok  ', given) = 0
    GetEventClass(event1) = 'cmds'
    GetEventKind(event1) = 1
    GetEventParameter(event1, '----', 'hcmd', null, 14, null) = 0
    GetControlByID(window1, 'lsel', 1) = 0 -> popup1
    GetControl32BitValue(popup1) = 5
    QuitAppModalLoopForWindow(window1) = 0
HideWindow(window1)
DisposeWindow(window1)
DisposeEventHandlerUPP(upp1)
)";

const char BLANK_BOX_LOG[] =
    "StandardAlert(1, null, null, {movable 1, help 0, filter null, default -1, cancel null, other null, default button "
    "1, cancel button 0, position 0}) = 0 -> 1\n";

// `known`, which the header names, and what else a status of 32 bits may be: positive, or without its low half.
std::vector<long> statuses(std::vector<long> known)
{
    for (const long odd : {1L, 0x7FFFL, 0x10000L, -0x10000L, 0x7FFFFFFFL, -0x7FFFFFFFL - 1})
        known.push_back(odd);
    return known;
}

// clang-format off
std::vector<Failure> makeFailures()
{
    const std::vector<long> AUTHORIZATION_ERRORS = {-60001, -60002, -60003, -60004, -60005, -60006, -60007, -60008, -60011};
    const std::vector<long> CONTROL_ERRORS = statuses({-30596 /* errItemNotControl */, errUnknownControl, errInvalidWindowRef, paramErr});
    const std::vector<long> PARAMETER_ERRORS = statuses({eventParameterNotFoundErr, paramErr});
    const std::vector<long> QUIT_ERRORS = statuses({windowNoAppModalStateErr, errInvalidWindowRef});
    const Scenario SERVED = Scenario::Served;
    const Scenario NO_DIALOG = Scenario::WithoutNib;
    const bool STOPS = true;
    const bool GOES_ON = false;
    const std::string BLANK_BOX = BLANK_BOX_LOG;
    // What a call that has asked for the right keeps, whatever becomes of the dialog, and what a failed dialog leaves.
    const std::string GATE = "bundle1\nauthorization1\n";
    const std::string HIDDEN = GATE + "window1 hidden\nupp1\n";
    const std::string SHOWN = GATE + "window1 shown\nupp1\nhandler1\n";
    return {
    // The instance.
    {"QueriedUUID", SERVED, "CFUUIDCreateFromUUIDBytes", 1, {0}, "CFUUID.h: null without memory",
        "", GOES_ON, "nothing", ITALIAN, GATE},
    {"InstancesBlock", SERVED, "DisposePtr", 1, {-111}, "MacMemory.h; -111 is memWZErr",
        "", GOES_ON, "nothing", ITALIAN, "block1\n" + GATE},

    // The administrator's right: a failure stops in silence, unless it only means that the right is not demanded.
    {"Flag", SERVED, "GetResource", 1, {0}, "Resources.h: null when it is not found",
        "CreateNibReference(", GOES_ON, "nothing", ITALIAN, ""},
    {"FlagsLock", SERVED, "HLock", 1, {-109, -111}, "MacMemory.h; -109 is nilHandleErr, -111 memWZErr",
        "", GOES_ON, "nothing", ITALIAN, GATE},
    {"FlagsUnlock", SERVED, "HUnlock", 1, {-109, -111}, "MacMemory.h; -109 is nilHandleErr, -111 memWZErr",
        "ReleaseResource(handle1)\n", GOES_ON, "nothing", ITALIAN, GATE},
    {"FlagsRelease", SERVED, "ReleaseResource", 1, {resNotFound}, "Resources.h",
        "FSFindFolder(", GOES_ON, "nothing", ITALIAN, "handle1\n" + GATE},
    {"FrameworksFolder", SERVED, "FSFindFolder", 1,
        {fnfErr, nsvErr, -120, -5000, invalidFolderTypeErr, paramErr, -1, 1, 0x7FFF, -0x8000}, "Folders.h; -120 is dirNFErr, -5000 afpAccessDenied",
        "", STOPS, "nothing", UNTOUCHED, ""},
    {"FrameworksURL", SERVED, "CFURLCreateFromFSRef", 1, {0}, "CFURL.h: null for a bad reference",
        "", STOPS, "nothing", UNTOUCHED, ""},
    {"SecurityURL", SERVED, "CFURLCreateCopyAppendingPathComponent", 1, {0}, "CFURL.h: null for a URL without a path",
        "CFRelease(url1)\n", STOPS, "nothing", UNTOUCHED, ""},
    {"SecurityBundle", SERVED, "CFBundleCreate", 1, {0}, "CFBundle.h: null when there is no such folder",
        "CFRelease(url2)\nCFRelease(url1)\n", STOPS, "nothing", UNTOUCHED, ""},
    {"SecurityCode", SERVED, "CFBundleLoadExecutable", 1, {0}, "CFBundle.h: false when there is none to load",
        "CFRelease(bundle1)\nCFRelease(url2)\nCFRelease(url1)\n", STOPS, "nothing", UNTOUCHED, ""},
    {"CreateFunction", SERVED, "CFBundleGetFunctionPointerForName", 1, {0}, "CFBundle.h: null when there is none",
        "", STOPS, "nothing", UNTOUCHED, "bundle1\n"},
    // The second function is looked up even so.
    {"Authorization", SERVED, "AuthorizationCreate", 1, AUTHORIZATION_ERRORS, "Authorization.h: errAuthorization...",
        "CFBundleGetFunctionPointerForName(bundle1, \"AuthorizationCopyRights\") = given\n", STOPS, "nothing", UNTOUCHED, "bundle1\n"},
    {"CopyRightsFunction", SERVED, "CFBundleGetFunctionPointerForName", 2, {0}, "CFBundle.h: null when there is none",
        "", STOPS, "nothing", UNTOUCHED, GATE},
    {"Right", SERVED, "AuthorizationCopyRights", 1, AUTHORIZATION_ERRORS, "Authorization.h: errAuthorization...",
        "", STOPS, "nothing", UNTOUCHED, GATE},

    // The dialog.
    {"Nib", SERVED, "CreateNibReference", 1, statuses({kIBCarbonRuntimeCantFindNibFile, paramErr, memFullErr}), "IBCarbonRuntime.h, MacErrors.h",
        "", STOPS, NO_NIB, UNTOUCHED, GATE},
    {"Window", SERVED, "CreateWindowFromNib", 1,
        statuses({kIBCarbonRuntimeCantFindObject, kIBCarbonRuntimeObjectNotOfRequestedType, paramErr, memFullErr, noErr}), "IBCarbonRuntime.h, MacErrors.h; noErr for no window",
        "", STOPS, NO_WINDOW, UNTOUCHED, GATE + "nib1\n"},
    {"PopUpBefore", SERVED, "GetControlByID", 1, CONTROL_ERRORS, "Controls.h",
        "SetControl32BitValue(null, 2)\n", GOES_ON, "nothing", ITALIAN, GATE},
    {"ProcedurePointer", SERVED, "NewEventHandlerUPP", 1, {0}, "CarbonEvents.h: null without memory",
        "GetWindowEventTarget(window1) = target1\nInstallEventHandler(target1, null, 1, {'cmds' 1}, given, null) = -50\n", STOPS, NO_HANDLER, UNTOUCHED, GATE + "window1 hidden\n"},
    {"Target", SERVED, "GetWindowEventTarget", 1, {0}, "CarbonEvents.h: null for no window",
        "InstallEventHandler(null, upp1, 1, {'cmds' 1}, given, null) = -50\n", STOPS, NO_HANDLER, UNTOUCHED, HIDDEN},
    {"Handler", SERVED, "InstallEventHandler", 1, statuses({eventHandlerAlreadyInstalledErr, eventInternalErr, paramErr, memFullErr}), "CarbonEvents.h, MacErrors.h",
        "", STOPS, NO_HANDLER, UNTOUCHED, HIDDEN},
    {"Loop", SERVED, "RunAppModalLoopForWindow", 1,
        statuses({errInvalidWindowRef, windowAppModalStateAlreadyExistsErr, eventInternalErr, paramErr}), "CarbonEvents.h, MacErrors.h",
        "", STOPS, NO_LOOP, UNTOUCHED, SHOWN},

    // Its handler. The person presses OK once more when nothing has come of it; the loop fails when nothing comes of that.
    {"CommandOnce", SERVED, "GetEventParameter", 1, PARAMETER_ERRORS, "CarbonEvents.h, MacErrors.h",
        "  handler('cmds', 1, 'ok  ', given)\n", GOES_ON, "nothing", ITALIAN, GATE},
    {"Command", SERVED, "GetEventParameter", EVERY_CALL, PARAMETER_ERRORS, "CarbonEvents.h, MacErrors.h",
        "  handler('cmds', 1, 'ok  ', given)\n", GOES_ON, NO_LOOP, UNTOUCHED, SHOWN},
    {"PopUpAfter", SERVED, "GetControlByID", 2, CONTROL_ERRORS, "Controls.h",
        "    GetControl32BitValue(null) = 0\n    QuitAppModalLoopForWindow(window1) = 0\nHideWindow(window1)\n", GOES_ON, "nothing", JAPANESE, GATE},
    {"PopUpAtAnyTime", SERVED, "GetControlByID", EVERY_CALL, CONTROL_ERRORS, "Controls.h",
        "SetControl32BitValue(null, 2)\n", GOES_ON, "nothing", JAPANESE, GATE},
    {"Value", SERVED, "GetControl32BitValue", 1, {0}, "Controls.h: 0 for no control",
        "    QuitAppModalLoopForWindow(window1) = 0\nHideWindow(window1)\n", GOES_ON, "nothing", JAPANESE, GATE},
    {"QuitOnce", SERVED, "QuitAppModalLoopForWindow", 1, QUIT_ERRORS, "CarbonEvents.h, MacErrors.h",
        "  handler('cmds', 1, 'ok  ', given)\n", GOES_ON, "nothing", ITALIAN, GATE},
    {"Quit", SERVED, "QuitAppModalLoopForWindow", EVERY_CALL, QUIT_ERRORS, "CarbonEvents.h, MacErrors.h",
        "  handler('cmds', 1, 'ok  ', given)\n", GOES_ON, NO_LOOP, UNTOUCHED, SHOWN},

    // The alerts themselves.
    {"BoxesString", NO_DIALOG, "CFStringCreateWithCString", 1, {0}, "CFString.h: null for a text that is invalid",
        "CFStringGetPascalStringPtr(null, 0) = null\n" + BLANK_BOX, STOPS, "nothing", UNTOUCHED, GATE},
    {"BoxesPascalString", NO_DIALOG, "CFStringGetPascalStringPtr", 1, {0}, "CFString.h: null at any time",
        BLANK_BOX + "CFRelease(string1)\n", STOPS, "nothing", UNTOUCHED, GATE},
    {"Box", NO_DIALOG, "StandardAlert", 1, {paramErr, memFullErr, resNotFound, 1, 0x7FFF}, "Dialogs.h, MacErrors.h",
        "CFRelease(string1)\n", STOPS, "nothing", UNTOUCHED, GATE},
    {"InstallersAlert", Scenario::NotServed, "StopAlert", 1, {-1}, "Dialogs.h: -1 when there is no such alert",
        "", STOPS, "nothing", UNTOUCHED, ""},
    };
}
// clang-format on

}  // namespace

const std::vector<Failure>& failures()
{
    static const std::vector<Failure> all = makeFailures();
    return all;
}

bool hasBox(const Failure& failure)
{
    return failure.scenario == Scenario::Served && failure.seen != std::string("nothing");
}

std::string boxLog(const std::string& text)
{
    const std::string quoted = '"' + text + '"';
    const std::string alert = BLANK_BOX_LOG;
    return "CFStringCreateWithCString(null, " + quoted + ", 0) = string1\nCFStringGetPascalStringPtr(string1, 0) = "
        + quoted + "\nStandardAlert(1, " + quoted + alert.substr(alert.find(", null, {")) + "CFRelease(string1)\n";
}

std::string logOf(Scenario scenario)
{
    switch (scenario) {
    case Scenario::Served:
        return std::string(GATE_LOG) + DIALOG_LOG;
    case Scenario::WithoutNib:
        return std::string(GATE_LOG) + "CreateNibReference(\"LanguageSelector\") = -10960\n" + boxLog(NO_NIB);
    case Scenario::NotServed:
        break;
    }
    return "StopAlert(5000, null) = 1\n";
}

void prepare(Scenario scenario)
{
    ToolboxDouble::Reset();
    std::vector<UInt8> flags(402, 0x7F);
    flags[401] = 0x80;
    ToolboxDouble::ProvideResource('CALL', 1000, flags);
    // Pressed twice, in case that the first time comes to nothing.
    ToolboxDouble::InModalLoop(
        {ToolboxDouble::Act::Choose(5), ToolboxDouble::Act::Command('ok  '), ToolboxDouble::Act::Command('ok  ')});
    if (scenario == Scenario::WithoutNib)
        ToolboxDouble::FailCall("CreateNibReference", kIBCarbonRuntimeCantFindNibFile);
}

void prepare(const Failure& failure, long result)
{
    prepare(failure.scenario);
    ToolboxDouble::FailCall(failure.function, result, failure.occurrence);
}

ExternParmBlock recordFor(Scenario scenario)
{
    ExternParmBlock record = recordWith(scenario == Scenario::NotServed ? 999 : 1000, JAPANESE);
    record.chosenLanguage = UNTOUCHED;
    record.resultFlags = 0x80000000;
    return record;
}
