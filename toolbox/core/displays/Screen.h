// Whether there is a screen, found out without risk: Qt ends the process when it finds none.

#ifndef TOOLBOX_CORE_DISPLAYS_SCREEN_H
#define TOOLBOX_CORE_DISPLAYS_SCREEN_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace Toolbox {

/// Whether Qt can use `platform` (ScreenLibrary.h), tried in a process of its own, which is ended when it waits
/// for longer than two seconds without computing, or takes a minute.
bool platformAnswers(const QByteArray& platform);

/// The platform on which windows can be shown: the one that the user's QT_QPA_PLATFORM names, else Wayland where there
/// is a session of it, else X. Nothing, with the reason in `*problem`, when none answers.
std::optional<QByteArray> answeringPlatform(QString* problem);

}  // namespace Toolbox

#endif
