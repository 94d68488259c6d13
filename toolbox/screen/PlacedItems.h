// Widgets at the places that a nib or a resource gives them.
//
// Those places were drawn for the Mac's font and controls. Where the present ones need more room, all places are
// stretched alike, so that rows stay rows and columns stay columns; what would still be cut off grows by itself.

#ifndef TOOLBOX_SCREEN_PLACEDITEMS_H
#define TOOLBOX_SCREEN_PLACEDITEMS_H

#include <Carbon/MacTypes.h>

#include <QRect>
#include <QSize>
#include <QWidget>

#include <vector>

namespace Toolbox {

/// The area between the edges of `bounds`; it may be empty, but is never larger than what can still be drawn.
QRect areaOf(const Rect& bounds);

class PlacedItems {
public:
    /// Adds `widget`, whose place is `area`. A PlainLabel breaks its lines to fit; in an area for one line it stands at
    /// half height, as the texts of the controls beside it do.
    void add(QWidget* widget, const QRect& area);

    /// Whether stretching is enough, so that nothing grows over its neighbours.
    bool fit() const;

    /// Gives every widget its place in a content whose size in the nib or resource is `content`; returns the size that
    /// the content then has.
    QSize place(const QSize& content) const;

private:
    struct Item {
        QWidget* widget;
        QRect area;
    };

    double horizontalStretch() const;
    double verticalStretch(double horizontal) const;

    std::vector<Item> m_items;
};

}  // namespace Toolbox

#endif
