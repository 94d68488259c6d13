#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/dialogs/TestWindow.h"
#include "tests/toolbox/core/nibs/SampleNib.h"

#include <Carbon/IBCarbonRuntime.h>
#include <CoreFoundation/CFString.h>
#include <Toolbox/Application.h>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <tuple>
#include <utility>

namespace {

namespace fs = std::filesystem;

// From the start on, so that a test's own takes its place and no more objects are alive.
const bool HAS_MAIN_BUNDLE = Toolbox::SetMainBundle("/");

// The main bundle of a test, in a folder of its own.
class NibServices : public WindowTest {
protected:
    NibServices()
    {
        fs::create_directories(inResources(""));
        EXPECT_TRUE(HAS_MAIN_BUNDLE && Toolbox::SetMainBundle(m_folder / "Demo.app"));
    }

    fs::path inResources(const std::string& path) const { return m_folder / "Demo.app" / "Contents/Resources" / path; }

    // Makes `path` in the resources a nib with this archive.
    void makeNib(const std::string& path, const std::string& archive) const
    {
        fs::create_directories(inResources(path));
        std::ofstream(inResources(path) / "objects.xib", std::ios::binary) << archive;
    }

    // The remarks since the last report was taken, of which there should be one at most.
    static std::string onlyRemark()
    {
        std::string all;
        for (const std::string& remark : Toolbox::TakeReport().remarks)
            all += remark;
        return all;
    }

    // What CreateNibReference answers for "Demo", which is closed again if it was opened.
    static OSStatus tryToOpen()
    {
        IBNibRef nib = nullptr;
        const OSStatus status = CreateNibReference(CFSTR("Demo"), &nib);
        EXPECT_EQ(nib != nullptr, status == noErr);
        DisposeNibReference(nib);
        return status;
    }

    // The nib "Demo", which can be opened.
    static IBNibRef open()
    {
        IBNibRef nib = nullptr;
        EXPECT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
        return nib;
    }

    // The window `name` of `nib`, which can be made.
    static WindowRef make(IBNibRef nib, CFStringRef name = CFSTR("Window"))
    {
        WindowRef window = nullptr;
        EXPECT_EQ(CreateWindowFromNib(nib, name, &window), noErr);
        return window;
    }

    // What CreateWindowFromNib answers for "Demo" and the window `name`, which is disposed of again if it was made.
    static OSStatus tryToMake(const char* name)
    {
        const IBNibRef nib = open();
        const CFStringRef text = CFStringCreateWithCString(nullptr, name, kCFStringEncodingUTF8);
        WindowRef window = nullptr;
        const OSStatus status = CreateWindowFromNib(nib, text, &window);
        CFRelease(text);
        EXPECT_EQ(window != nullptr, status == noErr);
        DisposeWindow(window);
        DisposeNibReference(nib);
        return status;
    }

    const TemporaryFolder m_folder;
};

// ---- What a nib is for

TEST_F(NibServices, MakeANewHiddenWindowEachTimeThatOutlivesTheNib)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    const IBNibRef nib = open();
    const WindowRef windows[] = {make(nib), make(nib)};
    DisposeNibReference(nib);
    EXPECT_NE(windows[0], windows[1]);
    for (const WindowRef window : windows) {
        ASSERT_NE(Toolbox::Window::find(window), nullptr);
        EXPECT_FALSE(Toolbox::Window::find(window)->visible);
        EXPECT_NE(Toolbox::Window::find(window)->findControl({'demo', 1}), nullptr);
        DisposeWindow(window);
    }
}

// ---- Finding the nib

TEST_F(NibServices, LookForTheNibInTheMainBundle)
{
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
    EXPECT_EQ(onlyRemark(), "the nib \"Demo\" was refused: the main bundle has no objects.xib of it that can be read");
    makeNib("Demo.nib", SAMPLE_NIB);
    EXPECT_EQ(tryToOpen(), noErr);
    EXPECT_EQ(onlyRemark(), "");
}

// ---- Files that are none

TEST_F(NibServices, OpenNothingButAFileInAFolder)
{
    const std::pair<const char*, void (*)(const fs::path& nib, const fs::path& archive)> rows[] = {
        {"no archive", [](const fs::path& nib, const fs::path&) { fs::create_directory(nib); }},
        {"no folder", [](const fs::path& nib, const fs::path&) { std::ofstream(nib) << SAMPLE_NIB; }},
        {"a folder", [](const fs::path&, const fs::path& archive) { fs::create_directories(archive); }},
        {"a pipe",
            [](const fs::path& nib, const fs::path& archive) {
                fs::create_directory(nib);
                ASSERT_EQ(mkfifo(archive.c_str(), 0600), 0);
            }},
        {"a link to a device",
            [](const fs::path& nib, const fs::path& archive) {
                fs::create_directory(nib);
                fs::create_symlink("/dev/zero", archive);
            }},
    };
    const fs::path nib = inResources("Demo.nib");
    for (const auto& [name, make] : rows) {
        make(nib, nib / "objects.xib");
        EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile) << name;
        fs::remove_all(nib);
    }
}

TEST_F(NibServices, ReadArchivesOfUpToTwoMebibytes)
{
    constexpr std::size_t LIMIT = 2 * 1024 * 1024;
    for (const std::size_t length : {LIMIT - 1, LIMIT, LIMIT + 1}) {
        std::string archive = SAMPLE_NIB;
        while (archive.size() < length)
            archive += std::string(std::min<std::size_t>(length - archive.size(), 100), ' ').replace(0, 1, "\n");
        makeNib("Demo.nib", archive);
        EXPECT_EQ(tryToOpen(), length > LIMIT ? OSStatus{kIBCarbonRuntimeCantFindNibFile} : OSStatus{noErr}) << length;
    }
}

// ---- Archives that are corrupt, or go

TEST_F(NibServices, OpenANibThatIsCorruptButMakeNoWindowOfIt)
{
    for (const std::string& archive : {std::string(), std::string("junk"), SAMPLE_NIB.substr(0, 500)}) {
        makeNib("Demo.nib", archive);
        EXPECT_EQ(tryToMake("Window"), kIBCarbonRuntimeCantFindObject);
        EXPECT_EQ(onlyRemark().find("the nib \"Demo\" was refused: "), 0u);
    }
}

TEST_F(NibServices, MakeWindowsOfWhatWasThereWhenTheNibWasOpened)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    const IBNibRef nib = open();
    makeNib("Demo.nib", "junk");
    DisposeWindow(make(nib));
    fs::remove_all(inResources("Demo.nib"));
    DisposeWindow(make(nib));
    DisposeNibReference(nib);
}

// ---- Names that are no window's

TEST_F(NibServices, TellWhatTheNameIsOf)
{
    makeNib("Demo.nib",
        "<object class='NSIBObjectData'>"
        "<object name='rootObject' class='NSCustomObject' id='1'/><dictionary name='nameTable'>"
        "<string>Files Owner</string><reference idRef='1'/>"
        "<string>Nowhere</string><reference idRef='99'/>"
        "<string>Text</string><string>Window</string>"
        "<string>Menu</string><object class='IBCarbonMenu'/>"
        "<string>Shapeless</string><object class='IBCarbonWindow'/>"
        "<string>Twice</string><object class='IBCarbonWindow'><string name='windowRect'>1 2 3 4</string></object>"
        "<string>Twice</string><object class='IBCarbonMenu'/>"
        "</dictionary></object>");
    // reason: empty where it is made
    const std::tuple<const char*, OSStatus, const char*> rows[] = {
        {"Absent", kIBCarbonRuntimeCantFindObject, "the nib names nothing so"},
        {"", kIBCarbonRuntimeCantFindObject, "the nib names nothing so"},
        {"Files Owner", kIBCarbonRuntimeObjectNotOfRequestedType, "it is not a window"},
        {"Nowhere", kIBCarbonRuntimeCantFindObject, "the nib names nothing so"},
        {"Text", kIBCarbonRuntimeObjectNotOfRequestedType, "it is not a window"},
        {"Menu", kIBCarbonRuntimeObjectNotOfRequestedType, "it is not a window"},
        {"Shapeless", kIBCarbonRuntimeCantFindObject, "a rectangle is missing or wrong"},
        {"Twice", noErr, ""},
    };
    for (const auto& [name, status, reason] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(tryToMake(name), status);
        const std::string refused = "the window \"" + std::string(name) + "\" was refused: " + reason;
        EXPECT_EQ(onlyRemark(), status == noErr ? "" : refused);
    }
}

TEST_F(NibServices, NeedAPlaceForWhatTheyMake)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    EXPECT_EQ(CreateNibReference(CFSTR("Demo"), nullptr), paramErr);
    const IBNibRef nib = open();
    EXPECT_EQ(CreateWindowFromNib(nib, CFSTR("Window"), nullptr), paramErr);
    DisposeNibReference(nib);
}

}  // namespace
