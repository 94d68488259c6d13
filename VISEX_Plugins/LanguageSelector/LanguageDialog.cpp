// The dialog in which the person installing picks the language of the installation: LanguageSelector, which, as an
// entry of the external, is declared in LanguageSelector.h.

#include "UI/MessageBox.h"
#include "VISEX_Plugins/LanguageSelector/HostContract.h"
#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "Velbase/common/common_string.h"

#include <Carbon/Carbon.h>

#include <cstddef>

namespace {

// What the dialog and its handler share, for as long as the modal loop runs.
struct LanguageDialogState {
    WindowRef window;
    UInt32 accepted;       // 1 after OK, 0 after Cancel
    UInt32 selectedIndex;  // of the pop-up's item, from 0
};

static_assert(offsetof(LanguageDialogState, window) == 0, "word 1");
static_assert(offsetof(LanguageDialogState, accepted) == sizeof(void*), "word 2");
static_assert(offsetof(LanguageDialogState, selectedIndex) == sizeof(void*) + 4, "word 3");
static_assert(sizeof(LanguageDialogState::accepted) == 4, "a whole word");
static_assert(sizeof(LanguageDialogState::selectedIndex) == 4, "a whole word");
static_assert(sizeof(LanguageDialogState) == sizeof(void*) + 8, "three words");

const ControlID POPUP = {POPUP_SIGNATURE, POPUP_ID};

// How much of the command parameter is asked for: the size that clang gives HICommand for the target. GCC makes it 16
// there, as it raises a packed record's alignment to its first field's. The command's ID lies within these 14
// everywhere.
const UInt32 COMMAND_SIZE = 14;
static_assert(COMMAND_SIZE <= sizeof(HICommand), "what is asked for fits");
static_assert(offsetof(HICommand, commandID) + sizeof(UInt32) <= COMMAND_SIZE, "the command's ID is part of it");

UInt32 indexOfLanguage(UInt32 code)
{
    UInt32 index = 0;
    for (const MenuLanguage& language : MENU_LANGUAGES) {
        if (language.code == code)
            return index;
        ++index;
    }
    return 0;
}

UInt16 languageAtIndex(UInt32 index)
{
    for (const MenuLanguage& language : MENU_LANGUAGES) {
        if (index == 0)
            return language.code;
        --index;
    }
    return MENU_LANGUAGES[0].code;
}

// The control of `window` with this signature and number; null if there is none. It is there for controls to come: the
// pop-up, the only one so far, is looked up where it is needed, whatever becomes of the look-up.
[[maybe_unused]] ControlRef getNativeDialogControlRef(WindowRef window, OSType signature, unsigned id)
{
    const ControlID controlID = {signature, static_cast<SInt32>(id)};
    ControlRef control = nullptr;
    return GetControlByID(window, &controlID, &control) == noErr ? control : nullptr;
}

// Takes the commands of the two buttons, in the modal loop; `userData` is the dialog's state. Everything else is passed
// on.
OSStatus dialogEventProcessor(EventHandlerCallRef, EventRef event, void* userData)
{
    if (userData == nullptr)
        return eventNotHandledErr;
    if (GetEventClass(event) != kEventClassCommand || GetEventKind(event) != kEventCommandProcess)
        return eventNotHandledErr;

    HICommand command = {};
    if (GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, COMMAND_SIZE, nullptr, &command)
        != noErr)
        return eventNotHandledErr;
    if (command.commandID != COMMAND_OK && command.commandID != COMMAND_CANCEL)
        return eventNotHandledErr;

    LanguageDialogState& state = *static_cast<LanguageDialogState*>(userData);
    const bool accepted = command.commandID == COMMAND_OK;
    state.accepted = accepted ? 1 : 0;
    if (accepted) {
        ControlRef popup = nullptr;
        if (GetControlByID(state.window, &POPUP, &popup) != noErr)
            popup = nullptr;
        const SInt32 item = GetControl32BitValue(popup);
        if (item > 0)
            state.selectedIndex = static_cast<UInt32>(item - 1);
    }
    QuitAppModalLoopForWindow(state.window);
    return noErr;
}

void showError(const char* message)
{
    UI::MessageOK(nullptr, String("Language Selector Error"), String(message), false);
}

// The dialog's window, not shown yet; null, after an error box, if there is none.
WindowRef createDialogWindow()
{
    // Looked for in the main bundle, the installer's, which carries the nib.
    IBNibRef nib = nullptr;
    if (CreateNibReference(nibName(), &nib) != noErr) {
        showError("Can't find Nib Reference");
        return nullptr;
    }
    WindowRef window = nullptr;
    if (CreateWindowFromNib(nib, windowName(), &window) != noErr || window == nullptr) {
        showError("Can't create windows from Nib");
        return nullptr;
    }
    DisposeNibReference(nib);
    return window;
}

// Runs the window until a button ends it, and disposes of it. False, after an error box, if it could not run; the
// window is left as it is then.
bool runDialog(LanguageDialogState& state)
{
    const EventHandlerUPP handler = NewEventHandlerUPP(dialogEventProcessor);
    const EventTypeSpec commands = {kEventClassCommand, kEventCommandProcess};
    if (InstallEventHandler(GetWindowEventTarget(state.window), handler, 1, &commands, &state, nullptr) != noErr) {
        showError("Can't install window event handler");
        return false;
    }
    ShowWindow(state.window);
    if (RunAppModalLoopForWindow(state.window) != noErr) {
        showError("Can't run modal loop for window");
        return false;
    }
    HideWindow(state.window);
    DisposeWindow(state.window);
    DisposeEventHandlerUPP(handler);
    return true;
}

void executeSelectLanguage(ExternParmBlock* block)
{
    const WindowRef window = createDialogWindow();
    if (window == nullptr)
        return;

    // The pop-up's items count from 1. Without a pop-up this sets the value of no control, which does nothing.
    const UInt32 index = indexOfLanguage(block->currentLanguage);
    ControlRef popup = nullptr;
    if (GetControlByID(window, &POPUP, &popup) != noErr)
        popup = nullptr;
    SetControl32BitValue(popup, static_cast<SInt32>(index + 1));

    LanguageDialogState state = {window, 0, index};
    if (runDialog(state) && state.accepted != 0)
        block->chosenLanguage = languageAtIndex(state.selectedIndex);
}

}  // namespace

void LanguageSelector(ExternParmBlock* block)
{
    if (block != nullptr)
        executeSelectLanguage(block);
}
