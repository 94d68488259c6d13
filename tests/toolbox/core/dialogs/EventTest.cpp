#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <cstring>

namespace {

using Toolbox::Event;

// The bytes 1, 2, 3 and so on, as the parameter 'demo' of type 'byts'.
Toolbox::EventParameter demo(std::size_t size)
{
    Toolbox::EventParameter parameter{'demo', 'byts', {}};
    for (std::size_t i = 1; i <= size; ++i)
        parameter.bytes.push_back(static_cast<UInt8>(i));
    return parameter;
}

class EventParameters : public WindowTest { };

TEST_F(EventParameters, KnowTheClassAndKindOfTheirEvent)
{
    const Event event('clss', 3, {});
    EXPECT_EQ(GetEventClass(event.ref()), UInt32{'clss'});
    EXPECT_EQ(GetEventKind(event.ref()), 3u);
}

struct SizeCase {
    const char* name;
    UInt32 asked;
    std::vector<UInt8> got;  // of a buffer of six nines
};

const SizeCase SIZE_CASES[] = {
    {"None", 0, {9, 9, 9, 9, 9, 9}},
    {"One", 1, {1, 9, 9, 9, 9, 9}},
    {"OneLess", 3, {1, 2, 3, 9, 9, 9}},
    {"Exactly", 4, {1, 2, 3, 4, 9, 9}},
    {"OneMore", 5, {1, 2, 3, 4, 9, 9}},
    {"TwoMore", 6, {1, 2, 3, 4, 9, 9}},
};

class EventParameterSize : public WindowTest, public testing::WithParamInterface<SizeCase> { };

TEST_P(EventParameterSize, CopiesNoMoreThanIsAskedForAndTellsTheFullSize)
{
    const Event event('clss', 1, {demo(4)});
    std::vector<UInt8> buffer(6, 9);
    EventParamType type = 0;
    UInt32 size = 0;
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', &type, GetParam().asked, &size, buffer.data()), noErr);
    EXPECT_EQ(buffer, GetParam().got);
    EXPECT_EQ(type, EventParamType{'byts'});
    EXPECT_EQ(size, 4u);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EventParameterSize, testing::ValuesIn(SIZE_CASES), [](const auto& row) { return row.param.name; });

TEST_F(EventParameters, AreAskedForByNameAndType)
{
    const Event event('clss', 1, {demo(4)});
    UInt32 size = 99;
    UInt8 byte = 9;
    EXPECT_EQ(GetEventParameter(event.ref(), 'omed', 'byts', nullptr, 1, &size, &byte), eventParameterNotFoundErr);
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'styb', nullptr, 1, &size, &byte), eventParameterNotFoundErr);
    EXPECT_EQ(size, 99u);
    EXPECT_EQ(byte, 9);
}

TEST_F(EventParameters, CanBeMeasuredWithoutABuffer)
{
    const Event event('clss', 1, {demo(4)});
    UInt32 size = 0;
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', nullptr, 0, &size, nullptr), noErr);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', nullptr, 1, &size, nullptr), paramErr);
}

TEST_F(EventParameters, OfAWrongEventGiveAnError)
{
    const EventRef dead = [] { return Event('clss', 1, {demo(4)}).ref(); }();
    for (const EventRef wrong : {EventRef(), dead}) {
        UInt8 byte = 9;
        EXPECT_EQ(GetEventParameter(wrong, 'demo', 'byts', nullptr, 1, nullptr, &byte), paramErr);
        EXPECT_EQ(byte, 9);
        EXPECT_EQ(GetEventClass(wrong), 0u);
        EXPECT_EQ(GetEventKind(wrong), 0u);
    }
}

// ---- Commands as parameters

// The answer of each size of buffer that a handler may have: the target's 14 bytes, and this machine's.
TEST_F(EventParameters, CarryACommandInItsFullSize)
{
    TestWindow made;
    Toolbox::Control& button = made.addButton('ok  ');
    static UInt32 full;
    static HICommand head;
    full = 0;
    std::memset(&head, 0xEE, sizeof head);
    const auto handler = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        return GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, 14, &full, &head);
    };
    ASSERT_EQ(InstallEventHandler(made.target(), NewEventHandlerUPP(handler), 1, COMMANDS, nullptr, nullptr), noErr);
    runWhile(made.ref, [&] { Toolbox::pressControl(button); });
    EXPECT_EQ(full, sizeof(HICommand));
    EXPECT_EQ(head.attributes, UInt32{kHICommandFromControl});
    EXPECT_EQ(head.commandID, UInt32{kHICommandOK});
}

TEST_F(EventParameters, AreGoneWhenTheEventWasSent)
{
    TestWindow made;
    Toolbox::Control& button = made.addButton('ok  ');
    static EventRef kept;
    const auto handler = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        kept = event;
        return noErr;
    };
    ASSERT_EQ(InstallEventHandler(made.target(), handler, 1, COMMANDS, nullptr, nullptr), noErr);
    runWhile(made.ref, [&] { Toolbox::pressControl(button); });
    HICommand command{};
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(
        GetEventParameter(kept, kEventParamDirectObject, typeHICommand, nullptr, sizeof command, nullptr, &command),
        paramErr);
    EXPECT_EQ(GetEventClass(kept), 0u);
}

}  // namespace
