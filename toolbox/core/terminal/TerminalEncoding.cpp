#include "toolbox/core/terminal/TerminalEncoding.h"

#include <Toolbox/OneLine.h>

#include <QByteArray>
#include <QChar>
#include <QList>
#include <QStringView>

#include <langinfo.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace Toolbox {

namespace {

// ASCII for what decomposing does not make ASCII, as far as Mac OS Roman texts are likely to have it.
struct Transliteration {
    char32_t character;
    const char* ascii;
};

// clang-format off
constexpr Transliteration TRANSLITERATIONS[] = {
    {0x00C6, "AE"}, {0x00D8, "O"},  {0x00DF, "ss"}, {0x00E6, "ae"}, {0x00F8, "o"},   {0x0131, "i"},
    {0x0152, "OE"}, {0x0153, "oe"}, {0x00AB, "\""}, {0x00BB, "\""}, {0x201C, "\""},  {0x201D, "\""},
    {0x201E, "\""}, {0x2018, "'"},  {0x2019, "'"},  {0x201A, "'"},  {0x2039, "'"},   {0x203A, "'"},
    {0x2013, "-"},  {0x2014, "-"},  {0x2022, "*"},  {0x00B7, "*"},  {0x00D7, "x"},   {0x2044, "/"},
};
// clang-format on

// The C library's functions for characters ask the locale of the thread: this one's, for as long as this lives.
class ThreadLocale {
public:
    explicit ThreadLocale(locale_t locale)
        : m_before(uselocale(locale))
    {
    }
    ~ThreadLocale() { uselocale(m_before); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    const locale_t m_before;
};

// The name of the environment's locale for characters.
QByteArray nameOfLocale()
{
    for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (!qEnvironmentVariableIsEmpty(variable))
            return qgetenv(variable);
    return "C";
}

// One that is not installed here, as over ssh, still says what the terminal shows.
locale_t userLocale()
{
    const locale_t named = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (named != nullptr)
        return named;
    const QByteArray name = nameOfLocale().toLower();
    const bool isUTF8 = name.contains("utf-8") || name.contains("utf8");
    return newlocale(LC_CTYPE_MASK, isUTF8 ? "C.UTF-8" : "C", nullptr);
}

bool encodesASCII(locale_t locale)
{
    return std::strcmp(nl_langinfo_l(CODESET, locale), "ANSI_X3.4-1968") == 0;
}

// The character without its accents, a ligature as its letters.
QString baseOf(const QString& character)
{
    QString base = character.normalized(QString::NormalizationForm_KD);
    base.removeIf([](QChar unit) { return unit.isMark(); });
    return base;
}

QString transliterate(char32_t character)
{
    const auto known = std::find_if(std::begin(TRANSLITERATIONS), std::end(TRANSLITERATIONS),
        [character](const Transliteration& each) { return each.character == character; });
    if (known != std::end(TRANSLITERATIONS))
        return QString::fromLatin1(known->ascii);
    return baseOf(QString::fromUcs4(&character, 1));
}

// Whether it has no meaning outside one program.
bool isMeaningless(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
        return true;
    default:
        return false;
    }
}

}  // namespace

TerminalEncoding::TerminalEncoding()
    : m_locale(userLocale())
    , m_isASCII(encodesASCII(m_locale))
{
}

TerminalEncoding::~TerminalEncoding()
{
    freelocale(m_locale);
}

QString TerminalEncoding::showable(const QString& text) const
{
    const ThreadLocale inLocale(m_locale);
    QString shown;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        shown += shown.isNull() ? QString(QLatin1String("")) : QString(QLatin1Char('\n'));
        for (const uint each : QString::fromStdString(withEscapes(line.toStdString())).toUcs4())
            shown += showableCharacter(each);
    }
    return shown;
}

QString TerminalEncoding::showableCharacter(char32_t character) const
{
    const QString itself = QString::fromUcs4(&character, 1);
    if (character == QChar::Nbsp || (canEncode(itself) && !isMeaningless(character)))
        return itself;
    const QString replaced = transliterate(character);
    return !replaced.isEmpty() && canEncode(replaced) && !isMeaningless(character) ? replaced
                                                                                   : QString(QLatin1Char('?'));
}

int TerminalEncoding::columns(char32_t character) const
{
    const ThreadLocale inLocale(m_locale);
    return std::max(0, wcwidth(static_cast<wchar_t>(character)));
}

QByteArray TerminalEncoding::encode(const QString& text) const
{
    const ThreadLocale inLocale(m_locale);
    QByteArray bytes;
    const QList<uint> characters = text.toUcs4();
    for (const uint each : characters)
        bytes += bytesOf(each);
    return bytes;
}

QString TerminalEncoding::decode(const QByteArray& bytes) const
{
    if (m_isASCII)  // of a locale that nobody set: who types more than that does so in UTF-8
        return QString::fromUtf8(bytes);
    const ThreadLocale inLocale(m_locale);
    QString text;
    std::mbstate_t state{};
    for (qsizetype at = 0; at < bytes.size();) {
        wchar_t wide = L'\0';
        const std::size_t length =
            std::mbrtowc(&wide, bytes.constData() + at, static_cast<std::size_t>(bytes.size() - at), &state);
        const bool isValid = length <= MB_LEN_MAX;  // errors are the largest sizes
        const char32_t character = isValid ? static_cast<char32_t>(wide) : char32_t{QChar::ReplacementCharacter};
        text += QString::fromUcs4(&character, 1);
        at += isValid && length > 0 ? static_cast<qsizetype>(length) : 1;
        if (!isValid)
            state = std::mbstate_t{};
    }
    return text;
}

// Empty when the encoding has no such character. To be called in the locale, whose wide characters are code points.
QByteArray TerminalEncoding::bytesOf(char32_t character) const
{
    if (m_isASCII && character >= 0x80)  // the C library passes some of them through, as no encoding's bytes
        return QByteArray();
    char bytes[MB_LEN_MAX];
    std::mbstate_t state{};
    const std::size_t length = std::wcrtomb(bytes, static_cast<wchar_t>(character), &state);
    return length <= MB_LEN_MAX ? QByteArray(bytes, static_cast<qsizetype>(length)) : QByteArray();
}

bool TerminalEncoding::canEncode(const QString& text) const
{
    const QList<uint> characters = text.toUcs4();
    return std::none_of(characters.begin(), characters.end(), [this](uint each) { return bytesOf(each).isEmpty(); });
}

}  // namespace Toolbox
