// What an installer written in C tells the toolbox and asks of it. For C++ there is more, in Application.h, Displays.h
// and CallReport.h. Texts are UTF-8. No argument may be null.

#ifndef TOOLBOX_CINTERFACE_H
#define TOOLBOX_CINTERFACE_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

/// Toolbox::SetMainBundle: the bundle of the application, which carries the nib. False when there is no such folder.
Boolean ToolboxSetMainBundle(const char* folder);

/// Toolbox::SetFrameworksFolder: where Security.framework is.
void ToolboxSetFrameworksFolder(const char* folder);

/// Shows things in windows where a screen answers, else on a terminal that does; false where there is neither, with
/// nothing changed. Until then what is shown is confirmed as it stands, and nobody sees it.
Boolean ToolboxAskTheUser(void);

/// Takes Toolbox::TakeReport's report of what went wrong, and calls `tell` with each line of it.
void ToolboxTellReport(void (*tell)(const char* line));

CARBON_FUNCTIONS_END

#endif
