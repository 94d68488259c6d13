// Widgets at the places that a nib or a resource gives them.
//
// Those places were drawn for the Mac's font and controls. Their edges become the lines of a grid: where the present
// font and controls need more room the grid grows, so that rows stay rows, columns stay columns, and nothing comes to
// lie on something else.

#ifndef TOOLBOX_SCREEN_BOUNDSLAYOUT_H
#define TOOLBOX_SCREEN_BOUNDSLAYOUT_H

#include <Carbon/MacTypes.h>

#include <QRect>
#include <QSize>
#include <QWidget>

#include <vector>

namespace Toolbox {

struct PlacedWidget {
    QWidget* widget;
    QRect area;
};

/// The area between the edges of `bounds`; it may be empty, but is never larger than what can still be drawn.
QRect areaOf(const Rect& bounds);

/// Gives `content`, whose size was drawn as `size`, a layout with `widgets` at their places. A label breaks its lines,
/// unless it has room for one line only, which it then is, as far as that is not out of all proportion.
void layOutByBounds(QWidget* content, const QSize& size, const std::vector<PlacedWidget>& widgets);

}  // namespace Toolbox

#endif
