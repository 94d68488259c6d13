// The library that shows windows on a screen. It is loaded when it is first needed, and only from beside the core
// library, so that a program that never opens a window runs without it.

#ifndef TOOLBOX_CORE_DISPLAYS_SCREENLIBRARY_H
#define TOOLBOX_CORE_DISPLAYS_SCREENLIBRARY_H

#include "toolbox/core/dialogs/Display.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace Toolbox {

/// What the library gives to the core, as `toolboxScreenLibrary`. A platform is a name by which Qt knows a way to reach
/// a screen; an empty one stands for the one that the user's environment names.
struct ScreenLibrary {
    /// Whether Qt can use `platform` now, and, if the environment names it, somebody sees its windows. Where it cannot,
    /// Qt may end the process or wait for ever, so this is called in a process that is there for nothing else.
    bool (*tryPlatform)(const QByteArray& platform);

    /// A display that shows windows on `platform`, which must be usable.
    std::unique_ptr<Display> (*makeDisplay)(const QByteArray& platform);

    /// Draws `window` as it would be shown, on no screen, and reports the picture (Picture.h).
    void (*drawPicture)(Window& window);

    /// The same of `alert`.
    void (*drawAlertPicture)(const Alert& alert);
};

/// The library, or null with the reason in `*problem`.
const ScreenLibrary* screenLibrary(QString* problem);

}  // namespace Toolbox

#endif
