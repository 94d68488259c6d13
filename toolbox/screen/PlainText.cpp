#include "toolbox/screen/PlainText.h"

#include "toolbox/core/dialogs/MacText.h"

namespace Toolbox {

QString plainText(const QString& text)
{
    QString plain = withLineFeeds(text);
    for (QChar& each : plain)
        if (each.category() == QChar::Other_Control && each != QLatin1Char('\n'))
            each = QLatin1Char(' ');
    return plain;
}

QString plainTitle(const QString& text)
{
    return plainText(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString plainWindowTitle(const QString& text)
{
    return plainText(text).simplified().replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

}  // namespace Toolbox
