#include "toolbox/screen/ScreenDialog.h"

#include "toolbox/screen/PlainText.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusFrame>
#include <QFontInfo>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Toolbox {

namespace {

// X's DestroyNotify, as the core protocol lays it out.
constexpr std::uint8_t DESTROY_NOTIFY = 17;
constexpr std::size_t WINDOW_POSITION = 8;

bool destroys(const void* event, WId window)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(event);
    if (bytes[0] != DESTROY_NOTIFY)
        return false;
    std::uint32_t destroyed = 0;
    std::memcpy(&destroyed, bytes + WINDOW_POSITION, sizeof destroyed);
    return destroyed == window;
}

QFont dialogFont()
{
    QFont font = QApplication::font();
    font.setPixelSize(std::max(DRAWN_FONT, QFontInfo(font).pixelSize()));
    return font;
}

// Offscreen, Qt makes the screen smaller by the scale of what is drawn. That is undone, so that a picture has the same
// layout at any scale.
QSize availableSize(const QScreen& screen)
{
    const bool isSeen = QGuiApplication::platformName() != QLatin1String("offscreen");
    return isSeen ? screen.availableSize() : screen.availableSize() * screen.devicePixelRatio();
}

}  // namespace

int scaled(int length, const QWidget& widget)
{
    return length * QFontInfo(widget.font()).pixelSize() / DRAWN_FONT;
}

QScrollArea* makeScrollArea(QWidget* content, const QSize& most, QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    const int scrollBar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const bool isTooHigh = content->height() > most.height();
    const bool isTooWide = content->width() > most.width();
    QSize around(isTooHigh ? scrollBar : 0, isTooWide ? scrollBar : 0);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    if (around.isNull()) {
        area->setFocusPolicy(Qt::NoFocus);
    } else {  // the keys scroll it, once the focus is seen or heard to be there
        around += 2 * QSize(SCROLLED_BORDER, SCROLLED_BORDER);
        area->setAccessibleName(area->window()->windowTitle());
        area->setObjectName(QStringLiteral("scrolled"));  // and not what is inside it
        area->setStyleSheet(QStringLiteral("#scrolled { border: %1px solid transparent; }"
                                           "#scrolled:focus { border-color: palette(highlight); }")
                                .arg(SCROLLED_BORDER));
    }
    area->setFixedSize((content->size() + around).boundedTo(most));
    return area;
}

ScreenDialog::ScreenDialog(const QString& title, Qt::WindowFlags flags, QWidget* parent)
    : QDialog(parent, Qt::CustomizeWindowHint | Qt::WindowTitleHint | flags)
{
    setWindowTitle(plainWindowTitle(title));
    setFont(dialogFont());
    frameTheFocus();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

QSize ScreenDialog::largestSize() const
{
    return availableSize(*screen()) - QSize(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

void ScreenDialog::setContent(QWidget* content)
{
    const int width = content->layout()->minimumSize().width();
    const int height = content->layout()->hasHeightForWidth() ? content->layout()->minimumHeightForWidth(width)
                                                              : content->layout()->minimumSize().height();
    content->setFixedSize(width, height);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeScrollArea(content, largestSize(), this));
    makeBordersVisible();
}

// Qt's own style draws the default button as one that has the focus: a frame tells them apart.
void ScreenDialog::frameTheFocus()
{
    auto* const frame = new QFocusFrame(this);
    QPalette colours;
    colours.setColor(QPalette::WindowText, palette().color(QPalette::Highlight));  // or it would be black
    frame->setPalette(colours);
    connect(qApp, &QApplication::focusChanged, frame,
        [this, frame](QWidget*, QWidget* now) { frame->setWidget(isAncestorOf(now) ? now : nullptr); });
}

// A widget shows that it has the focus once the keyboard was used, which Qt forgets whenever a window is shown.
void ScreenDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    setAttribute(Qt::WA_KeyboardFocusChange);
}

void ScreenDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        makeBordersVisible();
}

// Qt's own style draws borders somewhat darker than the window, where nobody sees them if that is dark itself: there
// they are made from the colour of the letters.
void ScreenDialog::makeBordersVisible()
{
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    const bool isQtsOwn = style()->name() == QLatin1String("fusion");
    for (QWidget* const each : findChildren<QWidget*>()) {
        if (qobject_cast<QPushButton*>(each) == nullptr && qobject_cast<QComboBox*>(each) == nullptr)
            continue;
        QPalette colours;
        if (isDark && isQtsOwn)
            colours.setColor(QPalette::Window, palette().color(QPalette::WindowText));
        each->setPalette(colours);
    }
}

bool ScreenDialog::nativeEventFilter(const QByteArray& type, void* event, qintptr*)
{
    // Not at once: a handler may show something else, and these events would have to wait for it.
    if (type == "xcb_generic_event_t" && isVisible() && destroys(event, winId()))
        QTimer::singleShot(0, this, [this] {
            reject();
            if (isVisible())
                done(Rejected);
        });
    return false;
}

}  // namespace Toolbox
