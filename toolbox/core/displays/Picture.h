// The picture that WantPicture asked for: one, of the next window or alert that is run.

#ifndef TOOLBOX_CORE_DISPLAYS_PICTURE_H
#define TOOLBOX_CORE_DISPLAYS_PICTURE_H

#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/dialogs/Window.h"

#include <QByteArray>
#include <QString>

namespace Toolbox {

/// Whether a picture was asked for and nobody has asked this since. The caller then reports it with notePicture().
bool takePictureRequest();

/// Reports the picture `png`, or why there is none.
void notePicture(const QByteArray& png, const QString& problem);

/// For a display without a screen: if a picture was asked for, draws `window` as it would be shown on one, and reports
/// it.
void drawRequestedPicture(Window& window);

/// The same of `alert`.
void drawRequestedPicture(const Alert& alert);

}  // namespace Toolbox

#endif
