#include "toolbox/controls/Control.h"

#include <algorithm>

namespace Toolbox {

void Control::setValue(SInt32 wanted)
{
    value = std::clamp(wanted, minimum, std::max(minimum, maximum));
}

}  // namespace Toolbox
