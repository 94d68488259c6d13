#include "toolbox/displays/window/DialogContent.h"

#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Toolbox {

namespace {

constexpr int ROOM_FOR_FRAME = 60;  // the title bar, and a little of what is behind

}  // namespace

QSize largestSize(const QWidget& widget)
{
    return widget.screen()->availableSize() - QSize(ROOM_FOR_FRAME, ROOM_FOR_FRAME);
}

void setContent(QDialog& dialog, QWidget* content, const QSize& size)
{
    content->setFixedSize(size);
    dialog.setFixedSize(size.boundedTo(largestSize(dialog)));
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
