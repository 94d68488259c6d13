// The dialog in which the person installing picks the language of the installation.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_LANGUAGEDIALOG_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_LANGUAGEDIALOG_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

/// Runs the dialog: shows `block`'s current language in the pop-up and, if the person presses OK, stores the one chosen
/// as `block`'s chosen language. After Cancel nothing is stored. A language that the pop-up does not have counts as
/// English. `block` must not be null.
///
/// A failure is shown in a message box, ends the dialog where it stands and stores nothing. What has been made by then
/// is not taken down: without a window the nib stays open; without a handler the hidden window and the procedure
/// pointer stay; without a modal loop the shown window, its handler (whose state is gone) and the procedure pointer.
void executeSelectLanguage(ExternParmBlock* block);

#endif
