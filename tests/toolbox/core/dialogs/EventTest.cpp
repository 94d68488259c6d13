#include "toolbox/core/dialogs/Event.h"

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <Toolbox/Trace.h>

#include <cstdint>
#include <cstring>
#include <regex>

namespace {

using Toolbox::Event;
using Toolbox::sendEvent;

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

TEST_F(EventParameters, TellTheTraceTheCommand)
{
    HICommand command{};
    command.commandID = 'butt';
    std::vector<UInt8> bytes(sizeof command);
    std::memcpy(bytes.data(), &command, sizeof command);
    const auto nameWith = [](const std::vector<Toolbox::EventParameter>& parameters) {
        const Event event(kEventClassCommand, kEventCommandProcess, parameters);
        return std::regex_replace(event.traceName(), std::regex("\\d+"), "N");
    };
    EXPECT_EQ(nameWith({{kEventParamDirectObject, typeHICommand, bytes}}), "event#N 'butt'");
    EXPECT_EQ(nameWith({{kEventParamDirectObject, typeHICommand, {1, 2}}}), "event#N");
    EXPECT_EQ(nameWith({{kEventParamDirectObject, 'long', bytes}}), "event#N");
    EXPECT_EQ(nameWith({}), "event#N");
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

// ---- Installing

OSStatus ignore(EventHandlerCallRef, EventRef, void*)
{
    return eventNotHandledErr;
}

OSStatus take(EventHandlerCallRef, EventRef, void*)
{
    return noErr;
}

class EventHandlers : public WindowTest { };

TEST_F(EventHandlers, AreInstalledOnTheTargetOfAWindow)
{
    const TestWindow made;
    EventHandlerRef installed = nullptr;
    EXPECT_EQ(InstallEventHandler(made.target(), ignore, 1, COMMANDS, nullptr, &installed), noErr);
    EXPECT_NE(installed, nullptr);
    EXPECT_EQ(InstallEventHandler(made.target(), take, 1, COMMANDS, nullptr, nullptr), noErr);
}

TEST_F(EventHandlers, HaveNoTargetInAWrongWindow)
{
    const WindowRef dead = [] { return TestWindow().ref; }();
    EXPECT_EQ(GetWindowEventTarget(nullptr), nullptr);
    EXPECT_EQ(GetWindowEventTarget(dead), nullptr);
}

TEST_F(EventHandlers, AreRefusedWithWrongArguments)
{
    const TestWindow made;
    const EventTargetRef dead = [] { return TestWindow().target(); }();
    const struct {
        const char* name;
        EventTargetRef target;
        EventHandlerUPP handler;
        const EventTypeSpec* types;
    } rows[] = {
        {"null target", nullptr, ignore, COMMANDS},
        {"dead target", dead, ignore, COMMANDS},
        {"window for a target", reinterpret_cast<EventTargetRef>(made.ref), ignore, COMMANDS},
        {"null procedure", made.target(), nullptr, COMMANDS},
        {"null list", made.target(), ignore, nullptr},
    };
    for (const auto& row : rows) {
        EventHandlerRef installed = reinterpret_cast<EventHandlerRef>(std::uintptr_t{1});
        EXPECT_EQ(InstallEventHandler(row.target, row.handler, 1, row.types, nullptr, &installed), paramErr)
            << row.name;
        EXPECT_EQ(installed, nullptr) << row.name;
    }
    EXPECT_TRUE(made.window().target.handlers.empty());
}

TEST_F(EventHandlers, OfOneProcedureStandOnceForEachEventOfATarget)
{
    const TestWindow made;
    const TestWindow other;
    const EventTypeSpec two[] = {{'clss', 1}, {'clss', 2}};
    const EventTypeSpec nextTwo[] = {{'clss', 3}, {'clss', 2}};
    int data = 0;
    ASSERT_EQ(InstallEventHandler(made.target(), ignore, 2, two, nullptr, nullptr), noErr);
    EventHandlerRef installed = nullptr;
    EXPECT_EQ(InstallEventHandler(made.target(), ignore, 1, two, &data, &installed), eventHandlerAlreadyInstalledErr);
    EXPECT_EQ(
        InstallEventHandler(made.target(), ignore, 2, nextTwo, nullptr, nullptr), eventHandlerAlreadyInstalledErr);
    EXPECT_EQ(installed, nullptr);
    EXPECT_EQ(InstallEventHandler(made.target(), ignore, 1, nextTwo, nullptr, nullptr), noErr) << "another event";
    EXPECT_EQ(InstallEventHandler(made.target(), take, 2, two, nullptr, nullptr), noErr) << "another procedure";
    EXPECT_EQ(InstallEventHandler(other.target(), ignore, 2, two, nullptr, nullptr), noErr) << "another target";
}

TEST_F(EventHandlers, ForNoEventGetNone)
{
    const TestWindow made;
    EXPECT_EQ(InstallEventHandler(made.target(), take, 0, COMMANDS, nullptr, nullptr), noErr);
    EXPECT_EQ(sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target), eventNotHandledErr);
}

TEST_F(EventHandlers, AreTheirOwnUniversalProcedurePointers)
{
    const EventHandlerUPP upp = NewEventHandlerUPP(take);
    EXPECT_EQ(upp, &take);
    const TestWindow made;
    ASSERT_EQ(InstallEventHandler(made.target(), upp, 1, COMMANDS, nullptr, nullptr), noErr);
    DisposeEventHandlerUPP(upp);
    EXPECT_EQ(sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target), noErr);
}

// ---- Sending

// Handlers that note their number. Each is a procedure of its own, since one stands only once on a target.
std::vector<int> called;
OSStatus answers[3];

template <int NUMBER> OSStatus numbered(EventHandlerCallRef, EventRef, void*)
{
    called.push_back(NUMBER);
    return answers[NUMBER];
}

struct ChainCase {
    const char* name;
    OSStatus answers[3];  // of the handlers in the order in which they were installed
    std::vector<int> called;
    OSStatus result;
};

// clang-format off
const ChainCase CHAIN_CASES[] = {
    // name                answers of 0, 1, 2                                         called     result
    {"NobodyTakesIt",      {eventNotHandledErr, eventNotHandledErr, eventNotHandledErr}, {2, 1, 0}, eventNotHandledErr},
    {"TheNewestTakesIt",   {noErr, noErr, noErr},                                        {2},       noErr},
    {"TheMiddleTakesIt",   {noErr, noErr, eventNotHandledErr},                           {2, 1},    noErr},
    {"TheOldestTakesIt",   {noErr, eventNotHandledErr, eventNotHandledErr},              {2, 1, 0}, noErr},
    {"AnErrorEndsItToo",   {noErr, paramErr, eventNotHandledErr},                        {2, 1},    paramErr},
    {"APositiveOneAsWell", {noErr, 7, eventNotHandledErr},                               {2, 1},    7},
};
// clang-format on

class EventChain : public WindowTest, public testing::WithParamInterface<ChainCase> { };

TEST_P(EventChain, GoesFromTheNewestToTheOldest)
{
    called.clear();
    std::copy(std::begin(GetParam().answers), std::end(GetParam().answers), answers);
    const TestWindow made;
    for (const EventHandlerProcPtr procedure : {numbered<0>, numbered<1>, numbered<2>})
        ASSERT_EQ(InstallEventHandler(made.target(), procedure, 1, COMMANDS, nullptr, nullptr), noErr);
    EXPECT_EQ(sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target), GetParam().result);
    EXPECT_EQ(called, GetParam().called);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, EventChain, testing::ValuesIn(CHAIN_CASES), [](const auto& row) { return row.param.name; });

TEST_F(EventHandlers, GetTheEventsThatTheyWereInstalledForAlone)
{
    called.clear();
    answers[0] = noErr;
    const TestWindow made;
    const EventTypeSpec types[] = {{'clss', 1}, {'ssal', 2}};
    ASSERT_EQ(InstallEventHandler(made.target(), numbered<0>, 2, types, nullptr, nullptr), noErr);
    const struct {
        UInt32 eventClass, kind;
        OSStatus result;
    } rows[] = {{'clss', 1, noErr}, {'ssal', 2, noErr}, {'clss', 2, eventNotHandledErr},
        {'ssal', 1, eventNotHandledErr}, {'othr', 1, eventNotHandledErr}};
    for (const auto& row : rows)
        EXPECT_EQ(sendEvent(Event(row.eventClass, row.kind, {}), made.window().target), row.result);
    EXPECT_EQ(called.size(), 2u);
}

TEST_F(EventHandlers, GetTheirUserData)
{
    const TestWindow made;
    int data = 0;
    const auto count = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        ++*static_cast<int*>(userData);
        return noErr;
    };
    ASSERT_EQ(InstallEventHandler(made.target(), count, 1, COMMANDS, &data, nullptr), noErr);
    sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target);
    EXPECT_EQ(data, 1);
}

TEST_F(EventHandlers, CallTheToolboxAsIfFromOutside)
{
    TestWindow made;
    Toolbox::Control& button = made.addButton('butt');
    const auto askForTheKind = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        return static_cast<OSStatus>(GetEventKind(event));
    };
    ASSERT_EQ(InstallEventHandler(made.target(), askForTheKind, 1, COMMANDS, nullptr, nullptr), noErr);
    std::vector<std::string> calls;
    runWhile(made.ref, [&] {
        Toolbox::SetTrace([&calls](const std::string& line) { calls.push_back(line.substr(0, line.find('('))); });
        Toolbox::pressControl(button);
        Toolbox::SetTrace(nullptr);
    });
    EXPECT_EQ(calls, std::vector<std::string>{"GetEventKind"});
}

// ---- What a handler may do while it is called

TEST_F(EventHandlers, MayInstallOthersWhichDoNotGetThePresentEvent)
{
    called.clear();
    answers[0] = answers[1] = eventNotHandledErr;
    const TestWindow made;
    const auto installMore = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        const EventTargetRef target = static_cast<EventTargetRef>(userData);
        InstallEventHandler(target, numbered<1>, 1, COMMANDS, nullptr, nullptr);
        return eventNotHandledErr;
    };
    ASSERT_EQ(InstallEventHandler(made.target(), numbered<0>, 1, COMMANDS, nullptr, nullptr), noErr);
    ASSERT_EQ(InstallEventHandler(made.target(), installMore, 1, COMMANDS, made.target(), nullptr), noErr);
    const Event event(kEventClassCommand, kEventCommandProcess, {});
    sendEvent(event, made.window().target);
    EXPECT_EQ(called, std::vector<int>{0});
    sendEvent(event, made.window().target);
    EXPECT_EQ(called, (std::vector<int>{0, 1, 0}));
}

TEST_F(EventHandlers, MayDisposeOfTheWindowWhoseOtherHandlersAreThenLeftOut)
{
    called.clear();
    answers[0] = noErr;
    const TestWindow made;
    const auto dispose = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        DisposeWindow(static_cast<WindowRef>(userData));
        return eventNotHandledErr;
    };
    ASSERT_EQ(InstallEventHandler(made.target(), numbered<0>, 1, COMMANDS, nullptr, nullptr), noErr);
    ASSERT_EQ(InstallEventHandler(made.target(), dispose, 1, COMMANDS, made.ref, nullptr), noErr);
    EXPECT_EQ(sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target), eventNotHandledErr);
    EXPECT_TRUE(called.empty());
}

}  // namespace
