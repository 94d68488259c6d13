#include "toolbox/core/bundles/LanguageFolders.h"

namespace Toolbox {

namespace {

// The languages whose folders bore their English names before they bore codes. Bundles of that time are still about,
// so either is looked for.
struct LongName {
    const char* code;
    const char* name;
};

constexpr LongName LONG_NAMES[] = {
    {"ar", "Arabic"},
    {"cs", "Czech"},
    {"da", "Danish"},
    {"de", "German"},
    {"el", "Greek"},
    {"en", "English"},
    {"es", "Spanish"},
    {"et", "Estonian"},
    {"fa", "Persian"},
    {"fi", "Finnish"},
    {"fr", "French"},
    {"he", "Hebrew"},
    {"hi", "Hindi"},
    {"hr", "Croatian"},
    {"hu", "Hungarian"},
    {"is", "Icelandic"},
    {"it", "Italian"},
    {"ja", "Japanese"},
    {"ko", "Korean"},
    {"lt", "Lithuanian"},
    {"lv", "Latvian"},
    {"mt", "Maltese"},
    {"nb", "Norwegian"},
    {"nl", "Dutch"},
    {"no", "Norwegian"},
    {"pl", "Polish"},
    {"pt", "Portuguese"},
    {"ro", "Romanian"},
    {"ru", "Russian"},
    {"sk", "Slovak"},
    {"sl", "Slovenian"},
    {"sv", "Swedish"},
    {"th", "Thai"},
    {"tr", "Turkish"},
    {"uk", "Ukrainian"},
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
