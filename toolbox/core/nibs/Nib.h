// An open nib.

#ifndef TOOLBOX_CORE_NIBS_NIB_H
#define TOOLBOX_CORE_NIBS_NIB_H

#include "toolbox/base/Referenced.h"

#include <Carbon/IBCarbonRuntime.h>

#include <QByteArray>
#include <QString>

namespace Toolbox {

/// What CreateNibReference read: the whole of objects.xib, so that the file may change or go while the nib is open.
class Nib : public Referenced<Nib, IBNibRef> {
public:
    static constexpr const char* KIND = "nib";

    Nib(const QString& itsName, const QByteArray& itsArchive)
        : name(itsName)
        , archive(itsArchive)
    {
    }

    const QString name;
    const QByteArray archive;  // XML, not looked at yet
};

}  // namespace Toolbox

#endif
