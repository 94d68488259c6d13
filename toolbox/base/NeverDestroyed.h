// For what code may still need while the process ends and static objects are being destroyed.

#ifndef TOOLBOX_BASE_NEVERDESTROYED_H
#define TOOLBOX_BASE_NEVERDESTROYED_H

namespace Toolbox {

/// The one object of this type and `Tag`, made when it is first asked for and never destroyed. `Tag` is a type that the
/// caller declares in its unnamed namespace, so that no two callers share what they did not mean to.
template <typename Tag, typename Object> Object& neverDestroyed()
{
    static auto* const object = new Object();
    return *object;
}

}  // namespace Toolbox

#endif
