// Windows and their controls, made from the objects of a nib.

#ifndef TOOLBOX_CORE_NIBS_NIBWINDOW_H
#define TOOLBOX_CORE_NIBS_NIBWINDOW_H

#include "toolbox/core/dialogs/Window.h"
#include "toolbox/core/nibs/NibArchive.h"

#include <memory>

namespace Toolbox {

/// Whether `object` describes a window.
bool isWindow(const NibObject& object);

/// A new window, hidden, as `object` describes it, with the controls that it names in `archive`. What an object leaves
/// out is at its default; but null, with the reason in `*problem`, when a window's or control's rectangle is missing or
/// wrong, when a reference names nothing, when an object stands in two places (in itself, perhaps), when controls nest
/// too deeply and when a menu has more items than can be counted. Controls that no display draws are remarked on, under
/// the window's `name`.
std::unique_ptr<Window> makeWindow(
    const NibArchive& archive, const NibObject& object, const QString& name, QString* problem);

}  // namespace Toolbox

#endif
