#include "toolbox/screen/PlainLabel.h"

#include "toolbox/screen/PlainText.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace Toolbox {

namespace {

constexpr qreal NO_LIMIT = 1e6;

QTextOption wrappingOption(Qt::Alignment alignment)
{
    QTextOption option(alignment & Qt::AlignHorizontal_Mask);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

QString separatedLines(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

// Lays the lines out below each other; returns the size that they take.
QSizeF layOut(QTextLayout& layout, qreal width)
{
    QSizeF size(0, 0);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, size.height()));
        size = QSizeF(std::max(size.width(), line.naturalTextWidth()), size.height() + std::ceil(line.height()));
    }
    layout.endLayout();
    return size;
}

}  // namespace

PlainLabel::PlainLabel(const QString& text, Qt::Alignment alignment, QWidget* parent)
    : QLabel(parent)
    , m_text(plainText(text))
{
    setTextFormat(Qt::PlainText);
    setText(plainTitle(text));  // the label of a control would take an ampersand for the mark of a shortcut
    setAccessibleName(m_text);
    setAlignment(alignment);
}

QSize PlainLabel::sizeHint() const
{
    QTextLayout layout(separatedLines(m_text), font());
    layout.setTextOption(wrappingOption(Qt::AlignLeft));
    const QSizeF size = layOut(layout, NO_LIMIT);
    return QSize(static_cast<int>(std::ceil(size.width())), static_cast<int>(size.height()));
}

QSize PlainLabel::minimumSizeHint() const
{
    return QSize(0, 0);
}

int PlainLabel::heightForWidth(int width) const
{
    QTextLayout layout(separatedLines(m_text), font());
    layout.setTextOption(wrappingOption(alignment()));
    return static_cast<int>(layOut(layout, width).height());
}

void PlainLabel::paintEvent(QPaintEvent*)
{
    QTextLayout layout(separatedLines(m_text), font());
    layout.setTextOption(wrappingOption(alignment()));
    const qreal unused = height() - layOut(layout, width()).height();
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));  // of the disabled group where the label is disabled
    layout.draw(&painter, QPointF(0, alignment() & Qt::AlignVCenter ? std::floor(unused / 2) : 0));
}

}  // namespace Toolbox
