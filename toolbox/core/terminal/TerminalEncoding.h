// The text encoding of the user's locale, in which a terminal is written and read.
//
// What reaches the terminal is plain text: no control character passes but the line feed, so that no text from a nib or
// a resource can move the cursor, and what the encoding lacks is shown in ASCII or as a question mark.

#ifndef TOOLBOX_CORE_TERMINAL_TERMINALENCODING_H
#define TOOLBOX_CORE_TERMINAL_TERMINALENCODING_H

#include <QByteArray>
#include <QString>

#include <locale.h>

namespace Toolbox {

class TerminalEncoding {
public:
    /// The encoding that the environment names (LC_ALL, LC_CTYPE, LANG); ASCII when it names no locale that is there.
    /// The locale of the process stays as it is.
    TerminalEncoding();
    ~TerminalEncoding();
    TerminalEncoding(const TerminalEncoding&) = delete;
    TerminalEncoding& operator=(const TerminalEncoding&) = delete;

    /// `text` as it can be shown, line by line: what is not seen but does something is an escape (OneLine.h), and every
    /// character can be encoded, or is a no-break space.
    QString showable(const QString& text) const;

    /// How many columns `character` takes.
    int columns(char32_t character) const;

    /// The bytes of a showable text.
    QByteArray encode(const QString& text) const;

    /// The text of `bytes`, in UTF-8 where the encoding is ASCII; what is not valid in it becomes U+FFFD.
    QString decode(const QByteArray& bytes) const;

private:
    QByteArray bytesOf(char32_t character) const;
    bool canEncode(const QString& text) const;
    QString showableCharacter(char32_t character) const;

    const locale_t m_locale;
    const bool m_isASCII;
};

}  // namespace Toolbox

#endif
