#include "toolbox/core/dialogs/MacText.h"

#include "toolbox/base/text_encoding/MacRoman.h"

#include <vector>

namespace Toolbox {

QString fromMacRoman(const QByteArray& bytes)
{
    const std::size_t count = static_cast<std::size_t>(bytes.size());
    std::vector<UniChar> units(count);
    macRomanToUnicode(reinterpret_cast<const UInt8*>(bytes.constData()), count, units.data());
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()), bytes.size());
}

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
