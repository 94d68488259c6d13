#include <Toolbox/Application.h>

#include <QStringList>

namespace Toolbox {

namespace {

// A locale's name without its encoding and modifier, as languages are written: "de-AT" of "de_AT.UTF-8@euro".
QString languageOf(const QString& locale)
{
    return locale.section('.', 0, 0).section('@', 0, 0).replace('_', '-');
}

// The locale in which the user wants to read messages.
QString localeOfMessages()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (const QString locale = qEnvironmentVariable(variable); !locale.isEmpty())
            return locale;
    }
    return QStringLiteral("C");
}

}  // namespace

std::vector<std::string> UserLanguages()
{
    const QString locale = localeOfMessages();
    if (locale == "C" || locale == "POSIX")  // then gettext passes LANGUAGE over; in C.UTF-8 it does not
        return {};
    std::vector<std::string> languages;
    for (const QString& name : qEnvironmentVariable("LANGUAGE").split(':') + QStringList(locale)) {
        if (const QString language = languageOf(name); !language.isEmpty() && language != "C")
            languages.push_back(language.toStdString());
    }
    return languages;
}

}  // namespace Toolbox
