#include "toolbox/base/Referenced.h"
#include "toolbox/base/TracedCall.h"

#include <Carbon/MacMemory.h>
#include <Carbon/Resources.h>
#include <Carbon/UnicodeConverter.h>
#include <Toolbox/Trace.h>

#include <gtest/gtest.h>

#include <cinttypes>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using Toolbox::ForeignCode;
using Toolbox::TracedCall;

// Collects the lines for as long as the test lasts.
class Trace : public testing::Test {
protected:
    Trace()
    {
        Toolbox::SetTrace([this](const std::string& line) { m_lines.push_back(line); });
    }

    ~Trace() override { Toolbox::SetTrace(nullptr); }

    // What is told of these arguments.
    template <typename... Arguments> std::string traced(const Arguments&... arguments)
    {
        {
            const TracedCall call("Call", arguments...);
        }
        return m_lines.back();
    }

    std::vector<std::string> m_lines;
};

using Lines = std::vector<std::string>;

TEST_F(Trace, TellsNameArgumentsAndResult)
{
    GetResource('CALL', 1000);
    CloseResFile(-1);
    HLock(nullptr);
    BitTst(nullptr, 7);
    ConvertFromTextToUnicode(nullptr, 1, nullptr, 2, 3, nullptr, nullptr, nullptr, 4, nullptr, nullptr, nullptr);
    ConvertFromUnicodeToText(nullptr, 5, nullptr, 6, 7, nullptr, nullptr, nullptr, 8, nullptr, nullptr, nullptr);
    EXPECT_EQ(m_lines,
        (Lines{"GetResource('CALL', 1000) = null", "CloseResFile(-1)", "HLock(null)", "BitTst(null, 7) = 0",
            "ConvertFromTextToUnicode(null, 1, null, 2, 3, null, null, null, 4, null, null, null) = -50",
            "ConvertFromUnicodeToText(null, 5, null, 6, 7, null, null, null, 8, null, null, null) = -50"}));
}

TEST_F(Trace, TellsPointersByTheirAddress)
{
    const Ptr block = NewPtr(12);
    DisposePtr(block);
    char address[32];
    std::snprintf(address, sizeof address, "0x%" PRIxPTR, reinterpret_cast<std::uintptr_t>(block));
    EXPECT_EQ(m_lines, (Lines{std::string("NewPtr(12) = ") + address, std::string("DisposePtr(") + address + ")"}));
}

TEST_F(Trace, LeavesOutCallsFromInsideTheToolbox)
{
    CreateUnicodeToTextInfoByEncoding(0, nullptr);
    UnicodeToTextInfo converter = nullptr;
    CreateUnicodeToTextInfoByEncoding(0, &converter);
    ASSERT_EQ(m_lines.size(), 2u) << "the converters' call of CreateTextEncoding is left out";
    EXPECT_EQ(m_lines[0], "CreateUnicodeToTextInfoByEncoding(0, null) = -50");
}

TEST_F(Trace, ReportsACallWhenItEnds)
{
    {
        const TracedCall outer("Outer");
        EXPECT_TRUE(m_lines.empty());
        const TracedCall inner("Inner");
    }
    EXPECT_EQ(m_lines, Lines{"Outer()"});
}

TEST_F(Trace, ReportsForeignCodeInsideACallBetweenItsTwoLines)
{
    {
        TracedCall outer("Outer");
        for (int i = 0; i < 2; ++i) {
            const ForeignCode handler;
            HLock(nullptr);
            const TracedCall own("Own");
            HLock(nullptr);
        }
        HLock(nullptr);
        outer.gives(OSStatus(noErr));
    }
    HLock(nullptr);
    EXPECT_EQ(
        m_lines, (Lines{"Outer() ...", "HLock(null)", "Own()", "HLock(null)", "Own()", "Outer() = 0", "HLock(null)"}));
}

TEST_F(Trace, LeavesOutForeignCodeThatNoCallHasCalled)
{
    const ForeignCode constructors;
    HLock(nullptr);
    EXPECT_EQ(m_lines, Lines{"HLock(null)"});
}

TEST_F(Trace, IsSwitchedOffByAnEmptySinkWithinACallToo)
{
    {
        const TracedCall outer("Outer");
        Toolbox::SetTrace(nullptr);
        const ForeignCode handler;
    }
    HLock(nullptr);
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(Trace, CountsCallsOnEachThreadByItself)
{
    const TracedCall outer("Outer");
    std::thread(HLock, nullptr).join();
    EXPECT_EQ(m_lines, Lines{"HLock(null)"});
}

const std::pair<long long, const char*> NUMBER_CASES[] = {{0, "0"}, {-1, "-1"}, {-9874, "-9874"},
    {0x43414C4C, "'CALL'"}, {0x6F6B2020, "'ok  '"}, {0x20202020, "'    '"}, {0x7E7E7E7E, "'~~~~'"},
    {0x1F434343, "524501827"}, {0x4343437F, "1128481663"}, {0x143414C4C, "5423320140"}, {-0x43414C4C, "-1128352844"}};

TEST_F(Trace, TellsFourCharacterCodesByTheirCharacters)
{
    for (const auto& [number, text] : NUMBER_CASES) {
        {
            TracedCall call("Call", number);
            EXPECT_EQ(call.gives(number), number);
        }
        EXPECT_EQ(m_lines.back(), std::string("Call(") + text + ") = " + text);
    }
}

struct OpaqueTracedThing;
using TracedThingRef = OpaqueTracedThing*;

class TracedThing : public Toolbox::Referenced<TracedThing, TracedThingRef> {
public:
    static constexpr const char* KIND = "thing";
};

// A thing that has a better name than its number.
class NamedThing : public TracedThing {
    std::string traceName() const override { return "the thing"; }
};

TEST_F(Trace, NamesObjectsByKindAndNumberUnlessTheyNameThemselves)
{
    const NamedThing named;
    const TracedThing first;
    auto second = std::make_unique<TracedThing>();
    const TracedThingRef ref = second->ref();
    const std::string one = first.traceName();
    const std::string two = second->traceName();
    EXPECT_EQ(one.find("thing#"), 0u) << one;
    EXPECT_EQ(std::stoi(two.substr(6)), std::stoi(one.substr(6)) + 1) << "objects are numbered as they are made";
    {
        TracedCall call("Call", first.ref(), named.ref());
        call.gives(ref);
    }
    EXPECT_EQ(m_lines, Lines{"Call(" + one + ", the thing) = " + two});
    second.reset();
    EXPECT_EQ(traced(ref), "Call(dead" + two.substr(5) + ")");
}

TEST_F(Trace, TellsWhatIsNoReferenceByItsAddress)
{
    const TracedThing thing;
    const auto value = reinterpret_cast<std::uintptr_t>(thing.ref());
    for (const std::uintptr_t foreign : {value - 1, value + 1, value + 16, std::uintptr_t(0x10000), std::uintptr_t(16)})
        EXPECT_EQ(traced(reinterpret_cast<TracedThingRef>(foreign)).find("Call(0x"), 0u) << m_lines.back();
}

TEST_F(Trace, TellsTheReferencesThatASuccessfulCallGave)
{
    const TracedThing thing;
    TracedThingRef given = nullptr;
    TracedThingRef none = nullptr;
    for (const OSStatus status : {noErr, paramErr}) {
        TracedCall call("Call", &given, &none, static_cast<TracedThingRef*>(nullptr));
        given = thing.ref();
        call.gives(status);
    }
    ASSERT_EQ(m_lines.size(), 2u);
    const std::string success = " = 0 -> " + thing.traceName() + " -> null";
    EXPECT_EQ(m_lines[0].substr(m_lines[0].find(" = ")), success) << "a place that is null gets nothing";
    EXPECT_EQ(m_lines[1].substr(m_lines[1].find(" = ")), " = -50") << "a call that failed has given nothing";
}

TEST_F(Trace, TellsTheSmallNumbersThatASuccessfulCallGaveButTakesBytesForNoReferences)
{
    SInt16 item = 0;
    char byte = 'a';
    char* pointer = &byte;
    {
        TracedCall call("Call", &item, &pointer, static_cast<SInt16*>(nullptr));
        item = -3;
        call.gives(OSStatus(noErr));
    }
    EXPECT_EQ(m_lines.back().substr(m_lines.back().find(" = ")), " = 0 -> -3");
}

void procedure() { }

TEST_F(Trace, TellsProceduresStructuresAndWhatFunctionsReturn)
{
    struct Structure {
        int field;
    };
    using Procedure = void (*)();
    const auto text = [] { return std::string("text"); };
    EXPECT_EQ(traced(&procedure, Procedure(nullptr), Structure{1}, text), "Call(procedure, null, ..., text)");
}

}  // namespace
