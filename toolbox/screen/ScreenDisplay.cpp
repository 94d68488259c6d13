// What the core library finds in this one: see ScreenLibrary.h.

#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/core/displays/Picture.h"
#include "toolbox/core/displays/ScreenLibrary.h"
#include "toolbox/screen/AlertDialog.h"
#include "toolbox/screen/QtApplication.h"
#include "toolbox/screen/WindowDialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QSaveFile>
#include <QScreen>
#include <QTimer>

namespace Toolbox {

namespace {

// Whole or not at all; returns what went wrong, or nothing.
QString savePicture(QWidget& widget, const QString& name)
{
    // What is saved takes the place of what has the name, and a device or a pipe must not lose its own.
    if (const QFileInfo present(name); present.exists() && !present.isFile())
        return QStringLiteral("it is not a regular file");
    const QPixmap picture = widget.grab();
    if (picture.isNull())
        return QStringLiteral("there is nothing to draw");
    QSaveFile file(name);
    // Flushed before it is committed, which takes no notice when what is still held back cannot be written.
    const bool saved = file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.flush() && file.commit();
    return saved ? QString() : file.errorString();
}

// Shows `dialog`, of which a picture is saved if one was asked for, over the one that is up, which is the one to type
// in again when it has ended: not every window manager, and no screen without one, sees to that.
void runOverOthers(QDialog& dialog)
{
    const std::optional<QString> picture = takePictureRequest();
    if (picture)
        QTimer::singleShot(0, &dialog, [&] { notePictureProblem(savePicture(dialog, *picture)); });
    dialog.exec();
    if (dialog.parentWidget() != nullptr)
        dialog.parentWidget()->activateWindow();
}

class ScreenDisplay : public Display {
public:
    explicit ScreenDisplay(const QByteArray& platform)
        : m_platform(platform)
    {
    }

    bool runWindow(Window& window, QString* problem) override
    {
        const WindowRef ref = window.ref();
        const QtApplication application(m_platform);
        WindowDialog dialog(window, QApplication::activeModalWidget());
        runOverOthers(dialog);
        *problem = QStringLiteral("the screen went away");
        return modalLoopEnded(ref);
    }

    SInt16 runAlert(const Alert& alert) override
    {
        const QtApplication application(m_platform);
        AlertDialog dialog(alert, QApplication::activeModalWidget());
        runOverOthers(dialog);
        return dialog.pressed();
    }

private:
    const QByteArray m_platform;
};

bool tryPlatform(const QByteArray& platform)
{
    const QtApplication application(platform);
    return QGuiApplication::primaryScreen() != nullptr;
}

std::unique_ptr<Display> makeDisplay(const QByteArray& platform)
{
    return std::make_unique<ScreenDisplay>(platform);
}

QString saveShown(QDialog& dialog, const QString& file)
{
    constexpr qreal LARGEST_SCALE = 8;  // a dialog is drawn within a second; ten times that takes gigabytes
    if (dialog.devicePixelRatioF() > LARGEST_SCALE)
        return QStringLiteral("it would be %1 times as large as a dialog is").arg(dialog.devicePixelRatioF());
    dialog.show();
    QCoreApplication::processEvents();  // it becomes active, and shows where the focus is
    return savePicture(dialog, file);
}

QString drawPicture(Window& window, const QString& file)
{
    const QtApplication application("offscreen");
    WindowDialog dialog(window, nullptr);
    return saveShown(dialog, file);
}

QString drawAlertPicture(const Alert& alert, const QString& file)
{
    const QtApplication application("offscreen");
    AlertDialog dialog(alert, nullptr);
    return saveShown(dialog, file);
}

}  // namespace

}  // namespace Toolbox

extern "C" {
extern const Toolbox::ScreenLibrary toolboxScreenLibrary;
const Toolbox::ScreenLibrary toolboxScreenLibrary{
    Toolbox::tryPlatform, Toolbox::makeDisplay, Toolbox::drawPicture, Toolbox::drawAlertPicture};
}
