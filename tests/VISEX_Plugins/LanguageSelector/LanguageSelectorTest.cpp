#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include "tests/VISEX_Plugins/LanguageSelector/Failures.h"
#include "tests/VISEX_Plugins/LanguageSelector/RecordBytes.h"
#include "tests/double/ToolboxTest.h"
#include "tests/support/RecordDifferences.h"

#include <cstring>
#include <string>
#include <type_traits>

namespace {

using ToolboxDouble::ClearLog;
using ToolboxDouble::LeftBehind;
using ToolboxDouble::Log;

// ---- The main entry

class Entry : public ToolboxTest { };

TEST_F(Entry, NullRecordIsIgnored)
{
    XCodMain(nullptr);
    LanguageSelector(nullptr);
    EXPECT_EQ(Log(), "");
}

TEST_F(Entry, MessageOtherThan1000IsAnsweredWithAlert5000AndAFlag)
{
    ExternParmBlock record = recordWith(0, 11);
    for (int message = -0x8000; message <= 0x7FFF; ++message) {
        if (message == 1000)
            continue;
        ToolboxDouble::Reset();
        record.message = static_cast<SInt16>(message);
        record.resultFlags = message % 2 == 0 ? 0xA5A5A5A4 : 0xA5A5A5A5;  // it stays set
        ExternParmBlock expected = record;
        expected.resultFlags = 0xA5A5A5A5;
        XCodMain(&record);
        ASSERT_EQ(Log(), "StopAlert(5000, null) = 1\n") << "message " << message;
        ASSERT_EQ(recordDifferences(record, expected), "") << "message " << message;
    }
}

TEST_F(Entry, FlagIsSetWhenTheAlertHasBeenShownOrCannotBe)
{
    for (const SInt16 button : {SInt16{1}, SInt16{-1}}) {
        ExternParmBlock record = recordWith(999, 0);
        record.resultFlags = 0;
        ToolboxDouble::PressInAlerts(button);
        ToolboxDouble::WhenAlerted([&] { EXPECT_EQ(record.resultFlags, 0u) << "not yet"; });
        XCodMain(&record);
        EXPECT_EQ(record.resultFlags, 1u);
    }
}

TEST_F(Entry, EachCallIsAFreshRun)
{
    ToolboxDouble::InModalLoop({ToolboxDouble::Act::Choose(3), ToolboxDouble::Act::Command(kHICommandOK)});
    ExternParmBlock record = recordWith(1000, 11);
    XCodMain(&record);
    EXPECT_EQ(record.chosenLanguage, 2);

    ToolboxDouble::InModalLoop({ToolboxDouble::Act::Command(kHICommandOK)});
    XCodMain(&record);
    EXPECT_EQ(ToolboxDouble::ItemShown(), 2) << "the current language, not the one chosen before";
    EXPECT_EQ(record.chosenLanguage, 11);
    EXPECT_EQ(LeftBehind(), "");
}

TEST_F(Entry, LanguageSelectorRunsTheDialogAloneWhateverTheMessage)
{
    ToolboxDouble::InModalLoop({ToolboxDouble::Act::Command(kHICommandOK)});
    ExternParmBlock record = recordWith(999, 6);
    ExternParmBlock expected = record;
    expected.chosenLanguage = 6;

    LanguageSelector(&record);
    EXPECT_FALSE(logged("GetResource("));
    EXPECT_FALSE(logged("StopAlert("));
    EXPECT_EQ(recordDifferences(record, expected), "");
}

// ---- The factory and its instances

const CFUUIDBytes FACTORY_TYPE = {
    0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8};
const CFUUIDBytes UNKNOWN_INTERFACE = {0, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
const CFUUIDBytes FACTORY_ID = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

// `bytes` with one bit of the byte at `position` turned.
CFUUIDBytes withChange(CFUUIDBytes bytes, std::size_t position)
{
    UInt8 raw[sizeof bytes];
    std::memcpy(raw, &bytes, sizeof bytes);
    raw[position] ^= 1;
    std::memcpy(&bytes, raw, sizeof bytes);
    return bytes;
}

class PlugIn : public ToolboxTest {
protected:
    PlugIn()
    {
        type = CFUUIDCreateFromUUIDBytes(nullptr, FACTORY_TYPE);
        ClearLog();
    }

    // An instance, and no log of how it was made.
    XcodInstance* makeInstance()
    {
        void* const instance = MyFactory(nullptr, type);
        ClearLog();
        return static_cast<XcodInstance*>(instance);
    }

    CFUUIDRef type;
};

TEST_F(PlugIn, FactoryMakesAnInstanceOfItsTypeWhateverTheAllocatorAndLeavesTheFactoryIDAsItIs)
{
    const CFUUIDRef factoryID = CFUUIDCreateFromUUIDBytes(nullptr, FACTORY_ID);
    ToolboxDouble::FillNewBlocks(factoryID);
    ClearLog();
    const auto* const instance = static_cast<XcodInstance*>(MyFactory(kCFAllocatorSystemDefault, type));
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(instance->referenceCount, 1);
    EXPECT_EQ(instance->factoryID, factoryID);
    EXPECT_EQ(Log(),
        "CFUUIDGetConstantUUIDWithBytes(null, 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8)\n"
        "CFEqual(uuid 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8, uuid 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8) = 1\n"
        "NewPtr("
            + std::to_string(3 * sizeof(void*)) + ") = block1\n");
}

TEST_F(PlugIn, FactoryRefusesEveryOtherType)
{
    for (std::size_t position = 0; position < sizeof(CFUUIDBytes); ++position) {
        const CFUUIDRef other = CFUUIDCreateFromUUIDBytes(nullptr, withChange(FACTORY_TYPE, position));
        EXPECT_EQ(MyFactory(nullptr, other), nullptr) << "differing at byte " << position;
    }
    EXPECT_EQ(Log().find("NewPtr"), std::string::npos) << Log();
}

TEST_F(PlugIn, InstancesBeginWithTheirTableOfFunctionsAndShareNothingElse)
{
    XcodInstance* const first = makeInstance();
    XcodInstance* const second = makeInstance();
    EXPECT_NE(first, second);
    // As the host sees it: a pointer to a pointer to five words.
    void* const* const words = *reinterpret_cast<void* const**>(first);
    EXPECT_EQ(words, *reinterpret_cast<void* const**>(second));
    EXPECT_EQ(words[0], nullptr);
    EXPECT_EQ(words[1], reinterpret_cast<void*>(myQueryInterface));
    EXPECT_EQ(words[2], reinterpret_cast<void*>(myAddRef));
    EXPECT_EQ(words[3], reinterpret_cast<void*>(myRelease));
    EXPECT_EQ(words[4], reinterpret_cast<void*>(XCodMain));
    myAddRef(first);
    EXPECT_EQ(second->referenceCount, 1);
}

TEST_F(PlugIn, QueryForEitherInterfaceGivesTheInstanceAndForAnythingElseNothing)
{
    XcodInstance* const instance = makeInstance();
    LPVOID given = nullptr;
    EXPECT_EQ(instance->functions->QueryInterface(instance, EXTERNAL_INTERFACE, &given), S_OK);
    EXPECT_EQ(given, instance);
    EXPECT_EQ(Log(), R"(CFUUIDCreateFromUUIDBytes(null, 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8)
CFUUIDGetConstantUUIDWithBytes(null, 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8)
CFEqual(uuid 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8, uuid 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8) = 1
CFRelease(uuid 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8)
)");
    given = nullptr;
    EXPECT_EQ(myQueryInterface(instance, UNKNOWN_INTERFACE, &given), S_OK);
    EXPECT_EQ(given, instance);
    EXPECT_TRUE(logged("\nCFRelease(uuid 00000000-0000-0000-C000-000000000046)\n")) << Log();
    EXPECT_EQ(instance->referenceCount, 3);

    const UInt32 noInterface = 0x80000004;
    for (std::size_t position = 0; position < sizeof(CFUUIDBytes); ++position) {
        for (const CFUUIDBytes& wanted : {EXTERNAL_INTERFACE, UNKNOWN_INTERFACE}) {
            given = instance;
            EXPECT_EQ(myQueryInterface(instance, withChange(wanted, position), &given), HRESULT(noInterface));
            EXPECT_EQ(given, nullptr) << "differing at byte " << position;
        }
    }
    EXPECT_EQ(instance->referenceCount, 3);
    EXPECT_EQ(LeftBehind(), "uuid 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8\nblock1\n") << "the test's own alone";
}

ULONG addTen(void* instance)
{
    static_cast<XcodInstance*>(instance)->referenceCount += 10;
    return 0;
}

TEST_F(PlugIn, QueryAddsItsReferenceThroughTheInstancesTable)
{
    XcodInstance* const instance = makeInstance();
    XcodFunctionBlock functions = *instance->functions;
    functions.AddRef = addTen;
    instance->functions = &functions;
    LPVOID given = nullptr;
    EXPECT_EQ(myQueryInterface(instance, UNKNOWN_INTERFACE, &given), S_OK);
    EXPECT_EQ(instance->referenceCount, 11);
}

TEST_F(PlugIn, ReferencesAreCountedAndTheLastReleaseFreesTheInstance)
{
    XcodInstance* const instance = makeInstance();
    EXPECT_EQ(instance->functions->AddRef(instance), 2u);
    EXPECT_EQ(instance->functions->AddRef(instance), 3u);
    EXPECT_EQ(instance->functions->Release(instance), 2u);
    EXPECT_EQ(instance->functions->Release(instance), 1u);
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(instance->functions->Release(instance), 0u);
    EXPECT_EQ(Log(), "DisposePtr(block1)\n");
    EXPECT_EQ(myRelease(instance), 0xDBDBDBDA) << "not guarded: one less than what lies where the count was";
    EXPECT_EQ(Log(), "DisposePtr(block1)\n");
}

TEST_F(PlugIn, LastReleaseGivesBackAFactoryIDThatTheBlockHeld)
{
    ToolboxDouble::FillNewBlocks(CFUUIDCreateFromUUIDBytes(nullptr, FACTORY_ID));
    EXPECT_EQ(myRelease(makeInstance()), 0u);
    EXPECT_EQ(Log(), R"(DisposePtr(block1)
CFPlugInRemoveInstanceForFactory(uuid 01020304-0506-0708-090A-0B0C0D0E0F10)
CFRelease(uuid 01020304-0506-0708-090A-0B0C0D0E0F10)
)");
}

TEST_F(PlugIn, ProcedureInformationDescribesTheMainEntry)
{
    static_assert(std::is_same<decltype(___procinfo), const UInt32>::value && sizeof ___procinfo == 4, "one word");
    EXPECT_EQ(___procinfo, 0xC0u);
}

}  // namespace
