#include "toolbox/screen/AlertIcon.h"

#include <QPainter>

#include <algorithm>
#include <iterator>

namespace Toolbox {

namespace {

enum class Shape { Disc, Triangle };
enum class Sign { Cross, LetterI, ExclamationMark };

struct Icon {
    AlertType type;
    QRgb colour;
    Shape shape;
    Sign sign;
    QRgb signColour;
};

// clang-format off
constexpr Icon ICONS[] = {
    {kAlertStopAlert,    0xFFC62828, Shape::Disc,     Sign::Cross,           0xFFFFFFFF},
    {kAlertNoteAlert,    0xFF1565C0, Shape::Disc,     Sign::LetterI,         0xFFFFFFFF},
    {kAlertCautionAlert, 0xFFF9A825, Shape::Triangle, Sign::ExclamationMark, 0xFF202020},
};
// clang-format on

// All that is drawn is in a square of 32 by 32.
constexpr int SIDE = 32;
constexpr qreal SIGN_WIDTH = 3.6;

void drawShape(QPainter& painter, const Icon& icon)
{
    painter.setBrush(QColor::fromRgb(icon.colour));
    if (icon.shape == Shape::Disc) {
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(QRectF(1, 1, 30, 30));
    } else {
        painter.setPen(QPen(QColor::fromRgb(icon.colour), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolygon(QPolygonF({{16, 4}, {29, 28}, {3, 28}}));
    }
}

void drawSign(QPainter& painter, const Icon& icon)
{
    painter.setPen(QPen(QColor::fromRgb(icon.signColour), SIGN_WIDTH, Qt::SolidLine, Qt::RoundCap));
    switch (icon.sign) {
    case Sign::Cross:
        painter.drawLine(QPointF(11, 11), QPointF(21, 21));
        painter.drawLine(QPointF(21, 11), QPointF(11, 21));
        break;
    case Sign::LetterI:
        painter.drawPoint(QPointF(16, 9));
        painter.drawLine(QPointF(16, 15), QPointF(16, 23));
        break;
    case Sign::ExclamationMark:
        painter.drawLine(QPointF(16, 12), QPointF(16, 19));
        painter.drawPoint(QPointF(16, 25));
        break;
    }
}

QPixmap draw(const Icon& icon, int size, qreal pixelRatio)
{
    QPixmap drawn(QSize(size, size) * pixelRatio);
    drawn.setDevicePixelRatio(pixelRatio);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<qreal>(size) / SIDE, static_cast<qreal>(size) / SIDE);
    drawShape(painter, icon);
    drawSign(painter, icon);
    return drawn;
}

}  // namespace

QPixmap alertIcon(AlertType type, int size, const QWidget& widget)
{
    const auto* const icon =
        std::find_if(std::begin(ICONS), std::end(ICONS), [type](const Icon& each) { return each.type == type; });
    return icon == std::end(ICONS) ? QPixmap() : draw(*icon, size, widget.devicePixelRatioF());
}

}  // namespace Toolbox
