#include "tests/support/TemporaryFolder.h"
#include "tests/toolbox/core/dialogs/TestWindow.h"
#include "tests/toolbox/core/nibs/SampleNib.h"

#include <Carbon/IBCarbonRuntime.h>
#include <CoreFoundation/CFString.h>
#include <Toolbox/Application.h>

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

using Toolbox::Control;

// The main bundle of a test, in a folder of its own.
class NibServices : public WindowTest {
protected:
    NibServices()
    {
        fs::create_directories(inResources(""));
        EXPECT_TRUE(Toolbox::SetMainBundle(m_folder / "Demo.app"));
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

    // What CreateWindowFromNib answers for "Demo" and the window `name`, which is disposed of again if it was made.
    static OSStatus tryToMake(CFStringRef name)
    {
        IBNibRef nib = nullptr;
        EXPECT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
        WindowRef window = nullptr;
        const OSStatus status = CreateWindowFromNib(nib, name, &window);
        EXPECT_EQ(window != nullptr, status == noErr);
        DisposeWindow(window);
        DisposeNibReference(nib);
        return status;
    }

    const TemporaryFolder m_folder;
};

// ---- What a nib is for

TEST_F(NibServices, MakeAHiddenWindowThatOutlivesTheNib)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    IBNibRef nib = nullptr;
    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    WindowRef window = nullptr;
    ASSERT_EQ(CreateWindowFromNib(nib, CFSTR("Size_Chooser"), &window), noErr);
    DisposeNibReference(nib);

    ASSERT_NE(Toolbox::Window::find(window), nullptr);
    EXPECT_FALSE(Toolbox::Window::find(window)->visible);
    const ControlID id = {'demo', 1};
    ControlRef popUp = nullptr;
    EXPECT_EQ(GetControlByID(window, &id, &popUp), noErr);
    EXPECT_EQ(GetControl32BitValue(popUp), 1);
    for (const auto& [wanted, value] : {std::pair{3, 3}, {4, 3}, {0, 1}}) {
        SetControl32BitValue(popUp, wanted);
        EXPECT_EQ(GetControl32BitValue(popUp), value);
    }
    DisposeWindow(window);
}

TEST_F(NibServices, MakeANewWindowEachTime)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    IBNibRef nib = nullptr;
    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    WindowRef windows[2] = {};
    for (WindowRef& window : windows)
        EXPECT_EQ(CreateWindowFromNib(nib, CFSTR("Size_Chooser"), &window), noErr);
    EXPECT_NE(windows[0], windows[1]);
    DisposeNibReference(nib);
    for (const WindowRef window : windows)
        DisposeWindow(window);
}

TEST_F(NibServices, MakeAWindowThatCanBeRun)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    IBNibRef nib = nullptr;
    WindowRef window = nullptr;
    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    ASSERT_EQ(CreateWindowFromNib(nib, CFSTR("Size_Chooser"), &window), noErr);
    DisposeNibReference(nib);
    CommandRecorder recorder(GetWindowEventTarget(window), eventNotHandledErr);
    recorder.action = [window](const HICommand& command) {
        if (command.commandID == kHICommandOK)
            QuitAppModalLoopForWindow(window);
    };
    ShowWindow(window);
    Toolbox::UseUnattendedDisplay({{Toolbox::Answer::Kind::Item, 2}, {Toolbox::Answer::Kind::Command, kHICommandOK}});
    EXPECT_EQ(RunAppModalLoopForWindow(window), noErr);
    EXPECT_EQ(recorder.ids(), (std::vector<MenuCommand>{0, kHICommandOK}));
    DisposeWindow(window);
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

TEST_F(NibServices, TakeANibWithoutALanguageBeforeOneWithIt)
{
    std::ofstream(inResources("../Info.plist"))
        << "<plist><dict><key>CFBundleDevelopmentRegion</key><string>de</string></dict></plist>";
    const TemporaryFolder other;  // so that the main bundle is made anew, with its Info.plist
    ASSERT_TRUE(Toolbox::SetMainBundle(other.path()));
    ASSERT_TRUE(Toolbox::SetMainBundle(m_folder / "Demo.app"));
    const auto name = [](const char* window) {
        std::string archive = SAMPLE_NIB;
        return archive.replace(archive.find("Size_Chooser"), 12, window);
    };
    makeNib("xx.lproj/Demo.nib", name("Elsewhere"));
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
    makeNib("de.lproj/Demo.nib", name("German"));
    EXPECT_EQ(tryToMake(CFSTR("German")), noErr);
    makeNib("Demo.nib", name("Global"));
    EXPECT_EQ(tryToMake(CFSTR("Global")), noErr);
}

TEST_F(NibServices, FindNothingOutsideTheBundle)
{
    const TemporaryFolder outside;
    outside.makeFolder("Demo.nib");
    std::ofstream(outside / "Demo.nib/objects.xib") << SAMPLE_NIB;
    const std::string way = fs::relative(outside / "Demo", inResources("")).string();
    for (const std::string& name : {way, (outside / "Demo").string()}) {
        const CFStringRef text = CFStringCreateWithCString(nullptr, name.c_str(), kCFStringEncodingUTF8);
        IBNibRef nib = nullptr;
        EXPECT_EQ(CreateNibReference(text, &nib), kIBCarbonRuntimeCantFindNibFile) << name;
        CFRelease(text);
    }
    fs::create_symlink(outside / "Demo.nib", inResources("Demo.nib"));
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(NibServices, FindNoNibOfAnEmptyName)
{
    IBNibRef nib = nullptr;
    EXPECT_EQ(CreateNibReference(CFSTR(""), &nib), kIBCarbonRuntimeCantFindNibFile);
}

// ---- Files that are none

TEST_F(NibServices, FindNoNibWithoutAnArchive)
{
    fs::create_directories(inResources("Demo.nib"));
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(NibServices, FindNoNibInAFile)
{
    std::ofstream(inResources("Demo.nib")) << SAMPLE_NIB;
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(NibServices, ReadNoFolder)
{
    fs::create_directories(inResources("Demo.nib/objects.xib"));
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(NibServices, DoNotWaitForAPipe)
{
    fs::create_directories(inResources("Demo.nib"));
    ASSERT_EQ(mkfifo((inResources("Demo.nib") / "objects.xib").c_str(), 0600), 0);
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
}

TEST_F(NibServices, FollowNoLinkToADevice)
{
    fs::create_directories(inResources("Demo.nib"));
    fs::create_symlink("/dev/zero", inResources("Demo.nib") / "objects.xib");
    EXPECT_EQ(tryToOpen(), kIBCarbonRuntimeCantFindNibFile);
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
    for (const std::string& archive : {std::string(), std::string("junk"), SAMPLE_NIB.substr(0, 1000)}) {
        makeNib("Demo.nib", archive);
        EXPECT_EQ(tryToMake(CFSTR("Size_Chooser")), kIBCarbonRuntimeCantFindObject);
        EXPECT_EQ(onlyRemark().find("the nib \"Demo\" was refused: "), 0u);
    }
}

TEST_F(NibServices, MakeWindowsOfWhatWasThereWhenTheNibWasOpened)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    IBNibRef nib = nullptr;
    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    const auto expectWindow = [nib] {
        WindowRef window = nullptr;
        EXPECT_EQ(CreateWindowFromNib(nib, CFSTR("Size_Chooser"), &window), noErr);
        DisposeWindow(window);
    };
    makeNib("Demo.nib", "junk");
    expectWindow();
    fs::remove_all(inResources("Demo.nib"));
    expectWindow();
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
    const struct {
        CFStringRef name;
        OSStatus status;
        const char* remark;
    } rows[] = {
        {CFSTR("Absent"), kIBCarbonRuntimeCantFindObject,
            "the window \"Absent\" was refused: the nib names nothing so"},
        {CFSTR(""), kIBCarbonRuntimeCantFindObject, "the window \"\" was refused: the nib names nothing so"},
        {CFSTR("Files Owner"), kIBCarbonRuntimeObjectNotOfRequestedType,
            "the window \"Files Owner\" was refused: it is not a window"},
        {CFSTR("Nowhere"), kIBCarbonRuntimeCantFindObject,
            "the window \"Nowhere\" was refused: the nib names nothing so"},
        {CFSTR("Text"), kIBCarbonRuntimeObjectNotOfRequestedType,
            "the window \"Text\" was refused: it is not a window"},
        {CFSTR("Menu"), kIBCarbonRuntimeObjectNotOfRequestedType,
            "the window \"Menu\" was refused: it is not a window"},
        {CFSTR("Shapeless"), kIBCarbonRuntimeCantFindObject,
            "the window \"Shapeless\" was refused: a rectangle is missing or wrong"},
        {CFSTR("Twice"), noErr, ""},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        Toolbox::TakeReport();
        EXPECT_EQ(tryToMake(rows[i].name), rows[i].status) << "row " << i;
        EXPECT_EQ(onlyRemark(), rows[i].remark) << "row " << i;
    }
}

// ---- Wrong arguments

TEST_F(NibServices, AnswerWrongArgumentsWithAnError)
{
    makeNib("Demo.nib", SAMPLE_NIB);
    IBNibRef nib = reinterpret_cast<IBNibRef>(std::uintptr_t{1});
    EXPECT_EQ(CreateNibReference(CFSTR("Demo"), nullptr), paramErr);
    EXPECT_EQ(CreateNibReference(nullptr, &nib), paramErr);
    EXPECT_EQ(nib, nullptr);
    EXPECT_EQ(CreateNibReference(reinterpret_cast<CFStringRef>(std::uintptr_t{7}), &nib), paramErr);

    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    WindowRef window = reinterpret_cast<WindowRef>(std::uintptr_t{1});
    EXPECT_EQ(CreateWindowFromNib(nib, CFSTR("Size_Chooser"), nullptr), paramErr);
    EXPECT_EQ(CreateWindowFromNib(nib, nullptr, &window), paramErr);
    EXPECT_EQ(window, nullptr);
    DisposeNibReference(nib);
    for (const IBNibRef wrong : {IBNibRef(), nib}) {
        window = reinterpret_cast<WindowRef>(std::uintptr_t{1});
        EXPECT_EQ(CreateWindowFromNib(wrong, CFSTR("Size_Chooser"), &window), paramErr);
        EXPECT_EQ(window, nullptr);
        DisposeNibReference(wrong);
    }
}

// ---- The nib of the external

TEST_F(NibServices, MakeTheDialogOfTheExternal)
{
    fs::copy(EXTERNAL_NIB, inResources("Demo.nib"), fs::copy_options::recursive);
    IBNibRef nib = nullptr;
    WindowRef window = nullptr;
    ASSERT_EQ(CreateNibReference(CFSTR("Demo"), &nib), noErr);
    ASSERT_EQ(CreateWindowFromNib(nib, CFSTR("Language_Selector"), &window), noErr);
    DisposeNibReference(nib);
    const Control* const popUp = Toolbox::Window::find(window)->findControl({'lsel', 1});
    ASSERT_NE(popUp, nullptr);
    EXPECT_EQ(popUp->items.size(), 6u);
    EXPECT_TRUE(popUp->items[1].title.startsWith(QStringLiteral("\u65e5\u672c\u8a9e")));
    DisposeWindow(window);
}

}  // namespace
