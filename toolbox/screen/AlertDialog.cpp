#include "toolbox/screen/AlertDialog.h"

#include "toolbox/screen/AlertIcon.h"
#include "toolbox/screen/DialogContent.h"
#include "toolbox/screen/DialogFont.h"
#include "toolbox/screen/PlacedItems.h"
#include "toolbox/screen/PlainLabel.h"
#include "toolbox/screen/PlainText.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace Toolbox {

namespace {

// The arrangement of standard alerts, in pixels.
constexpr int MARGIN = 20;
constexpr int GAP = 16;      // between the icon and the texts, and above the buttons
constexpr int TEXT_GAP = 8;  // between the text and the explanation
constexpr int BUTTON_GAP = 10;
constexpr int ICON_SIZE = 48;
constexpr int LEAST_TEXT_WIDTH = 260;
constexpr int MOST_TEXT_WIDTH = 420;
constexpr int MOST_BUTTON_WIDTH = 600;

// Where alerts from resources have their icon.
constexpr QRect LAYOUT_ICON(20, 10, 32, 32);

// Says what the icon shows.
QString titleOf(AlertType type)
{
    switch (type) {
    case kAlertStopAlert:
        return QStringLiteral("Stop");
    case kAlertNoteAlert:
        return QStringLiteral("Note");
    case kAlertCautionAlert:
        return QStringLiteral("Caution");
    default:
        return QStringLiteral("Alert");
    }
}

// Null for an alert without an icon.
QLabel* makeIcon(AlertType type, int size, QWidget* parent)
{
    const QPixmap picture = alertIcon(type, size, *parent);
    if (picture.isNull())
        return nullptr;
    auto* const icon = new QLabel(parent);
    icon->setPixmap(picture);
    icon->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    icon->setAccessibleName(titleOf(type));
    return icon;
}

PlainLabel* makeText(const QString& text, const QFont& font, QWidget* parent)
{
    auto* const label = new PlainLabel(text, Qt::AlignLeft, parent);
    label->setFont(font);
    return label;
}

QFont boldDialogFont()
{
    QFont font = dialogFont();
    font.setBold(true);
    return font;
}

// The text and the explanation, one below the other, as wide as is good to read and as high as they need.
QWidget* makeTexts(const Alert& alert, QWidget* parent)
{
    auto* const texts = new QWidget(parent);
    std::vector<PlainLabel*> labels;
    if (!alert.text.isEmpty())
        labels.push_back(makeText(alert.text, boldDialogFont(), texts));
    if (!alert.explanation.isEmpty())
        labels.push_back(makeText(alert.explanation, smallDialogFont(), texts));

    int width = LEAST_TEXT_WIDTH;
    for (const PlainLabel* const each : labels)
        width = std::clamp(each->sizeHint().width(), width, MOST_TEXT_WIDTH);
    int height = 0;
    for (PlainLabel* const each : labels) {
        height += height == 0 ? 0 : TEXT_GAP;
        each->setGeometry(0, height, width, each->heightForWidth(width));
        height += each->height();
    }
    texts->setFixedSize(width, height);
    return texts;
}

// `texts`, or where they are higher than half the screen, a part of them that can be scrolled.
QWidget* withinScreen(QWidget* texts, QWidget* parent)
{
    const int most = largestSize(*parent).height() / 2;
    if (texts->height() <= most)
        return texts;
    auto* const area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    area->setWidget(texts);
    area->setFixedSize(texts->width() + area->style()->pixelMetric(QStyle::PM_ScrollBarExtent), most);
    return area;
}

bool isAtLeft(const Alert& alert, const AlertButton& button)
{
    return !alert.layout && button.number >= kAlertStdAlertOtherButton;
}

// Which button closing the alert presses; 0 for none.
SInt16 closingButton(const Alert& alert)
{
    return alert.cancelButton == 0 && alert.buttons.size() == 1 ? alert.buttons.front().number : alert.cancelButton;
}

QAccessibleInterface* makeAccessibleAlert(const QString&, QObject* object)
{
    auto* const alert = dynamic_cast<AlertDialog*>(object);
    return alert == nullptr ? nullptr : new QAccessibleWidget(alert, QAccessible::AlertMessage);
}

// Has assistive technology say at once what the alert is about.
void announce(AlertDialog& dialog, const Alert& alert)
{
    QAccessible::installFactory(makeAccessibleAlert);  // once, however often it is called
    QStringList texts{plainText(alert.text), plainText(alert.explanation)};
    texts.removeAll(QString());
    dialog.setAccessibleDescription(texts.join(QLatin1Char('\n')));
}

Qt::WindowFlags flagsFor(const Alert& alert)
{
    const Qt::WindowFlags flags = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    return closingButton(alert) != 0 ? flags | Qt::WindowCloseButtonHint : flags;
}

}  // namespace

AlertDialog::AlertDialog(const Alert& alert, QWidget* parent)
    : QDialog(parent, flagsFor(alert))
    , m_alert(alert)
    , m_pressed(alert.unansweredButton())
{
    setWindowTitle(titleOf(alert.type));
    setFont(dialogFont());
    announce(*this, alert);
    if (!alert.layout || !arrangeByLayout())
        arrangeAsStandardAlert();
}

void AlertDialog::reject()
{
    if (m_alert.cancelButton != 0)
        press(m_alert.cancelButton);
}

void AlertDialog::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (closingButton(m_alert) != 0)
        press(closingButton(m_alert));
}

bool AlertDialog::buttonsLieWithin(const QSize& size) const
{
    return std::all_of(m_alert.buttons.begin(), m_alert.buttons.end(), [&size](const AlertButton& each) {
        const QRect area = areaOf(each.bounds);
        return !area.isEmpty() && QRect(QPoint(0, 0), size).contains(area);
    });
}

// False, with nothing left behind, when the layout is of no use.
bool AlertDialog::arrangeByLayout()
{
    const QSize size = areaOf(m_alert.layout->bounds).size();
    if (size != size.boundedTo(largestSize(*this)) || !buttonsLieWithin(size))
        return false;

    auto content = std::make_unique<QWidget>(this);
    PlacedItems items;
    QLabel* const icon = makeIcon(m_alert.type, LAYOUT_ICON.width(), content.get());
    if (icon != nullptr)
        items.add(icon, LAYOUT_ICON);
    for (const AlertText& each : m_alert.layout->texts)
        items.add(makeText(each.text, dialogFont(), content.get()), areaOf(each.bounds));
    for (const AlertButton& each : m_alert.buttons)
        items.add(makeButton(each, content.get()), areaOf(each.bounds));
    if (!items.fit())
        return false;
    const QSize placed = items.place(size);
    setContent(*this, content.release(), placed);
    return true;
}

void AlertDialog::arrangeAsStandardAlert()
{
    auto* const content = new QWidget(this);
    auto* const upper = new QHBoxLayout;
    upper->setSpacing(GAP);
    QLabel* const icon = makeIcon(m_alert.type, ICON_SIZE, content);
    if (icon != nullptr)
        upper->addWidget(icon, 0, Qt::AlignTop);
    upper->addWidget(withinScreen(makeTexts(m_alert, content), content), 0, Qt::AlignVCenter);
    upper->addStretch();

    auto* const lower = new QHBoxLayout;
    lower->setSpacing(BUTTON_GAP);
    lower->addStretch();
    // From left to right: the highest number first, and the room between those at the left and those at the right.
    int atLeft = 0;
    for (auto each = m_alert.buttons.rbegin(); each != m_alert.buttons.rend(); ++each) {
        QPushButton* const button = makeButton(*each, content);
        button->setMaximumWidth(MOST_BUTTON_WIDTH);
        if (isAtLeft(m_alert, *each))
            lower->insertWidget(atLeft++, button);
        else
            lower->addWidget(button);
    }

    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    layout->setSpacing(GAP);
    layout->addLayout(upper);
    layout->addLayout(lower);
    setContent(*this, content, layout->sizeHint());
}

QPushButton* AlertDialog::makeButton(const AlertButton& button, QWidget* parent)
{
    auto* const made = new QPushButton(plainTitle(button.title), parent);
    made->setEnabled(button.enabled);
    made->setAutoDefault(false);  // as in windows, Return presses the default one wherever the focus is
    if (button.number == m_alert.defaultButton) {
        made->setDefault(true);
        made->setFocus();
    }
    QObject::connect(made, &QPushButton::clicked, this, [this, number = button.number] { press(number); });
    return made;
}

void AlertDialog::press(SInt16 number)
{
    m_pressed = number;
    done(QDialog::Accepted);
}

}  // namespace Toolbox
