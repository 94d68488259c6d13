#include "toolbox/screen/DialogContent.h"

#include <QGuiApplication>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace Toolbox {

namespace {

constexpr int ROOM_FOR_FRAME = 60;  // the title bar, and a little of what is behind

// Where nobody sees it, there is always the same room: a picture shows the same in any number of pixels.
QSize availableSize(const QScreen& screen)
{
    const bool isSeen = QGuiApplication::platformName() != QLatin1String("offscreen");
    return isSeen ? screen.availableSize() : screen.availableSize() * screen.devicePixelRatio();
}

// The size of an area that shows all of `content` in `most`, with room for scroll bars where it does not fit.
QSize scrolledSize(const QSize& content, const QSize& most, int scrollBar)
{
    const bool isTooHigh = content.height() > most.height();
    const bool isTooWide = content.width() + (isTooHigh ? scrollBar : 0) > most.width();
    return (content + QSize(isTooHigh ? scrollBar : 0, isTooWide ? scrollBar : 0)).boundedTo(most);
}

}  // namespace

QSize largestSize(const QWidget& widget)
{
    return availableSize(*widget.screen()) - QSize(ROOM_FOR_FRAME, ROOM_FOR_FRAME);
}

void setContent(QDialog& dialog, QWidget* content, const QSize& size)
{
    content->setFixedSize(size);
    const int scrollBar = dialog.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    dialog.setFixedSize(scrolledSize(size, largestSize(dialog), scrollBar));
    auto* const layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    if (dialog.size() == size) {
        layout->addWidget(content);
        return;
    }
    auto* const area = new QScrollArea(&dialog);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    layout->addWidget(area);
}

}  // namespace Toolbox
