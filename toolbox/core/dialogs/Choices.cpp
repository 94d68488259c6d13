#include "toolbox/core/dialogs/Choices.h"

#include <Toolbox/NamedChoices.h>

#include <QRegularExpression>

#include <algorithm>

namespace Toolbox {

namespace {

// One spelling for all that count as the same: compatibility forms, case, accents and blanks.
QString oneSpelling(const QString& text)
{
    QString spelling = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    spelling.removeIf([](QChar unit) { return unit.isMark(); });
    return spelling.simplified();
}

// Not too much of what was typed.
QString repeated(const QString& typed)
{
    constexpr qsizetype MOST = 40;
    const QString text = typed.trimmed();
    return text.size() <= MOST ? text : text.left(MOST) + QStringLiteral("...");
}

// The whole name, and its parts where brackets, strokes or dashes set them apart.
QStringList keysOf(const QString& name)
{
    static const QRegularExpression separators(QStringLiteral("[()\\[\\]/|,–—]|\\s-\\s"));
    QStringList keys = oneSpelling(name).split(separators);
    for (QString& key : keys)
        key = key.trimmed();
    keys.append(oneSpelling(name));
    keys.removeAll(QString(QLatin1String("")));
    return keys;
}

bool hasALetter(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.isLetterOrNumber(); });
}

// A terminal sends those as control characters, and what may follow them.
bool hasKeysThatAreNoText(const QString& typed)
{
    const QString text = typed.trimmed();
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.category() == QChar::Other_Control; });
}

}  // namespace

bool isReturnAlone(const QString& typed)
{
    return std::all_of(typed.begin(), typed.end(),
        [](QChar each) { return each == QLatin1Char('\t') || (each.isSpace() && each >= QLatin1Char(' ')); });
}

Request requestIn(const QString& typed)
{
    const QString word = oneSpelling(typed);
    if (word == QLatin1String("?") || word == QLatin1String("h") || word == QLatin1String("help"))
        return Request::Help;
    const bool quits = word == QLatin1String("q") || word == QLatin1String("quit") || word == QLatin1String("exit");
    return quits ? Request::Quit : Request::None;
}

QString readableName(const QString& name, const Show& show)
{
    static const QRegularExpression twoParts(QStringLiteral("^(.+)\\((.+)\\)$"));
    const QRegularExpressionMatch parts = twoParts.match(name.simplified());
    const QString before = show(parts.captured(1).trimmed());
    const QString inBrackets = show(parts.captured(2).trimmed());
    if (hasALetter(before) == hasALetter(inBrackets))
        return show(name);
    return hasALetter(before) ? before : inBrackets;
}

bool Choices::Choice::hasNumber(const QString& wanted) const
{
    static const QRegularExpression numbered(QStringLiteral("^(\\d+)[.)]?(?: (.+))?$"));
    const QRegularExpressionMatch parts = numbered.match(wanted);
    const QString named = parts.captured(2);
    return parts.hasMatch() && parts.captured(1) == number && (named.isEmpty() || isNamed(named));
}

bool Choices::Choice::isNamed(const QString& wanted) const
{
    return keys.contains(wanted);
}

bool Choices::Choice::hasWord(const QString& wanted) const
{
    return word == wanted;
}

bool Choices::Choice::beginsLike(const QString& wanted) const
{
    return std::any_of(keys.begin(), keys.end(), [&wanted](const QString& key) { return key.startsWith(wanted); });
}

void Choices::add(const QString& name, std::optional<int> number, const QString& word, const QString& title)
{
    const QString digits = number ? QString::number(*number) : QString();
    m_choices.push_back({name.simplified(), keysOf(name) + keysOf(title), digits, word});
}

std::optional<std::size_t> Choices::find(const QString& typed, QString* problem, const Show& show) const
{
    const std::vector<std::size_t> found = meant(typed);
    if (found.size() == 1)
        return found.front();

    QStringList names;
    for (const std::size_t index : found)
        names.append(m_choices[index].name);
    if (!names.isEmpty())
        *problem = QStringLiteral("\"%1\" could be %2.").arg(repeated(typed), names.join(QStringLiteral(" or ")));
    else if (isReturnAlone(typed))
        *problem = QStringLiteral("Return alone means nothing here. Choices: %1.").arg(inShort());
    else if (hasKeysThatAreNoText(typed))
        *problem = QStringLiteral("Arrows and such keys do nothing here. Choices: %1.").arg(inShort());
    else if (show && show(repeated(typed)) != repeated(typed))
        *problem = QStringLiteral("There is no such choice here. Choices: %1.").arg(inShort());
    else
        *problem = QStringLiteral("There is no \"%1\" here. Choices: %2.").arg(repeated(typed), inShort());
    return std::nullopt;
}

QString Choices::inShort() const
{
    constexpr std::size_t MOST = 12;
    QStringList all;
    for (std::size_t index = 0; index < std::min(MOST, m_choices.size()); ++index)
        all.append((m_choices[index].number + QChar(QChar::Nbsp) + m_choices[index].name).trimmed());
    return all.join(QStringLiteral(", ")) + (m_choices.size() > MOST ? QStringLiteral(", ...") : QString());
}

std::vector<std::size_t> Choices::beginningLike(const QString& typed) const
{
    return allThat(&Choice::beginsLike, oneSpelling(typed));
}

std::vector<std::size_t> Choices::meant(const QString& typed) const
{
    const QString wanted = oneSpelling(typed);
    for (const Test fits : {&Choice::hasNumber, &Choice::isNamed, &Choice::hasWord, &Choice::beginsLike}) {
        const std::vector<std::size_t> found = allThat(fits, wanted);
        if (!wanted.isEmpty() && !found.empty())
            return found;
    }
    return {};
}

std::vector<std::size_t> Choices::allThat(Test fits, const QString& wanted) const
{
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < m_choices.size(); ++index)
        if ((m_choices[index].*fits)(wanted))
            found.push_back(index);
    return found;
}

std::vector<std::size_t> ChoicesMeant(const std::vector<NamedChoice>& choices, const std::string& typed)
{
    Choices all;
    for (const NamedChoice& each : choices)
        all.add(QString::fromStdString(each.name), std::nullopt, QString::fromStdString(each.word));
    static const QRegularExpression region(
        QStringLiteral("(?<=^\\p{L}{2}|^\\p{L}{3})[-_.@].*$"));  // and whatever follows it
    const QString text = QString::fromStdString(typed).trimmed();
    const std::vector<std::size_t> meant = all.meant(text);
    return meant.empty() ? all.meant(QString(text).remove(region)) : meant;
}

}  // namespace Toolbox
