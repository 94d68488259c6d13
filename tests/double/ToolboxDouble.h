// The test double of the toolbox: the platform's functions that the external, UI and util call, to be linked in the
// toolbox's place.
//
// It writes down every call, makes the calls fail that a test names, plays the person in front of the dialog, and tells
// what is left behind. It is harsher than the platform: out-parameters hold a wrong reference after a failure, a
// procedure pointer is not the procedure, and blocks that are not locked move at every call but BlockMoveData.
//
// What has been disposed of, or has moved, keeps its memory until Reset, full of bytes 0xDB.

#ifndef TESTS_DOUBLE_TOOLBOXDOUBLE_H
#define TESTS_DOUBLE_TOOLBOXDOUBLE_H

#include <Carbon/Carbon.h>

#include <functional>
#include <string>
#include <vector>

namespace ToolboxDouble {

/// Forgets everything, as for a process that begins. What was handed out must not be used afterwards.
void Reset();

// ---- What happened

/// The calls so far, one line each: `Function(argument, argument) = result -> what the out-parameters were given`.
/// Calls that were made from inside another, such as those of a handler from inside the modal loop, stand below it and
/// are indented. Objects are named for their kind and numbered: window1; one that has been disposed of is "dead
/// window1", a reference that the double never gave is "unknown". Buffers to be filled are not among the arguments, and
/// constant strings make no line, as they make no call on the platform.
std::string Log();

/// Begins a new log.
void ClearLog();

/// What somebody would still have to release or dispose of, in the order in which it was made: "nib1\nwindow1 shown\n".
std::string LeftBehind();

/// Whether one of the double's functions is being called, and no handler from inside it: whose allocations are made.
bool IsAtWork();

/// The item that the pop-up showed when the modal loop began; 0 if none began.
SInt32 ItemShown();

// ---- What goes wrong

/// The occurrence that stands for every one.
const int EVERY_CALL = 0;

/// Makes a call of `function` fail: the first for 1, or EVERY_CALL. It has no effect then and returns `result`; what
/// returns a pointer or a Boolean gives null or false. A `result` of 0 is a success that has brought about nothing.
/// Functions that have no way to fail on the platform do not fail.
void FailCall(const std::string& function, long result = 0, int occurrence = EVERY_CALL);

// ---- What the platform holds

/// Puts a resource into the chain. Its block can be read past the end, as zeros, up to a slack of 1,024 bytes.
void ProvideResource(ResType type, SInt16 id, const std::vector<UInt8>& data);

/// The word of which new blocks of the Memory Manager are full; null before.
void FillNewBlocks(const void* word);

// ---- What the person does

/// Something that happens in the modal loop.
struct Act {
    /// The pop-up is set to `item`, from 1. Other numbers are taken too.
    static Act Choose(SInt32 item) { return {Kind::Choose, item}; }

    /// The command `command` is sent to the window's handler.
    static Act Command(UInt32 command) { return {Kind::Send, 0, command}; }

    /// The same, to the handler as if it had been installed without user data.
    static Act CommandWithoutUserData(UInt32 command) { return {Kind::SendWithoutUserData, 0, command}; }

    /// An event of this class and kind is sent to the window's handler, which was not installed for it. It carries the
    /// OK command, in case the handler does not look.
    static Act Event(UInt32 itsClass, UInt32 itsKind) { return {Kind::Send, 0, kHICommandOK, itsClass, itsKind}; }

    /// Somebody else ends the loop.
    static Act Quit() { return {Kind::Quit}; }

    enum class Kind { Choose, Send, SendWithoutUserData, Quit };
    Kind kind;
    SInt32 item = 0;
    UInt32 command = 0;
    UInt32 eventClass = kEventClassCommand;
    UInt32 eventKind = kEventCommandProcess;
};

/// What will happen in the modal loop. It ends as soon as it is told to; when all has happened and it was not, it fails
/// with eventInternalErr.
void InModalLoop(const std::vector<Act>& acts);

/// The button that every alert will be left with, the one that gives an error too; 1 before. For 0, StandardAlert
/// stores none.
void PressInAlerts(SInt16 button);

/// What happens while StopAlert shows its alert.
void WhenAlerted(const std::function<void()>& action);

}  // namespace ToolboxDouble

#endif
