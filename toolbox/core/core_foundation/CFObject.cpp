#include "toolbox/core/core_foundation/CFObject.h"

namespace Toolbox {

void CFObject::retain()
{
    ++m_owners;
}

void CFObject::release()
{
    if (!m_isConstant && --m_owners == 0)
        delete this;
}

void CFObject::makeConstant()
{
    m_isConstant = true;
    countAs(CONSTANT_KIND);
}

bool CFObject::equals(const CFObject&) const
{
    return false;
}

}  // namespace Toolbox
