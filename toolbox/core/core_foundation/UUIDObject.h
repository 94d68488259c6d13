// The object behind a CFUUIDRef. There is never more than one for the same bytes, so that references can be compared.

#ifndef TOOLBOX_CORE_CORE_FOUNDATION_UUIDOBJECT_H
#define TOOLBOX_CORE_CORE_FOUNDATION_UUIDOBJECT_H

#include "toolbox/core/core_foundation/CFObject.h"

#include <CoreFoundation/CFUUID.h>

#include <array>

namespace Toolbox {

/// The bytes of a UUID in the order in which its text is written.
using UUIDBytes = std::array<UInt8, 16>;

class UUIDObject : public CFObject {
public:
    /// The UUID of `bytes`, for one owner more: the one there is already, or a new one.
    static UUIDObject* create(const UUIDBytes& bytes);

    ~UUIDObject() override;

    const UUIDBytes& bytes() const { return m_bytes; }

private:
    explicit UUIDObject(const UUIDBytes& bytes);

    const UUIDBytes m_bytes;
};

}  // namespace Toolbox

#endif
