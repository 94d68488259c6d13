#include "toolbox/core/dialogs/Event.h"

#include "tests/toolbox/core/dialogs/TestWindow.h"

#include <Toolbox/Trace.h>

#include <cstdint>
#include <cstring>
#include <regex>
#include <tuple>
#include <utility>

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

class EventHandlers : public WindowTest {
protected:
    // Installs `handler` for commands.
    OSStatus install(EventHandlerUPP handler, void* userData = nullptr) const
    {
        return InstallEventHandler(made.target(), handler, 1, COMMANDS, userData, nullptr);
    }

    OSStatus sendCommand() const
    {
        return sendEvent(Event(kEventClassCommand, kEventCommandProcess, {}), made.window().target);
    }

    TestWindow made;
};

using EventParameters = EventHandlers;

TEST_F(EventParameters, AreCopiedNoFurtherThanAskedForAndTellTheirFullSize)
{
    const Event event('clss', 1, {demo(4)});
    // got: of a buffer of six nines
    const std::pair<UInt32, std::vector<UInt8>> rows[] = {{0, {9, 9, 9, 9, 9, 9}}, {1, {1, 9, 9, 9, 9, 9}},
        {3, {1, 2, 3, 9, 9, 9}}, {4, {1, 2, 3, 4, 9, 9}}, {5, {1, 2, 3, 4, 9, 9}}, {6, {1, 2, 3, 4, 9, 9}}};
    for (const auto& [asked, got] : rows) {
        std::vector<UInt8> buffer(6, 9);
        EventParamType type = 0;
        UInt32 size = 0;
        EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', &type, asked, &size, buffer.data()), noErr);
        EXPECT_EQ(buffer, got);
        EXPECT_EQ(type, EventParamType{'byts'});
        EXPECT_EQ(size, 4u);
    }
    UInt32 size = 0;
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', nullptr, 0, &size, nullptr), noErr);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'byts', nullptr, 1, &size, nullptr), paramErr);
}

TEST_F(EventParameters, AreAskedForByNameAndTypeBesideClassAndKind)
{
    const Event event('clss', 3, {demo(4)});
    EXPECT_EQ(GetEventClass(event.ref()), UInt32{'clss'});
    EXPECT_EQ(GetEventKind(event.ref()), 3u);
    UInt32 size = 99;
    UInt8 byte = 9;
    EXPECT_EQ(GetEventParameter(event.ref(), 'omed', 'byts', nullptr, 1, &size, &byte), eventParameterNotFoundErr);
    EXPECT_EQ(GetEventParameter(event.ref(), 'demo', 'styb', nullptr, 1, &size, &byte), eventParameterNotFoundErr);
    EXPECT_EQ(size, 99u);
    EXPECT_EQ(byte, 9);
}

// ---- Commands as parameters

// The answer of each size of buffer that a handler may have: the target's 14 bytes, and this machine's.
TEST_F(EventParameters, CarryACommandInItsFullSize)
{
    Toolbox::Control& button = made.addButton('ok  ');
    static UInt32 full;
    static HICommand head;
    full = 0;
    std::memset(&head, 0xEE, sizeof head);
    const auto handler = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        return GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, 14, &full, &head);
    };
    ASSERT_EQ(install(NewEventHandlerUPP(handler)), noErr);
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

// ---- Installing

OSStatus ignore(EventHandlerCallRef, EventRef, void*)
{
    return eventNotHandledErr;
}

OSStatus take(EventHandlerCallRef, EventRef, void*)
{
    return noErr;
}

TEST_F(EventHandlers, AreRefusedWithWrongArguments)
{
    const std::tuple<const char*, EventTargetRef, EventHandlerUPP, const EventTypeSpec*> rows[] = {
        {"dead target", [] { return TestWindow().target(); }(), ignore, COMMANDS},
        {"null procedure", made.target(), nullptr, COMMANDS},
        {"null list", made.target(), ignore, nullptr},
    };
    for (const auto& [name, target, handler, types] : rows) {
        SCOPED_TRACE(name);
        EventHandlerRef installed = reinterpret_cast<EventHandlerRef>(std::uintptr_t{1});
        EXPECT_EQ(InstallEventHandler(target, handler, 1, types, nullptr, &installed), paramErr);
        EXPECT_EQ(installed, nullptr);
    }
    EXPECT_TRUE(made.window().target.handlers.empty());
}

TEST_F(EventHandlers, OfOneProcedureStandOnceForEachEventOfATarget)
{
    const TestWindow other;
    const EventTypeSpec two[] = {{'clss', 1}, {'clss', 2}};
    const EventTypeSpec nextTwo[] = {{'clss', 3}, {'clss', 2}};
    int data = 0;
    EventHandlerRef installed = nullptr;
    ASSERT_EQ(InstallEventHandler(made.target(), ignore, 2, two, nullptr, &installed), noErr);
    EXPECT_NE(installed, nullptr);
    EXPECT_EQ(InstallEventHandler(made.target(), ignore, 1, two, &data, &installed), eventHandlerAlreadyInstalledErr);
    EXPECT_EQ(
        InstallEventHandler(made.target(), ignore, 2, nextTwo, nullptr, nullptr), eventHandlerAlreadyInstalledErr);
    EXPECT_EQ(installed, nullptr);
    EXPECT_EQ(InstallEventHandler(made.target(), ignore, 1, nextTwo, nullptr, nullptr), noErr) << "another event";
    EXPECT_EQ(InstallEventHandler(made.target(), take, 2, two, nullptr, nullptr), noErr) << "another procedure";
    EXPECT_EQ(InstallEventHandler(other.target(), ignore, 2, two, nullptr, nullptr), noErr) << "another target";
}

TEST_F(EventHandlers, AreTheirOwnUniversalProcedurePointersAndForNoEventGetNone)
{
    EXPECT_EQ(InstallEventHandler(made.target(), take, 0, COMMANDS, nullptr, nullptr), noErr);
    EXPECT_EQ(sendCommand(), eventNotHandledErr);
    const EventHandlerUPP upp = NewEventHandlerUPP(take);
    EXPECT_EQ(upp, &take);
    ASSERT_EQ(install(upp), noErr);
    DisposeEventHandlerUPP(upp);
    EXPECT_EQ(sendCommand(), noErr);
}

// ---- Sending

// Handlers that note their number. Each is a procedure of its own, since one stands only once on a target.
std::vector<int> called;
OSStatus results[3];

template <int NUMBER> OSStatus numbered(EventHandlerCallRef, EventRef, void*)
{
    called.push_back(NUMBER);
    return results[NUMBER];
}

TEST_F(EventHandlers, AreAskedFromTheNewestToTheOldestUntilOneTakesTheEvent)
{
    const OSStatus no = eventNotHandledErr;
    const struct {
        const char* name;
        OSStatus answers[3];  // of the handlers in the order in which they were installed
        std::vector<int> called;
        OSStatus result;
    } rows[] = {
        {"nobody", {no, no, no}, {2, 1, 0}, no},
        {"the newest", {noErr, noErr, noErr}, {2}, noErr},
        {"the middle", {noErr, noErr, no}, {2, 1}, noErr},
        {"the oldest", {noErr, no, no}, {2, 1, 0}, noErr},
        {"an error ends it too", {noErr, paramErr, no}, {2, 1}, paramErr},
        {"a positive one as well", {noErr, 7, no}, {2, 1}, 7},
    };
    for (const EventHandlerProcPtr procedure : {numbered<0>, numbered<1>, numbered<2>})
        ASSERT_EQ(install(procedure), noErr);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        called.clear();
        std::copy(std::begin(row.answers), std::end(row.answers), results);
        EXPECT_EQ(sendCommand(), row.result);
        EXPECT_EQ(called, row.called);
    }
}

TEST_F(EventHandlers, GetTheEventsThatTheyWereInstalledForAlone)
{
    const EventTypeSpec types[] = {{'clss', 1}, {'ssal', 2}};
    ASSERT_EQ(InstallEventHandler(made.target(), take, 2, types, nullptr, nullptr), noErr);
    const auto send = [&](UInt32 eventClass, UInt32 kind) {
        return sendEvent(Event(eventClass, kind, {}), made.window().target);
    };
    EXPECT_EQ(send('clss', 1), noErr);
    EXPECT_EQ(send('ssal', 2), noErr);
    EXPECT_EQ(send('clss', 2), eventNotHandledErr);
    EXPECT_EQ(send('ssal', 1), eventNotHandledErr);
    EXPECT_EQ(send('othr', 1), eventNotHandledErr);
}

TEST_F(EventHandlers, CallTheToolboxAsIfFromOutside)
{
    Toolbox::Control& button = made.addButton('butt');
    const auto askForTheKind = [](EventHandlerCallRef, EventRef event, void*) -> OSStatus {
        return static_cast<OSStatus>(GetEventKind(event));
    };
    ASSERT_EQ(install(askForTheKind), noErr);
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
    results[0] = results[1] = eventNotHandledErr;
    const auto installMore = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        const EventTargetRef target = static_cast<EventTargetRef>(userData);
        InstallEventHandler(target, numbered<1>, 1, COMMANDS, nullptr, nullptr);
        return eventNotHandledErr;
    };
    ASSERT_EQ(install(numbered<0>), noErr);
    ASSERT_EQ(install(installMore, made.target()), noErr);
    sendCommand();
    EXPECT_EQ(called, std::vector<int>{0});
    sendCommand();
    EXPECT_EQ(called, (std::vector<int>{0, 1, 0}));
}

TEST_F(EventHandlers, MayDisposeOfTheWindowWhoseOtherHandlersAreThenLeftOut)
{
    called.clear();
    results[0] = noErr;
    const auto dispose = [](EventHandlerCallRef, EventRef, void* userData) -> OSStatus {
        DisposeWindow(static_cast<WindowRef>(userData));
        return eventNotHandledErr;
    };
    ASSERT_EQ(install(numbered<0>), noErr);
    ASSERT_EQ(install(dispose, made.ref), noErr);
    EXPECT_EQ(sendCommand(), eventNotHandledErr);
    EXPECT_TRUE(called.empty());
}

}  // namespace
