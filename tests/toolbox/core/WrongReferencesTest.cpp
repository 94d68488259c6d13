// Every public function that takes a reference, with references that are null, dead, foreign or of another kind: it
// answers as its header says, and nothing changes.

#include "tests/support/RowName.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/base/resources/ResourceFork.h"
#include "tests/toolbox/core/core_foundation/CoreFoundationTest.h"
#include "tests/toolbox/core/dialogs/TestWindow.h"
#include "tests/toolbox/core/nibs/SampleNib.h"

#include <Carbon/Carbon.h>
#include <Toolbox/Application.h>

#include <cstdint>
#include <cstring>
#include <optional>

namespace {

// ---- The kinds of reference

// A function may be right to take several kinds.
enum Kind : unsigned {
    NO_KIND = 0,  // dead, foreign or null
    WINDOW = 1 << 0,
    CONTROL = 1 << 1,
    TARGET = 1 << 2,
    NIB = 1 << 3,
    ALERT = 1 << 4,
    STRING = 1 << 5,
    URL = 1 << 6,
    UUID = 1 << 7,
    ARRAY = 1 << 8,
    BUNDLE = 1 << 9,
    POINTER = 1 << 10,
    RESOURCE = 1 << 11,
    TO_UNICODE = 1 << 12,
    TO_TEXT = 1 << 13,
    EVENT = NO_KIND,      // lives only while it is sent
    ALLOCATOR = NO_KIND,  // none is ever looked at
    ANY_OBJECT = STRING | URL | UUID | ARRAY | BUNDLE,
};

struct Reference {
    std::string name;
    unsigned kind;
    const void* value;
};

// A reference as each function takes it.
struct Any {
    template <typename T> operator T*() const { return static_cast<T*>(const_cast<void*>(value)); }

    const void* value;
};

// ---- One object of each kind

const CFUUIDBytes FACTORY_ID = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
const CFUUIDBytes TYPE_ID = {16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1};

const char INFO[] = R"(<plist version="1.0"><dict>
<key>CFPlugInFactories</key><dict><key>01020304-0506-0708-090A-0B0C0D0E0F10</key><string>Factory</string></dict>
<key>CFPlugInTypes</key><dict><key>100F0E0D-0C0B-0A09-0807-060504030201</key>
<array><string>01020304-0506-0708-090A-0B0C0D0E0F10</string></array></dict>
</dict></plist>)";

// Keeps the event that it is sent, which is dead afterwards.
OSStatus keepEvent(EventHandlerCallRef, EventRef event, void* userData)
{
    *static_cast<EventRef*>(userData) = event;
    return noErr;
}

class Objects {
public:
    // `salt` keeps two of these from sharing a UUID.
    explicit Objects(UInt8 salt)
    {
        m_folder.makeFolder("Resources/Sample.nib");
        m_folder.write("Resources/Sample.nib/objects.xib", nibOf(""));
        m_folder.write("Resources/Info.plist", INFO);
        becomeMainBundle();
        const Bytes fork = makeFork({{'DATA', 1, std::string(402, '\0')}}).bytes();
        FSRef reference;
        EXPECT_TRUE(CFURLGetFSRef(Owned(makeURL(m_folder.write("resources", fork))), &reference));
        EXPECT_EQ(FSOpenResourceFile(&reference, 0, nullptr, fsRdPerm, &m_file), noErr);

        CFUUIDBytes salted = FACTORY_ID;
        salted.byte0 = salt;
        uuid = CFUUIDCreateFromUUIDBytes(nullptr, salted);
        folder = makeURL(m_folder.path());
        bundle = CFBundleCreate(nullptr, folder);
        array = CFPlugInFindFactoriesForPlugInTypeInPlugIn(type, bundle);
        resource = GetResource('DATA', 1);
        EXPECT_EQ(CreateNibReference(CFSTR("Sample"), &nib), noErr);
        EXPECT_EQ(CreateStandardAlert(kAlertNoteAlert, string, nullptr, nullptr, &alert), noErr);
        EXPECT_EQ(CreateTextToUnicodeInfoByEncoding(kTextEncodingMacRoman, &toUnicode), noErr);
        EXPECT_EQ(CreateUnicodeToTextInfoByEncoding(kTextEncodingMacRoman, &toText), noErr);
        for (const Reference& each : references("new"))
            EXPECT_NE(each.value, nullptr) << each.name;
    }

    ~Objects()
    {
        CloseResFile(m_file);
        DisposeNibReference(nib);
        DisposePtr(pointer);
        SInt16 itemHit = 0;
        RunStandardAlert(alert, nullptr, &itemHit);
        for (const CFTypeRef each : {CFTypeRef(uuid), CFTypeRef(type), CFTypeRef(factory), CFTypeRef(string),
                 CFTypeRef(folder), CFTypeRef(array), CFTypeRef(bundle)})
            CFRelease(each);
    }

    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;

    void becomeMainBundle() const { EXPECT_TRUE(Toolbox::SetMainBundle(m_folder.path())); }

    std::vector<Reference> references(const std::string& state) const
    {
        return {
            {state + " window", WINDOW, window.ref},
            {state + " control", CONTROL, popUp},
            {state + " target", TARGET, window.target()},
            {state + " nib", NIB, nib},
            {state + " alert", ALERT, alert},
            {state + " string", STRING, string},
            {state + " url", URL, folder},
            {state + " uuid", UUID, uuid},
            {state + " array", ARRAY, array},
            {state + " bundle", BUNDLE, bundle},
            {state + " pointer", POINTER, pointer},
            {state + " resource", RESOURCE, resource},
            {state + " converter to UTF-16", TO_UNICODE, toUnicode},
            {state + " converter to text", TO_TEXT, toText},
        };
    }

    TestWindow window;
    const ControlRef popUp = window.addPopUp({{}, {}, {}}).ref();
    const CFStringRef string = CFStringCreateWithCString(nullptr, "text", kCFStringEncodingMacRoman);
    const CFUUIDRef type = CFUUIDCreateFromUUIDBytes(nullptr, TYPE_ID);
    const CFUUIDRef factory = CFUUIDCreateFromUUIDBytes(nullptr, FACTORY_ID);
    const Ptr pointer = NewPtr(8);
    IBNibRef nib = nullptr;
    DialogRef alert = nullptr;
    CFURLRef folder = nullptr;
    CFUUIDRef uuid = nullptr;
    CFArrayRef array = nullptr;
    CFBundleRef bundle = nullptr;
    Handle resource = nullptr;
    TextToUnicodeInfo toUnicode = nullptr;
    UnicodeToTextInfo toText = nullptr;

private:
    const TemporaryFolder m_folder;
    SInt16 m_file = 0;
};

const Objects* live = nullptr;  // those of the running test

// ---- The functions

struct Function {
    const char* name;  // and the parameter's, where there are several
    unsigned takes;    // the kinds that are right there
    std::function<long(Any)> call;
    long result = 0;
    std::optional<long> resultForNull = {};  // where it is another
};

// Whether there was an object, which is released.
bool made(CFTypeRef object)
{
    CFRelease(object);
    return object != nullptr;
}

// An out-parameter that a failure has cleared is 0.
template <typename Ref> long orOutParameter(OSStatus status, const Ref& outParameter)
{
    return outParameter == nullptr ? status : 1;
}

long controlIn(WindowRef window)
{
    const ControlID id = {0, 0};
    ControlRef control = live->popUp;
    return orOutParameter(GetControlByID(window, &id, &control), control);
}

long parameterOf(EventRef event)
{
    HICommand command = {};
    return GetEventParameter(event, '----', 'hcmd', nullptr, sizeof command, nullptr, &command);
}

long nibNamed(CFStringRef name)
{
    IBNibRef nib = live->nib;
    return orOutParameter(CreateNibReference(name, &nib), nib);
}

long windowFrom(IBNibRef nib, CFStringRef name)
{
    WindowRef window = live->window.ref;
    return orOutParameter(CreateWindowFromNib(nib, name, &window), window);
}

long runAlert(DialogRef alert)
{
    SInt16 itemHit = 0;
    return RunStandardAlert(alert, nullptr, &itemHit);
}

long alertOf(CFStringRef error, CFStringRef explanation, CFStringRef button)
{
    AlertStdCFStringAlertParamRec parameters = {};
    parameters.version = kStdCFStringAlertVersionOne;
    parameters.defaultText = button;
    parameters.defaultButton = kAlertStdAlertOKButton;
    DialogRef alert = live->alert;
    const OSStatus status = CreateStandardAlert(kAlertNoteAlert, error, explanation, &parameters, &alert);
    if (status == noErr)
        runAlert(alert);
    return orOutParameter(status, alert);
}

FSRef fileReferenceOf(const void* reference)
{
    FSRef file = {};
    std::memcpy(file.hidden, &reference, sizeof reference);
    return file;
}

long resourceFileAt(const void* reference)
{
    const FSRef file = fileReferenceOf(reference);
    SInt16 number = 0;
    return FSOpenResourceFile(&file, 0, nullptr, fsRdPerm, &number);
}

bool urlAt(const void* reference)
{
    const FSRef file = fileReferenceOf(reference);
    return made(CFURLCreateFromFSRef(nullptr, &file));
}

bool folderAt(CFAllocatorRef allocator)
{
    FSRef file;
    CFURLGetFSRef(live->folder, &file);
    return made(CFURLCreateFromFSRef(allocator, &file));
}

bool fileReferenceFrom(CFURLRef url)
{
    FSRef file;
    return CFURLGetFSRef(url, &file);
}

bool pathFrom(CFURLRef url)
{
    UInt8 path[1024];
    return CFURLGetFileSystemRepresentation(url, true, path, sizeof path);
}

long toUnicodeWith(TextToUnicodeInfo converter)
{
    ByteCount read = 0;
    ByteCount written = 0;
    UniChar units[4];
    return ConvertFromTextToUnicode(
        converter, 1, "a", 0, 0, nullptr, nullptr, nullptr, sizeof units, &read, &written, units);
}

const UniChar UNIT = 'a';
const UInt8 PATH[] = "/";

long toTextWith(UnicodeToTextInfo converter)
{
    ByteCount read = 0;
    ByteCount written = 0;
    char text[4];
    return ConvertFromUnicodeToText(
        converter, sizeof UNIT, &UNIT, 0, 0, nullptr, nullptr, nullptr, sizeof text, &read, &written, text);
}

// clang-format off
const Function FUNCTIONS[] = {
    // Windows, controls, events, nibs.
    {"ShowWindow", WINDOW, [](Any r) { ShowWindow(r); return 0; }},
    {"HideWindow", WINDOW, [](Any r) { HideWindow(r); return 0; }},
    {"DisposeWindow", WINDOW, [](Any r) { DisposeWindow(r); return 0; }},
    {"GetControlByID", WINDOW, controlIn, errInvalidWindowRef},
    {"GetWindowEventTarget", WINDOW, [](Any r) { return GetWindowEventTarget(r) != nullptr; }},
    {"RunAppModalLoopForWindow", WINDOW, [](Any r) { return RunAppModalLoopForWindow(r); }, errInvalidWindowRef},
    {"QuitAppModalLoopForWindow", WINDOW, [](Any r) { return QuitAppModalLoopForWindow(r); }, errInvalidWindowRef},
    {"GetControl32BitValue", CONTROL, [](Any r) { return GetControl32BitValue(r); }},
    {"SetControl32BitValue", CONTROL, [](Any r) { SetControl32BitValue(r, 3); return 0; }},
    {"InstallEventHandler", TARGET, [](Any r) { return InstallEventHandler(r, keepEvent, 1, COMMANDS, nullptr, nullptr); }, paramErr},
    {"GetEventClass", EVENT, [](Any r) { return GetEventClass(r); }},
    {"GetEventKind", EVENT, [](Any r) { return GetEventKind(r); }},
    {"GetEventParameter", EVENT, parameterOf, paramErr},
    {"CreateNibReference", STRING, nibNamed, paramErr},
    {"CreateWindowFromNib_nib", NIB, [](Any r) { return windowFrom(r, CFSTR("Window")); }, paramErr},
    {"CreateWindowFromNib_name", STRING, [](Any r) { return windowFrom(live->nib, r); }, paramErr},
    {"DisposeNibReference", NIB, [](Any r) { DisposeNibReference(r); return 0; }},

    // Alerts. Null is a text, or a button, that is not there: without the one button nothing would end the alert.
    {"CreateStandardAlert_error", STRING, [](Any r) { return alertOf(r, nullptr, live->string); }, paramErr, 1},
    {"CreateStandardAlert_explanation", STRING, [](Any r) { return alertOf(nullptr, r, live->string); }, paramErr, 1},
    {"CreateStandardAlert_button", STRING, [](Any r) { return alertOf(live->string, nullptr, r); }, paramErr},
    {"RunStandardAlert", ALERT, runAlert, paramErr},

    // Core Foundation.
    {"CFRelease", ANY_OBJECT, [](Any r) { CFRelease(r); return 0; }},
    {"CFEqual_first", STRING, [](Any r) { return CFEqual(r, live->string); }},
    {"CFEqual_second", STRING, [](Any r) { return CFEqual(live->string, r); }},
    {"CFEqual_both", ANY_OBJECT, [](Any r) { return CFEqual(r, r); }},
    {"CFArrayGetCount", ARRAY, [](Any r) { return CFArrayGetCount(r); }},
    {"CFArrayGetValueAtIndex", ARRAY, [](Any r) { return CFArrayGetValueAtIndex(r, 0) != nullptr; }},
    {"CFStringGetPascalStringPtr", STRING, [](Any r) { return CFStringGetPascalStringPtr(r, kCFStringEncodingMacRoman) != nullptr; }},
    {"CFURLGetFSRef", URL, fileReferenceFrom},
    {"CFURLGetFileSystemRepresentation", URL, pathFrom},
    {"CFURLCreateCopyAppendingPathComponent_url", URL, [](Any r) { return made(CFURLCreateCopyAppendingPathComponent(nullptr, r, live->string, false)); }},
    {"CFURLCreateCopyAppendingPathComponent_name", STRING, [](Any r) { return made(CFURLCreateCopyAppendingPathComponent(nullptr, live->folder, r, false)); }},
    {"CFURLCreateFromFSRef_file", NO_KIND, urlAt},

    // Allocators.
    {"CFStringCreateWithCString", ALLOCATOR, [](Any r) { return made(CFStringCreateWithCString(r, "a", kCFStringEncodingMacRoman)); }, 1},
    {"CFStringCreateWithCharacters", ALLOCATOR, [](Any r) { return made(CFStringCreateWithCharacters(r, &UNIT, 1)); }, 1},
    {"CFUUIDCreateFromUUIDBytes", ALLOCATOR, [](Any r) { return made(CFUUIDCreateFromUUIDBytes(r, FACTORY_ID)); }, 1},
    {"CFUUIDGetConstantUUIDWithBytes", ALLOCATOR, [](Any r) { return CFUUIDGetConstantUUIDWithBytes(r, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0) != nullptr; }, 1},
    {"CFURLCreateFromFSRef_allocator", ALLOCATOR, [](Any r) { return folderAt(r); }, 1},
    {"CFURLCreateFromFileSystemRepresentation", ALLOCATOR, [](Any r) { return made(CFURLCreateFromFileSystemRepresentation(r, PATH, 1, true)); }, 1},
    {"CFURLCreateCopyAppendingPathComponent_allocator", ALLOCATOR, [](Any r) { return made(CFURLCreateCopyAppendingPathComponent(r, live->folder, live->string, false)); }, 1},
    {"CFBundleCreate_allocator", ALLOCATOR, [](Any r) { return made(CFBundleCreate(r, live->folder)); }, 1},
    {"CFPlugInCreate_allocator", ALLOCATOR, [](Any r) { return made(CFPlugInCreate(r, live->folder)); }, 1},

    // Bundles and plug-ins. The sample bundle has no executable, so that nothing is ever loaded from it.
    {"CFBundleCreate", URL, [](Any r) { return made(CFBundleCreate(nullptr, r)); }},
    {"CFBundleLoadExecutable", BUNDLE, [](Any r) { return CFBundleLoadExecutable(r); }},
    {"CFBundleGetFunctionPointerForName_bundle", BUNDLE, [](Any r) { return CFBundleGetFunctionPointerForName(r, live->string) != nullptr; }},
    {"CFBundleGetFunctionPointerForName_name", STRING, [](Any r) { return CFBundleGetFunctionPointerForName(live->bundle, r) != nullptr; }},
    {"CFBundleCopyResourceURL_bundle", BUNDLE, [](Any r) { return made(CFBundleCopyResourceURL(r, CFSTR("Info"), CFSTR("plist"), nullptr)); }},
    {"CFBundleCopyResourceURL_name", STRING, [](Any r) { return made(CFBundleCopyResourceURL(live->bundle, r, CFSTR("plist"), nullptr)); }},
    {"CFBundleCopyResourceURL_type", STRING, [](Any r) { return made(CFBundleCopyResourceURL(live->bundle, CFSTR("Info.plist"), r, nullptr)); }, 0, 1},
    {"CFBundleCopyResourceURL_folder", STRING, [](Any r) { return made(CFBundleCopyResourceURL(live->bundle, CFSTR("Info"), CFSTR("plist"), r)); }, 0, 1},
    {"CFBundleCopyBuiltInPlugInsURL", BUNDLE, [](Any r) { return made(CFBundleCopyBuiltInPlugInsURL(r)); }},
    {"CFPlugInCreate", URL, [](Any r) { return made(CFPlugInCreate(nullptr, r)); }},
    {"CFPlugInFindFactoriesForPlugInTypeInPlugIn_type", UUID, [](Any r) { return made(CFPlugInFindFactoriesForPlugInTypeInPlugIn(r, live->bundle)); }},
    {"CFPlugInFindFactoriesForPlugInTypeInPlugIn_plugIn", BUNDLE, [](Any r) { return made(CFPlugInFindFactoriesForPlugInTypeInPlugIn(live->type, r)); }},
    {"CFPlugInInstanceCreate_allocator", ALLOCATOR, [](Any r) { return CFPlugInInstanceCreate(r, live->factory, live->type) != nullptr; }},
    {"CFPlugInInstanceCreate_factory", UUID, [](Any r) { return CFPlugInInstanceCreate(nullptr, r, live->type) != nullptr; }},
    {"CFPlugInInstanceCreate_type", UUID, [](Any r) { return CFPlugInInstanceCreate(nullptr, live->factory, r) != nullptr; }},
    {"CFPlugInRemoveInstanceForFactory", UUID, [](Any r) { CFPlugInRemoveInstanceForFactory(r); return 0; }},

    // Memory and resources.
    {"DisposePtr", POINTER, [](Any r) { DisposePtr(r); return 0; }},
    {"GetHandleSize", RESOURCE, [](Any r) { return GetHandleSize(r); }},
    {"HLock", RESOURCE, [](Any r) { HLock(r); return 0; }},
    {"HUnlock", RESOURCE, [](Any r) { HUnlock(r); return 0; }},
    {"ReleaseResource", RESOURCE, [](Any r) { ReleaseResource(r); return 0; }},
    {"ChangedResource", RESOURCE, [](Any r) { ChangedResource(r); return 0; }},
    {"FSOpenResourceFile", NO_KIND, resourceFileAt, errFSBadFSRef},

    // Text encodings.
    {"ConvertFromTextToUnicode", TO_UNICODE, toUnicodeWith, kTECCorruptConverterErr, paramErr},
    {"ConvertFromUnicodeToText", TO_TEXT, toTextWith, kTECCorruptConverterErr, paramErr},
};
// clang-format on

// ---- The test

class WrongReferences : public testing::TestWithParam<Function> {
protected:
    WrongReferences()
        : m_live(std::make_unique<Objects>(UInt8(1)))
    {
        Toolbox::UseUnattendedDisplay({});
        live = m_live.get();
        m_wrong = m_live->references("live");
        addDead();
        addForeign();
    }

    ~WrongReferences() override
    {
        live = nullptr;
        Toolbox::SetMainBundle("/");  // or the sample bundle would keep its factory from the next test's
    }

    const std::vector<Reference>& wrong() const { return m_wrong; }

private:
    void addDead()
    {
        EventRef event = nullptr;
        const Objects dead(2);
        InstallEventHandler(dead.window.target(), keepEvent, 1, COMMANDS, &event, nullptr);
        m_live->becomeMainBundle();  // or the dead one's folder would be kept
        runWhile(dead.window.ref, [&dead] { Toolbox::sendWindowCommand(dead.window.window(), kHICommandOK); });
        EXPECT_NE(event, nullptr);
        for (Reference each : dead.references("dead")) {
            each.kind = each.kind & (TO_UNICODE | TO_TEXT);  // converters do not die
            m_wrong.push_back(each);
        }
        m_wrong.push_back({"dead event", NO_KIND, event});
    }

    void addForeign()
    {
        static int variable = 0;
        for (const std::uintptr_t address : {std::uintptr_t(1), std::uintptr_t(8), ~std::uintptr_t(15)})
            m_wrong.push_back({"address " + std::to_string(address), NO_KIND, reinterpret_cast<const void*>(address)});
        m_wrong.push_back({"a variable", NO_KIND, &variable});
        m_wrong.push_back({"a function", NO_KIND, reinterpret_cast<const void*>(&keepEvent)});
        m_wrong.push_back({"an object of the test", NO_KIND, this});
    }

    std::unique_ptr<Objects> m_live;
    std::vector<Reference> m_wrong;
};

TEST_P(WrongReferences, AreRefusedAndChangeNothing)
{
    const Function& function = GetParam();
    const std::map<std::string, std::size_t> before = liveObjects();
    EXPECT_EQ(function.call({nullptr}), function.resultForNull.value_or(function.result)) << "null";
    EXPECT_EQ(liveObjects(), before) << "null";
    for (const Reference& each : wrong()) {
        if ((each.kind & function.takes) != 0)
            continue;
        EXPECT_EQ(function.call({each.value}), function.result) << each.name;
        EXPECT_EQ(liveObjects(), before) << each.name;
    }
    EXPECT_TRUE(live->window.window().visible);
    EXPECT_EQ(GetControl32BitValue(live->popUp), 1);
}

INSTANTIATE_TEST_SUITE_P(Functions, WrongReferences, testing::ValuesIn(FUNCTIONS), RowName());

}  // namespace
