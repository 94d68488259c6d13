// What the core library finds in this one: see ScreenLibrary.h.

#include "toolbox/core/dialogs/ModalLoop.h"
#include "toolbox/core/displays/Picture.h"
#include "toolbox/core/displays/ScreenLibrary.h"
#include "toolbox/screen/AlertDialog.h"
#include "toolbox/screen/QtApplication.h"
#include "toolbox/screen/WindowDialog.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

namespace Toolbox {

namespace {

void grabPicture(QWidget& widget)
{
    QBuffer png;
    const bool drawn = widget.grab().save(&png, "PNG");
    notePicture(png.data(), drawn ? QString() : QStringLiteral("there is nothing to draw"));
}

// Takes a picture of `dialog` when it is shown, and another in its place when it becomes the one to type in, as it only
// then shows where the focus is. It may never become that.
void grabPictureOnceShown(QDialog& dialog)
{
    QTimer::singleShot(0, &dialog, [&dialog] { grabPicture(dialog); });
    QObject::connect(qApp, &QApplication::focusChanged, &dialog, [&dialog, isDone = false]() mutable {
        if (isDone || !dialog.isActiveWindow())
            return;
        isDone = true;
        grabPicture(dialog);
    });
}

// Shows `dialog` over the one that is up, which is the one to type in again when it has ended: not every window
// manager, and no screen without one, sees to that.
void runOverOthers(QDialog& dialog)
{
    if (takePictureRequest())
        grabPictureOnceShown(dialog);
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

// Not those of the platforms that build servers name, where a dialog would wait for ever. Qt loads them by names in any
// case, and from lists of names.
bool windowsAreSeen()
{
    const QString platform = QGuiApplication::platformName();
    return !platform.startsWith(QLatin1String("offscreen"), Qt::CaseInsensitive)
        && !platform.startsWith(QLatin1String("minimal"), Qt::CaseInsensitive);
}

bool tryPlatform(const QByteArray& platform)
{
    const QtApplication application(platform);
    return QGuiApplication::primaryScreen() != nullptr && (!platform.isEmpty() || windowsAreSeen());
}

std::unique_ptr<Display> makeDisplay(const QByteArray& platform)
{
    return std::make_unique<ScreenDisplay>(platform);
}

template <typename Dialog, typename Shown> void drawUnseen(Shown& shown)
{
    constexpr qreal LARGEST_SCALE = 8;  // a dialog is drawn within a second; ten times that takes gigabytes
    const QtApplication application("offscreen");
    const qreal scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    if (!(scale <= LARGEST_SCALE))  // what is no number at all is none of these either
        return notePicture({}, QStringLiteral("it would be %1 times as large as a dialog is").arg(scale));
    Dialog dialog(shown, nullptr);
    dialog.show();
    QCoreApplication::processEvents();  // it becomes active, and shows where the focus is
    grabPicture(dialog);
}

}  // namespace

}  // namespace Toolbox

extern "C" {
extern const Toolbox::ScreenLibrary toolboxScreenLibrary;
const Toolbox::ScreenLibrary toolboxScreenLibrary{Toolbox::tryPlatform, Toolbox::makeDisplay,
    Toolbox::drawUnseen<Toolbox::WindowDialog, Toolbox::Window>,
    Toolbox::drawUnseen<Toolbox::AlertDialog, const Toolbox::Alert>};
}
