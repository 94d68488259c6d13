#include "toolbox/screen/BoundsLayout.h"

#include "toolbox/screen/PlainText.h"
#include "toolbox/screen/ScreenDialog.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <utility>

namespace Toolbox {

namespace {

constexpr int TWO_LINES = 30;         // the least height that was drawn for more than one line
constexpr int MOST_FOR_ONE_LINE = 2;  // times the width that was drawn for it

void fitLabel(QLabel& label, const QRect& area)
{
    const int width = scaled(area.width(), label);
    const bool isOneLine = area.height() < TWO_LINES && label.sizeHint().width() <= width * MOST_FOR_ONE_LINE;
    label.setAlignment(label.alignment() | (area.height() < TWO_LINES ? Qt::AlignVCenter : Qt::AlignTop));
    if (!isOneLine)
        breakLines(label, width);
}

// In one direction: the lines of the grid, and the columns or rows between them.
class GridLines {
public:
    // The columns from the first on that something lies across.
    struct Span {
        int first;
        int count;
    };

    void add(int begin, int length) { m_edges.insert(m_edges.end(), {begin, begin + length}); }

    // When all are added.
    void sort()
    {
        std::sort(m_edges.begin(), m_edges.end());
        m_edges.erase(std::unique(m_edges.begin(), m_edges.end()), m_edges.end());
        m_narrowest.resize(m_edges.size(), MOST_PIXELS);
    }

    int count() const { return static_cast<int>(m_edges.size()) - 1; }
    int length(int index) const { return m_edges[at(index + 1)] - m_edges[at(index)]; }

    // Notes, for growing(), that something lies across the columns that it returns.
    Span cover(int begin, int length)
    {
        const int first = indexOf(begin);
        const Span span{first, std::max(1, indexOf(begin + length) - first)};
        for (int index = span.first; index < span.first + span.count; ++index)
            m_narrowest[at(index)] = std::min(m_narrowest[at(index)], length);
        return span;
    }

    // Which of `span` grows when what lies across it needs more: where nothing narrower would be stretched along with
    // it, and of those the longest.
    int growing(const Span& span) const
    {
        const auto room = [this](int index) { return std::make_pair(m_narrowest[at(index)], length(index)); };
        int found = span.first;
        for (int index = span.first + 1; index < span.first + span.count; ++index)
            found = room(index) > room(found) ? index : found;
        return found;
    }

private:
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    int indexOf(int edge) const
    {
        return static_cast<int>(std::lower_bound(m_edges.begin(), m_edges.end(), edge) - m_edges.begin());
    }

    std::vector<int> m_edges;
    std::vector<int> m_narrowest;
};

// A widget and what it lies across.
struct Placed {
    QWidget* widget;
    QRect area;
    GridLines::Span across;
    GridLines::Span down;
};

QGridLayout* makeGrid(const GridLines& columns, const GridLines& rows, QWidget* content)
{
    auto* const grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int column = 0; column < columns.count(); ++column)
        grid->setColumnMinimumWidth(column, columns.length(column));
    for (int row = 0; row < rows.count(); ++row)
        grid->setRowMinimumHeight(row, rows.length(row));
    return grid;
}

}  // namespace

QRect areaOf(const Rect& bounds)
{
    return QRect(std::clamp<int>(bounds.left, -MOST_PIXELS, MOST_PIXELS),
        std::clamp<int>(bounds.top, -MOST_PIXELS, MOST_PIXELS), std::clamp(bounds.right - bounds.left, 0, MOST_PIXELS),
        std::clamp(bounds.bottom - bounds.top, 0, MOST_PIXELS));
}

void layOutByBounds(QWidget* content, const QSize& size, const std::vector<PlacedWidget>& widgets)
{
    GridLines columns;
    GridLines rows;
    columns.add(0, size.width());
    rows.add(0, size.height());
    for (const auto& [widget, area] : widgets) {
        columns.add(area.x(), area.width());
        rows.add(area.y(), area.height());
    }
    columns.sort();
    rows.sort();
    std::vector<Placed> places;
    for (const auto& [widget, area] : widgets)
        places.push_back({widget, area, columns.cover(area.x(), area.width()), rows.cover(area.y(), area.height())});

    QGridLayout* const grid = makeGrid(columns, rows, content);
    for (const auto& [widget, area, across, down] : places) {
        if (auto* const label = qobject_cast<QLabel*>(widget); label != nullptr && label->pixmap().isNull())
            fitLabel(*label, area);
        grid->addWidget(widget, down.first, across.first, down.count, across.count);
        if (across.count > 1)
            grid->setColumnStretch(columns.growing(across), 1);
        if (down.count > 1)
            grid->setRowStretch(rows.growing(down), 1);
    }
}

}  // namespace Toolbox
