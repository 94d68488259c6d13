// A label that shows plain text in the width that it has, however long the text and its words are.

#ifndef TOOLBOX_SCREEN_PLAINLABEL_H
#define TOOLBOX_SCREEN_PLAINLABEL_H

#include <QLabel>

namespace Toolbox {

/// Unlike QLabel, it also breaks words that are longer than a line, so that nothing is cut off. For assistive
/// technology it is a QLabel.
class PlainLabel : public QLabel {
public:
    /// The text begins at the top, unless `alignment` has Qt::AlignVCenter.
    PlainLabel(const QString& text, Qt::Alignment alignment, QWidget* parent);

    /// The size of the text with no line broken.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString m_text;
};

}  // namespace Toolbox

#endif
