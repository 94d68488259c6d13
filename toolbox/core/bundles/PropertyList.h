// Property lists in XML, the format of Info.plist, as Qt's values.

#ifndef TOOLBOX_CORE_BUNDLES_PROPERTYLIST_H
#define TOOLBOX_CORE_BUNDLES_PROPERTYLIST_H

#include <QByteArray>
#include <QVariantMap>

#include <optional>

namespace Toolbox {

constexpr qsizetype LONGEST_PROPERTY_LIST = 1024 * 1024;  // bytes

/// The dictionary that the property list `document` holds. A string is a QString, an array a QVariantList, a dictionary
/// a QVariantMap; numbers, dates, data and Booleans are there as QVariants without a value, since nothing asks for
/// them. Of a key that is given twice, the last counts.
///
/// Nothing, with the reason in `*problem`, for a document that is not well-formed XML, is not a property list in XML,
/// holds a value other than a dictionary, is longer than the above or is beyond the limits of XmlLimits.h.
std::optional<QVariantMap> readPropertyList(const QByteArray& document, QString* problem);

}  // namespace Toolbox

#endif
