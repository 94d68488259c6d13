#include "toolbox/core/core_foundation/Quoted.h"

namespace Toolbox {

std::string quoted(const QString& text)
{
    constexpr qsizetype LONGEST = 80;
    QString line;
    for (const QChar unit : text.left(LONGEST)) {
        if (unit == QLatin1Char('"') || unit == QLatin1Char('\\'))
            line += QLatin1Char('\\');
        if (unit.isPrint() || unit.isSurrogate())
            line += unit;
        else
            line += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    }
    if (text.size() > LONGEST)
        line += QStringLiteral("...");
    return '"' + line.toStdString() + '"';
}

}  // namespace Toolbox
