#include "toolbox/screen/PlainText.h"

#include "toolbox/core/dialogs/MacText.h"
#include "toolbox/screen/ScreenDialog.h"

#include <QRegularExpression>

#include <algorithm>

namespace Toolbox {

namespace {

// `text` with places to break at in the words that are wider than `width`: a label knows only those between words.
QString withBreaks(const QString& text, const QFontMetrics& metrics, int width)
{
    static const QRegularExpression words(QStringLiteral("\\S+"));
    static const QRegularExpression withinWord(QStringLiteral("(?<=\\S)(?=[^\\s\\p{M}])"));
    QString broken;
    qsizetype done = 0;
    for (auto found = words.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        QString word = match.captured();
        if (metrics.horizontalAdvance(word) > width)
            word.replace(withinWord, QString(QChar(0x200B)));
        broken += text.mid(done, match.capturedStart() - done) + word;
        done = match.capturedEnd();
    }
    return broken + text.mid(done);
}

}  // namespace

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

QPushButton* makePushButton(const QString& title, QWidget* parent)
{
    constexpr int PADDING = 12;  // at both ends of the title
    auto* const button = new QPushButton(plainTitle(title), parent);
    const int text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
    button->setMinimumWidth(std::min(text + 2 * scaled(PADDING, *button), MOST_PIXELS));
    return button;
}

QLabel* makeLabel(const QString& text, Qt::Alignment alignment, QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(plainText(text));
    label->setAccessibleName(label->text());
    label->setAlignment(alignment);
    return label;
}

void breakLines(QLabel& label, int width)
{
    label.setText(withBreaks(label.text(), label.fontMetrics(), width));
    label.setMinimumWidth(width);
    label.setWordWrap(true);
}

}  // namespace Toolbox
