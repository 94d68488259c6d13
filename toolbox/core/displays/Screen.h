// Whether there is a screen, found out without risk: Qt ends the process when it finds none.

#ifndef TOOLBOX_CORE_DISPLAYS_SCREEN_H
#define TOOLBOX_CORE_DISPLAYS_SCREEN_H

#include <QByteArray>

namespace Toolbox {

/// Whether Qt can use `platform` (ScreenLibrary.h), tried in a process of its own, which is ended when it waits
/// for longer than two seconds without computing, or takes a minute.
bool platformAnswers(const QByteArray& platform);

}  // namespace Toolbox

#endif
