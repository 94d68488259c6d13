// The picture that SavePicture asked for: one file, of the next window or alert that is run.

#ifndef TOOLBOX_CORE_DISPLAYS_PICTURE_H
#define TOOLBOX_CORE_DISPLAYS_PICTURE_H

#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/dialogs/Window.h"

#include <QString>

#include <optional>

namespace Toolbox {

/// Takes the file that was asked for; nothing when none was, or when it was taken already. The caller then saves the
/// picture and reports with notePictureProblem() what went wrong.
std::optional<QString> takePictureRequest();

/// Reports `problem`, empty for none.
void notePictureProblem(const QString& problem);

/// For a display without a screen: if a picture was asked for, draws `window` as it would be shown on one, and saves
/// it.
void drawRequestedPicture(Window& window);

/// The same of `alert`.
void drawRequestedPicture(const Alert& alert);

}  // namespace Toolbox

#endif
