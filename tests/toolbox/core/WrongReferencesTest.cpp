// Every public function that takes a reference, with references that are null, dead, foreign or of another kind: it
// answers as its header says, and nothing changes.

#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/base/resources/ResourceFork.h"
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

template <typename Ref> Ref as(const void* reference)
{
    return reinterpret_cast<Ref>(const_cast<void*>(reference));
}

template <typename Ref> const void* valueOf(Ref reference)
{
    return reinterpret_cast<const void*>(reference);
}

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
        const CFURLRef file = url(m_folder.write("resources", fork));
        FSRef reference;
        EXPECT_TRUE(CFURLGetFSRef(file, &reference));
        EXPECT_EQ(FSOpenResourceFile(&reference, 0, nullptr, fsRdPerm, &m_file), noErr);
        CFRelease(file);

        popUp = window.addPopUp({{}, {}, {}}).ref();
        CFUUIDBytes salted = FACTORY_ID;
        salted.byte0 = salt;
        uuid = CFUUIDCreateFromUUIDBytes(nullptr, salted);
        type = CFUUIDCreateFromUUIDBytes(nullptr, TYPE_ID);
        factory = CFUUIDCreateFromUUIDBytes(nullptr, FACTORY_ID);
        string = CFStringCreateWithCString(nullptr, "text", kCFStringEncodingMacRoman);
        folder = url(m_folder.path());
        bundle = CFBundleCreate(nullptr, folder);
        array = CFPlugInFindFactoriesForPlugInTypeInPlugIn(type, bundle);
        pointer = NewPtr(8);
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
            {state + " window", WINDOW, valueOf(window.ref)},
            {state + " control", CONTROL, valueOf(popUp)},
            {state + " target", TARGET, valueOf(window.target())},
            {state + " nib", NIB, valueOf(nib)},
            {state + " alert", ALERT, valueOf(alert)},
            {state + " string", STRING, valueOf(string)},
            {state + " url", URL, valueOf(folder)},
            {state + " uuid", UUID, valueOf(uuid)},
            {state + " array", ARRAY, valueOf(array)},
            {state + " bundle", BUNDLE, valueOf(bundle)},
            {state + " pointer", POINTER, valueOf(pointer)},
            {state + " resource", RESOURCE, valueOf(resource)},
            {state + " converter to UTF-16", TO_UNICODE, valueOf(toUnicode)},
            {state + " converter to text", TO_TEXT, valueOf(toText)},
        };
    }

    TestWindow window;
    ControlRef popUp = nullptr;
    IBNibRef nib = nullptr;
    DialogRef alert = nullptr;
    CFStringRef string = nullptr;
    CFURLRef folder = nullptr;
    CFUUIDRef uuid = nullptr;
    CFUUIDRef type = nullptr;
    CFUUIDRef factory = nullptr;
    CFArrayRef array = nullptr;
    CFBundleRef bundle = nullptr;
    Ptr pointer = nullptr;
    Handle resource = nullptr;
    TextToUnicodeInfo toUnicode = nullptr;
    UnicodeToTextInfo toText = nullptr;

private:
    static CFURLRef url(const std::string& path)
    {
        return CFURLCreateFromFileSystemRepresentation(
            nullptr, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), false);
    }

    const TemporaryFolder m_folder;
    SInt16 m_file = 0;
};

const Objects* live = nullptr;  // those of the running test

// ---- The functions

struct Function {
    const char* name;  // and the parameter's, where there are several
    unsigned takes;    // the kinds that are right there
    long (*call)(const void* reference);
    long result;
    long resultForNull;
};

// 1 for an object, which is released, 0 for null.
long made(CFTypeRef object)
{
    CFRelease(object);
    return object != nullptr ? 1 : 0;
}

// An out-parameter that a failure has cleared is 0.
template <typename Ref> long orOutParameter(OSStatus status, const Ref& outParameter)
{
    return outParameter == nullptr ? status : 1;
}

long controlIn(const void* reference)
{
    const ControlID id = {0, 0};
    ControlRef control = live->popUp;
    return orOutParameter(GetControlByID(as<WindowRef>(reference), &id, &control), control);
}

long installOn(const void* reference)
{
    return InstallEventHandler(as<EventTargetRef>(reference), keepEvent, 1, COMMANDS, nullptr, nullptr);
}

long parameterOf(const void* reference)
{
    HICommand command = {};
    return GetEventParameter(as<EventRef>(reference), '----', 'hcmd', nullptr, sizeof command, nullptr, &command);
}

long nibNamed(const void* reference)
{
    IBNibRef nib = live->nib;
    return orOutParameter(CreateNibReference(as<CFStringRef>(reference), &nib), nib);
}

long windowFrom(IBNibRef nib, CFStringRef name)
{
    WindowRef window = live->window.ref;
    return orOutParameter(CreateWindowFromNib(nib, name, &window), window);
}

long runAlert(const void* reference)
{
    SInt16 itemHit = 0;
    return RunStandardAlert(as<DialogRef>(reference), nullptr, &itemHit);
}

long alertOf(CFStringRef error, CFStringRef explanation, CFStringRef button)
{
    AlertStdCFStringAlertParamRec parameters = {};
    parameters.version = kStdCFStringAlertVersionOne;
    parameters.defaultText = button;
    parameters.defaultButton = kAlertStdAlertOKButton;
    DialogRef alert = live->alert;
    const OSStatus status = CreateStandardAlert(kAlertNoteAlert, error, explanation, &parameters, &alert);
    const DialogRef made = alert;
    if (status == noErr)
        runAlert(made);
    return orOutParameter(status, made);
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

long urlAt(const void* reference)
{
    const FSRef file = fileReferenceOf(reference);
    return made(CFURLCreateFromFSRef(nullptr, &file));
}

long folderAt(CFAllocatorRef allocator)
{
    FSRef file;
    CFURLGetFSRef(live->folder, &file);
    return made(CFURLCreateFromFSRef(allocator, &file));
}

long fileReferenceFrom(const void* reference)
{
    FSRef file;
    return CFURLGetFSRef(as<CFURLRef>(reference), &file);
}

long pathFrom(const void* reference)
{
    UInt8 path[1024];
    return CFURLGetFileSystemRepresentation(as<CFURLRef>(reference), true, path, sizeof path);
}

long toUnicodeWith(const void* reference)
{
    ByteCount read = 0;
    ByteCount written = 0;
    UniChar units[4];
    return ConvertFromTextToUnicode(as<TextToUnicodeInfo>(reference), 1, "a", 0, 0, nullptr, nullptr, nullptr,
        sizeof units, &read, &written, units);
}

long toTextWith(const void* reference)
{
    const UniChar unit = 'a';
    ByteCount read = 0;
    ByteCount written = 0;
    char text[4];
    return ConvertFromUnicodeToText(as<UnicodeToTextInfo>(reference), sizeof unit, &unit, 0, 0, nullptr, nullptr,
        nullptr, sizeof text, &read, &written, text);
}

const UniChar UNIT = 'a';
const UInt8 PATH[] = "/";

// clang-format off
const Function FUNCTIONS[] = {
    // Windows, controls, events, nibs.
    {"ShowWindow",                    WINDOW, [](const void* r) { ShowWindow(as<WindowRef>(r)); return 0L; }, 0, 0},
    {"HideWindow",                    WINDOW, [](const void* r) { HideWindow(as<WindowRef>(r)); return 0L; }, 0, 0},
    {"DisposeWindow",                 WINDOW, [](const void* r) { DisposeWindow(as<WindowRef>(r)); return 0L; }, 0, 0},
    {"GetControlByID",                WINDOW, controlIn, errInvalidWindowRef, errInvalidWindowRef},
    {"GetWindowEventTarget",          WINDOW, [](const void* r) { return long(GetWindowEventTarget(as<WindowRef>(r)) != nullptr); }, 0, 0},
    {"RunAppModalLoopForWindow",      WINDOW, [](const void* r) { return long(RunAppModalLoopForWindow(as<WindowRef>(r))); }, errInvalidWindowRef, errInvalidWindowRef},
    {"QuitAppModalLoopForWindow",     WINDOW, [](const void* r) { return long(QuitAppModalLoopForWindow(as<WindowRef>(r))); }, errInvalidWindowRef, errInvalidWindowRef},
    {"GetControl32BitValue",          CONTROL, [](const void* r) { return long(GetControl32BitValue(as<ControlRef>(r))); }, 0, 0},
    {"SetControl32BitValue",          CONTROL, [](const void* r) { SetControl32BitValue(as<ControlRef>(r), 3); return 0L; }, 0, 0},
    {"InstallEventHandler",           TARGET, installOn, paramErr, paramErr},
    {"GetEventClass",                 EVENT, [](const void* r) { return long(GetEventClass(as<EventRef>(r))); }, 0, 0},
    {"GetEventKind",                  EVENT, [](const void* r) { return long(GetEventKind(as<EventRef>(r))); }, 0, 0},
    {"GetEventParameter",             EVENT, parameterOf, paramErr, paramErr},
    {"CreateNibReference",            STRING, nibNamed, paramErr, paramErr},
    {"CreateWindowFromNib_nib",       NIB, [](const void* r) { return windowFrom(as<IBNibRef>(r), CFSTR("Window")); }, paramErr, paramErr},
    {"CreateWindowFromNib_name",      STRING, [](const void* r) { return windowFrom(live->nib, as<CFStringRef>(r)); }, paramErr, paramErr},
    {"DisposeNibReference",           NIB, [](const void* r) { DisposeNibReference(as<IBNibRef>(r)); return 0L; }, 0, 0},

    // Alerts. Null is a text, or a button, that is not there: without the one button nothing would end the alert.
    {"CreateStandardAlert_error",     STRING, [](const void* r) { return alertOf(as<CFStringRef>(r), nullptr, live->string); }, paramErr, 1},
    {"CreateStandardAlert_explanation", STRING, [](const void* r) { return alertOf(nullptr, as<CFStringRef>(r), live->string); }, paramErr, 1},
    {"CreateStandardAlert_button",    STRING, [](const void* r) { return alertOf(live->string, nullptr, as<CFStringRef>(r)); }, paramErr, paramErr},
    {"RunStandardAlert",              ALERT, runAlert, paramErr, paramErr},

    // Core Foundation.
    {"CFRelease",                     ANY_OBJECT, [](const void* r) { CFRelease(r); return 0L; }, 0, 0},
    {"CFEqual_first",                 STRING, [](const void* r) { return long(CFEqual(r, live->string)); }, 0, 0},
    {"CFEqual_second",                STRING, [](const void* r) { return long(CFEqual(live->string, r)); }, 0, 0},
    {"CFEqual_both",                  ANY_OBJECT, [](const void* r) { return long(CFEqual(r, r)); }, 0, 0},
    {"CFArrayGetCount",               ARRAY, [](const void* r) { return long(CFArrayGetCount(as<CFArrayRef>(r))); }, 0, 0},
    {"CFArrayGetValueAtIndex",        ARRAY, [](const void* r) { return long(CFArrayGetValueAtIndex(as<CFArrayRef>(r), 0) != nullptr); }, 0, 0},
    {"CFStringGetPascalStringPtr",    STRING, [](const void* r) { return long(CFStringGetPascalStringPtr(as<CFStringRef>(r), kCFStringEncodingMacRoman) != nullptr); }, 0, 0},
    {"CFURLGetFSRef",                 URL, fileReferenceFrom, 0, 0},
    {"CFURLGetFileSystemRepresentation", URL, pathFrom, 0, 0},
    {"CFURLCreateCopyAppendingPathComponent_url",  URL, [](const void* r) { return made(CFURLCreateCopyAppendingPathComponent(nullptr, as<CFURLRef>(r), live->string, false)); }, 0, 0},
    {"CFURLCreateCopyAppendingPathComponent_name", STRING, [](const void* r) { return made(CFURLCreateCopyAppendingPathComponent(nullptr, live->folder, as<CFStringRef>(r), false)); }, 0, 0},
    {"CFURLCreateFromFSRef_file",     NO_KIND, urlAt, 0, 0},

    // Allocators.
    {"CFStringCreateWithCString",     ALLOCATOR, [](const void* r) { return made(CFStringCreateWithCString(as<CFAllocatorRef>(r), "a", kCFStringEncodingMacRoman)); }, 1, 1},
    {"CFStringCreateWithCharacters",  ALLOCATOR, [](const void* r) { return made(CFStringCreateWithCharacters(as<CFAllocatorRef>(r), &UNIT, 1)); }, 1, 1},
    {"CFUUIDCreateFromUUIDBytes",     ALLOCATOR, [](const void* r) { return made(CFUUIDCreateFromUUIDBytes(as<CFAllocatorRef>(r), FACTORY_ID)); }, 1, 1},
    {"CFUUIDGetConstantUUIDWithBytes", ALLOCATOR, [](const void* r) { return long(CFUUIDGetConstantUUIDWithBytes(as<CFAllocatorRef>(r), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0) != nullptr); }, 1, 1},
    {"CFURLCreateFromFSRef_allocator", ALLOCATOR, [](const void* r) { return folderAt(as<CFAllocatorRef>(r)); }, 1, 1},
    {"CFURLCreateFromFileSystemRepresentation", ALLOCATOR, [](const void* r) { return made(CFURLCreateFromFileSystemRepresentation(as<CFAllocatorRef>(r), PATH, 1, true)); }, 1, 1},
    {"CFURLCreateCopyAppendingPathComponent_allocator", ALLOCATOR, [](const void* r) { return made(CFURLCreateCopyAppendingPathComponent(as<CFAllocatorRef>(r), live->folder, live->string, false)); }, 1, 1},
    {"CFBundleCreate_allocator",      ALLOCATOR, [](const void* r) { return made(CFBundleCreate(as<CFAllocatorRef>(r), live->folder)); }, 1, 1},
    {"CFPlugInCreate_allocator",      ALLOCATOR, [](const void* r) { return made(CFPlugInCreate(as<CFAllocatorRef>(r), live->folder)); }, 1, 1},

    // Bundles and plug-ins. The sample bundle has no executable, so that nothing is ever loaded from it.
    {"CFBundleCreate",                URL, [](const void* r) { return made(CFBundleCreate(nullptr, as<CFURLRef>(r))); }, 0, 0},
    {"CFBundleLoadExecutable",        BUNDLE, [](const void* r) { return long(CFBundleLoadExecutable(as<CFBundleRef>(r))); }, 0, 0},
    {"CFBundleGetFunctionPointerForName_bundle", BUNDLE, [](const void* r) { return long(CFBundleGetFunctionPointerForName(as<CFBundleRef>(r), live->string) != nullptr); }, 0, 0},
    {"CFBundleGetFunctionPointerForName_name",   STRING, [](const void* r) { return long(CFBundleGetFunctionPointerForName(live->bundle, as<CFStringRef>(r)) != nullptr); }, 0, 0},
    {"CFBundleCopyResourceURL_bundle", BUNDLE, [](const void* r) { return made(CFBundleCopyResourceURL(as<CFBundleRef>(r), CFSTR("Info"), CFSTR("plist"), nullptr)); }, 0, 0},
    {"CFBundleCopyResourceURL_name",  STRING, [](const void* r) { return made(CFBundleCopyResourceURL(live->bundle, as<CFStringRef>(r), CFSTR("plist"), nullptr)); }, 0, 0},
    {"CFBundleCopyResourceURL_type",  STRING, [](const void* r) { return made(CFBundleCopyResourceURL(live->bundle, CFSTR("Info.plist"), as<CFStringRef>(r), nullptr)); }, 0, 1},
    {"CFBundleCopyResourceURL_folder", STRING, [](const void* r) { return made(CFBundleCopyResourceURL(live->bundle, CFSTR("Info"), CFSTR("plist"), as<CFStringRef>(r))); }, 0, 1},
    {"CFBundleCopyBuiltInPlugInsURL", BUNDLE, [](const void* r) { return made(CFBundleCopyBuiltInPlugInsURL(as<CFBundleRef>(r))); }, 0, 0},
    {"CFPlugInCreate",                URL, [](const void* r) { return made(CFPlugInCreate(nullptr, as<CFURLRef>(r))); }, 0, 0},
    {"CFPlugInFindFactoriesForPlugInTypeInPlugIn_type",   UUID, [](const void* r) { return made(CFPlugInFindFactoriesForPlugInTypeInPlugIn(as<CFUUIDRef>(r), live->bundle)); }, 0, 0},
    {"CFPlugInFindFactoriesForPlugInTypeInPlugIn_plugIn", BUNDLE, [](const void* r) { return made(CFPlugInFindFactoriesForPlugInTypeInPlugIn(live->type, as<CFPlugInRef>(r))); }, 0, 0},
    {"CFPlugInInstanceCreate_allocator", ALLOCATOR, [](const void* r) { return long(CFPlugInInstanceCreate(as<CFAllocatorRef>(r), live->factory, live->type) != nullptr); }, 0, 0},
    {"CFPlugInInstanceCreate_factory", UUID, [](const void* r) { return long(CFPlugInInstanceCreate(nullptr, as<CFUUIDRef>(r), live->type) != nullptr); }, 0, 0},
    {"CFPlugInInstanceCreate_type",   UUID, [](const void* r) { return long(CFPlugInInstanceCreate(nullptr, live->factory, as<CFUUIDRef>(r)) != nullptr); }, 0, 0},
    {"CFPlugInRemoveInstanceForFactory", UUID, [](const void* r) { CFPlugInRemoveInstanceForFactory(as<CFUUIDRef>(r)); return 0L; }, 0, 0},

    // Memory and resources.
    {"DisposePtr",                    POINTER, [](const void* r) { DisposePtr(as<Ptr>(r)); return 0L; }, 0, 0},
    {"GetHandleSize",                 RESOURCE, [](const void* r) { return long(GetHandleSize(as<Handle>(r))); }, 0, 0},
    {"HLock",                         RESOURCE, [](const void* r) { HLock(as<Handle>(r)); return 0L; }, 0, 0},
    {"HUnlock",                       RESOURCE, [](const void* r) { HUnlock(as<Handle>(r)); return 0L; }, 0, 0},
    {"ReleaseResource",               RESOURCE, [](const void* r) { ReleaseResource(as<Handle>(r)); return 0L; }, 0, 0},
    {"ChangedResource",               RESOURCE, [](const void* r) { ChangedResource(as<Handle>(r)); return 0L; }, 0, 0},
    {"FSOpenResourceFile",            NO_KIND, resourceFileAt, errFSBadFSRef, errFSBadFSRef},

    // Text encodings.
    {"ConvertFromTextToUnicode",      TO_UNICODE, toUnicodeWith, kTECCorruptConverterErr, paramErr},
    {"ConvertFromUnicodeToText",      TO_TEXT, toTextWith, kTECCorruptConverterErr, paramErr},
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
        const std::vector<Reference> references = dead.references("dead");
        for (Reference each : references) {
            each.kind = each.kind & (TO_UNICODE | TO_TEXT);  // converters do not die
            m_wrong.push_back(each);
        }
        m_wrong.push_back({"dead event", NO_KIND, valueOf(event)});
    }

    void addForeign()
    {
        static int variable = 0;
        for (const std::uintptr_t address : {std::uintptr_t(1), std::uintptr_t(8), ~std::uintptr_t(15)})
            m_wrong.push_back({"address " + std::to_string(address), NO_KIND, reinterpret_cast<const void*>(address)});
        m_wrong.push_back({"a variable", NO_KIND, &variable});
        m_wrong.push_back({"a function", NO_KIND, valueOf(&keepEvent)});
        m_wrong.push_back({"an object of the test", NO_KIND, this});
    }

    std::unique_ptr<Objects> m_live;
    std::vector<Reference> m_wrong;
};

// Without constants, which come into being once and stay.
std::map<std::string, std::size_t> mortalObjects()
{
    std::map<std::string, std::size_t> alive = Toolbox::CountLiveObjects();
    alive.erase("Core Foundation constant");
    return alive;
}

TEST_P(WrongReferences, AreRefusedAndChangeNothing)
{
    const Function& function = GetParam();
    const std::map<std::string, std::size_t> before = mortalObjects();
    EXPECT_EQ(function.call(nullptr), function.resultForNull) << "null";
    EXPECT_EQ(mortalObjects(), before) << "null";
    for (const Reference& each : wrong()) {
        if ((each.kind & function.takes) != 0)
            continue;
        EXPECT_EQ(function.call(each.value), function.result) << each.name;
        EXPECT_EQ(mortalObjects(), before) << each.name;
    }
    EXPECT_TRUE(live->window.window().visible);
    EXPECT_EQ(GetControl32BitValue(live->popUp), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Functions, WrongReferences, testing::ValuesIn(FUNCTIONS), [](const auto& row) { return row.param.name; });

}  // namespace
