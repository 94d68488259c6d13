#include "toolbox/screen/DestructionWatch.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdint>
#include <cstring>

namespace Toolbox {

namespace {

// X's DestroyNotify, as the core protocol lays it out.
constexpr std::uint8_t DESTROY_NOTIFY = 17;
constexpr std::uint8_t WITHOUT_SENT = 0x7F;  // the highest bit says that a client has sent it
constexpr std::size_t WINDOW_POSITION = 8;

bool destroys(const void* event, WId window)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(event);
    if ((bytes[0] & WITHOUT_SENT) != DESTROY_NOTIFY)
        return false;
    std::uint32_t destroyed = 0;
    std::memcpy(&destroyed, bytes + WINDOW_POSITION, sizeof destroyed);
    return destroyed == window;
}

void end(QDialog& dialog)
{
    dialog.reject();
    if (dialog.isVisible())
        dialog.done(QDialog::Rejected);
}

}  // namespace

DestructionWatch::DestructionWatch(QDialog& dialog)
    : m_dialog(dialog)
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

DestructionWatch::~DestructionWatch()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool DestructionWatch::nativeEventFilter(const QByteArray& type, void* event, qintptr*)
{
    // Not at once: a handler may show something else, and these events would have to wait for it.
    if (type == "xcb_generic_event_t" && m_dialog.isVisible() && destroys(event, m_dialog.winId()))
        QTimer::singleShot(0, &m_dialog, [&dialog = m_dialog] { end(dialog); });
    return false;
}

}  // namespace Toolbox
