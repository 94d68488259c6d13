#include "toolbox/screen/PlacedItems.h"

#include "toolbox/screen/PlainLabel.h"

#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace Toolbox {

namespace {

constexpr double MOST_STRETCH = 2;  // what needs more is an exception, and grows alone
constexpr int MOST_PIXELS = 3000;   // beyond every screen; Qt's styles paint whole controls, however large
constexpr int BUTTON_PADDING = 12;  // at both ends of a title; Qt's own hint is that of a wide button even for "OK"
constexpr int EDGE = 8;             // between what has grown and the edge of the content

double stretchFor(int wanted, int given)
{
    return static_cast<double>(wanted) / std::max(1, given);
}

// The larger of two stretches, leaving aside a `needed` that is out of proportion.
double combined(double stretch, double needed)
{
    return needed <= MOST_STRETCH ? std::max(stretch, needed) : stretch;
}

int stretched(int length, double stretch)
{
    return static_cast<int>(std::lround(length * stretch));
}

bool isForOneLine(const QWidget* widget, const QRect& area)
{
    return area.height() < 2 * widget->fontMetrics().height();
}

// The width without which something would be cut off, or a line broken where the area has room for only one.
int wantedWidth(const QWidget* widget, const QRect& area)
{
    if (dynamic_cast<const PlainLabel*>(widget) != nullptr)
        return isForOneLine(widget, area) ? widget->sizeHint().width() : 0;
    const auto* const button = qobject_cast<const QPushButton*>(widget);
    const int wanted = button == nullptr
        ? widget->minimumSizeHint().width()
        : button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 2 * BUTTON_PADDING;
    return std::min(wanted, MOST_PIXELS);
}

int wantedHeight(const QWidget* widget, int width)
{
    if (widget->hasHeightForWidth())
        return widget->heightForWidth(width);
    return std::min(widget->minimumSizeHint().height(), MOST_PIXELS);
}

}  // namespace

QRect areaOf(const Rect& bounds)
{
    return QRect(std::clamp<int>(bounds.left, -MOST_PIXELS, MOST_PIXELS),
        std::clamp<int>(bounds.top, -MOST_PIXELS, MOST_PIXELS), std::clamp(bounds.right - bounds.left, 0, MOST_PIXELS),
        std::clamp(bounds.bottom - bounds.top, 0, MOST_PIXELS));
}

void PlacedItems::add(QWidget* widget, const QRect& area)
{
    m_items.push_back({widget, area});
    auto* const label = dynamic_cast<PlainLabel*>(widget);
    if (label != nullptr && isForOneLine(label, area))
        label->setAlignment(label->alignment() | Qt::AlignVCenter);
}

bool PlacedItems::fit() const
{
    const double horizontal = horizontalStretch();
    return std::all_of(m_items.begin(), m_items.end(), [horizontal](const Item& item) {
        const int width = stretched(item.area.width(), horizontal);
        return stretchFor(wantedWidth(item.widget, item.area), item.area.width()) <= MOST_STRETCH
            && stretchFor(wantedHeight(item.widget, width), item.area.height()) <= MOST_STRETCH;
    });
}

QSize PlacedItems::place(const QSize& content) const
{
    const double horizontal = horizontalStretch();
    const double vertical = verticalStretch(horizontal);
    QSize size(stretched(content.width(), horizontal), stretched(content.height(), vertical));
    for (const Item& item : m_items) {
        const QPoint corner(stretched(item.area.x(), horizontal), stretched(item.area.y(), vertical));
        const QSize given(stretched(item.area.width(), horizontal), stretched(item.area.height(), vertical));
        const bool breaksLines = item.widget->hasHeightForWidth();
        const int width = breaksLines ? given.width() : std::max(given.width(), wantedWidth(item.widget, item.area));
        const int height = std::max(given.height(), wantedHeight(item.widget, width));
        item.widget->setGeometry(QRect(corner, QSize(width, height)));
        if (QSize(width, height) != given)
            size = size.expandedTo(QSize(corner.x() + width + EDGE, corner.y() + height + EDGE));
    }
    return size;
}

double PlacedItems::horizontalStretch() const
{
    double stretch = 1;
    for (const Item& item : m_items)
        stretch = combined(stretch, stretchFor(wantedWidth(item.widget, item.area), item.area.width()));
    return stretch;
}

double PlacedItems::verticalStretch(double horizontal) const
{
    double stretch = 1;
    for (const Item& item : m_items) {
        const int width = stretched(item.area.width(), horizontal);
        stretch = combined(stretch, stretchFor(wantedHeight(item.widget, width), item.area.height()));
    }
    return stretch;
}

}  // namespace Toolbox
