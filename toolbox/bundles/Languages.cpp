#include "toolbox/bundles/Languages.h"

#include <QLocale>

namespace Toolbox {

namespace {

// The languages that Mac OS X began with. Their folders bear either name.
struct LongName {
    const char* code;
    const char* name;
};

constexpr LongName LONG_NAMES[] = {
    {"de", "German"},
    {"en", "English"},
    {"es", "Spanish"},
    {"fr", "French"},
    {"it", "Italian"},
    {"ja", "Japanese"},
    {"nl", "Dutch"},
};

// Every name that the folder of `language` may have, the most special first.
QStringList namesOf(const QString& language)
{
    const QString withUnderscore = QString(language).replace('-', '_');
    const QString general = withUnderscore.section('_', 0, 0);
    QStringList names = {language, withUnderscore, general};
    for (const LongName& known : LONG_NAMES) {
        if (general == QLatin1String(known.code))
            names += known.name;
        if (general == QLatin1String(known.name))
            names += known.code;
    }
    return names;
}

}  // namespace

QStringList userLanguages()
{
    QStringList languages = QLocale::system().uiLanguages();
    languages.removeAll("C");  // the locale of no language
    return languages;
}

QStringList languageFolders(const QStringList& languages)
{
    QStringList folders;
    for (const QString& language : languages) {
        for (const QString& name : namesOf(language))
            folders += name + ".lproj";
    }
    folders.removeAll(".lproj");  // of an empty name
    folders.removeDuplicates();
    return folders;
}

}  // namespace Toolbox
