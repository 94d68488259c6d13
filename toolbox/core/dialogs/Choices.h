// What a person may type, on the terminal, on the command line or in a pop-up, and which choice it means.

#ifndef TOOLBOX_CORE_DIALOGS_CHOICES_H
#define TOOLBOX_CORE_DIALOGS_CHOICES_H

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace Toolbox {

/// Whether nothing but blanks was typed. A control character is something: Ctrl-L was not meant as Return.
bool isReturnAlone(const QString& typed);

/// What can be typed in place of a choice: `?`, `h` or `help` shows the choices again, `q`, `quit` or `exit` cancels.
enum class Request { None, Help, Quit };

/// Which of them `typed` is, where no choice is meant by it.
Request requestIn(const QString& typed);

/// A text as it is shown somewhere, with question marks or the like for what cannot be.
using Show = std::function<QString(const QString&)>;

/// The part of `name` that can be read where `show` shows what cannot as question marks: "日本語 (Japanese)" is
/// "Japanese" in ASCII. The whole name, as it is shown, where both parts can be read or neither can.
QString readableName(const QString& name, const Show& show);

/// A choice is known by its number, alone or before its name, by its name and by each part of that: "日本語 (Japanese)"
/// answers to the whole, to "日本語" and to "Japanese". A name may be cut short where no other begins alike; neither
/// case nor accents count.
class Choices {
public:
    /// Adds a choice. Without a `number` it has none; `word`, in small letters, means it where no name is that word.
    /// `title` is what the name is called where all of it can be shown, and means it as well.
    void add(const QString& name, std::optional<int> number = std::nullopt, const QString& word = QString(),
        const QString& title = QString());

    /// The index, in the order of adding, of the choice that `typed` means; else nothing, with the reason in
    /// `*problem`: what it could be, or the choices in short. That does not repeat `typed` if `show`, where
    /// there is one, shows something else.
    std::optional<std::size_t> find(const QString& typed, QString* problem, const Show& show = nullptr) const;

    /// The indexes, in the order of adding, of all choices that `typed` may mean: those that fit its surest reading.
    std::vector<std::size_t> meant(const QString& typed) const;

    /// The first choices on one line, each joined to its number by a no-break space.
    QString inShort() const;

    /// The indexes, in the order of adding, of the choices whose name or a part of it begins as `typed` says, which
    /// must not be empty.
    std::vector<std::size_t> beginningLike(const QString& typed) const;

private:
    struct Choice {
        bool hasNumber(const QString& wanted) const;
        bool isNamed(const QString& wanted) const;
        bool hasWord(const QString& wanted) const;
        bool beginsLike(const QString& wanted) const;

        QString name;
        QStringList keys;  // name, title and their parts, in one spelling
        QString number;
        QString word;
    };

    using Test = bool (Choice::*)(const QString& wanted) const;

    std::vector<std::size_t> allThat(Test fits, const QString& wanted) const;

    std::vector<Choice> m_choices;
};

}  // namespace Toolbox

#endif
