// An open nib.

#ifndef TOOLBOX_CORE_NIBS_NIB_H
#define TOOLBOX_CORE_NIBS_NIB_H

#include "toolbox/base/Referenced.h"

#include <Carbon/IBCarbonRuntime.h>

#include <QByteArray>

namespace Toolbox {

/// What CreateNibReference read: the whole of objects.xib, so that the file may change or go while the nib is open.
class Nib : public Referenced<Nib, IBNibRef> {
public:
    static constexpr const char* KIND = "nib";

    explicit Nib(const QByteArray& itsArchive)
        : archive(itsArchive)
    {
    }

    const QByteArray archive;  // XML, not looked at yet
};

}  // namespace Toolbox

#endif
