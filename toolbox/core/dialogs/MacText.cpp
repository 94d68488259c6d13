#include "toolbox/core/dialogs/MacText.h"

#include "toolbox/core/core_foundation/StringObject.h"

namespace Toolbox {

QString fromPascalString(ConstStringPtr text)
{
    if (text == nullptr)
        return QString();
    return fromMacRoman(QByteArray(reinterpret_cast<const char*>(text) + 1, text[0]));
}

QString withLineFeeds(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace Toolbox
