// Carbon's umbrella: everything of Carbon that the toolbox provides. Like the platform's, it brings Core Foundation.

#ifndef CARBON_CARBON_H
#define CARBON_CARBON_H

#include <Carbon/CarbonEvents.h>
#include <Carbon/Controls.h>
#include <Carbon/Dialogs.h>
#include <Carbon/Files.h>
#include <Carbon/Folders.h>
#include <Carbon/IBCarbonRuntime.h>
#include <Carbon/MacMemory.h>
#include <Carbon/MacTypes.h>
#include <Carbon/MacWindows.h>
#include <Carbon/Resources.h>
#include <Carbon/UnicodeConverter.h>
#include <CoreFoundation/CoreFoundation.h>

enum {
    cfragNoSymbolErr = -2802,
    coreFoundationUnknownErr = -4960,
};

#endif
