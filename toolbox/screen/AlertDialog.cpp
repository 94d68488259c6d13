#include "toolbox/screen/AlertDialog.h"

#include "toolbox/screen/AlertIcon.h"
#include "toolbox/screen/BoundsLayout.h"
#include "toolbox/screen/PlainText.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

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
constexpr int LEAST_BUTTON_WIDTH = 69;
constexpr int SMALL_FONT = 11;  // of the explanation, where the font has DRAWN_FONT

// Where alerts from resources have their icon.
constexpr QRect LAYOUT_ICON(20, 10, 32, 32);

// The kind, and whose alert it is.
QString titleOf(const Alert& alert)
{
    return QStringLiteral("%1 - %2").arg(
        wordFor(alert.type, QStringLiteral("Alert")), QCoreApplication::applicationName());
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
    icon->setAccessibleName(wordFor(type, QString()));
    return icon;
}

// A text, which can be selected: somebody may want to send it to whoever can help.
QLabel* makeText(const QString& text, QWidget* parent)
{
    auto* const label = makeLabel(text, Qt::AlignLeft, parent);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

// Of an alert, assistive technology says the texts at once.
QAccessibleInterface* makeAccessibleAlert(const QString&, QObject* object)
{
    auto* const alert = dynamic_cast<AlertDialog*>(object);
    return alert == nullptr ? nullptr : new QAccessibleWidget(alert, QAccessible::AlertMessage);
}

}  // namespace

AlertDialog::AlertDialog(const Alert& alert, QWidget* parent)
    : ScreenDialog(titleOf(alert), alert.closingButton() != 0 ? Qt::WindowCloseButtonHint : Qt::WindowFlags(), parent)
    , m_alert(alert)
    , m_pressed(alert.unansweredButton())
{
    QAccessible::installFactory(makeAccessibleAlert);  // once, however often it is called
    auto* const content = new QWidget(this);
    if (layoutIsUsable())
        arrangeByLayout(content);
    else
        arrangeAsStandardAlert(content);
    setContent(content);
    for (QPushButton* const each : findChildren<QPushButton*>())
        if (each->isDefault())
            each->setFocus();
}

void AlertDialog::reject()
{
    if (m_alert.closingButton() != 0)
        press(m_alert.closingButton());
}

bool AlertDialog::layoutIsUsable() const
{
    if (!m_alert.layout)
        return false;
    const QSize size = areaOf(m_alert.layout->bounds).size();
    const QSize needed(scaled(size.width(), *this), scaled(size.height(), *this));
    return needed == needed.boundedTo(largestSize())
        && std::all_of(m_alert.buttons.begin(), m_alert.buttons.end(),
            [&size](const AlertButton& each) { return QRect(QPoint(0, 0), size).contains(areaOf(each.bounds)); });
}

void AlertDialog::arrangeByLayout(QWidget* content)
{
    std::vector<PlacedWidget> places;
    QLabel* const icon = makeIcon(m_alert.type, LAYOUT_ICON.width(), content);
    if (icon != nullptr)
        places.push_back({icon, LAYOUT_ICON});
    for (const AlertText& each : m_alert.layout->texts)
        places.push_back({makeText(each.text, content), areaOf(each.bounds)});
    for (const AlertButton& each : m_alert.buttons)
        places.push_back({makeButton(each, content), areaOf(each.bounds)});
    layOutByBounds(content, areaOf(m_alert.layout->bounds).size(), places);
}

void AlertDialog::arrangeAsStandardAlert(QWidget* content)
{
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    layout->setSpacing(GAP);
    layout->addLayout(makeUpperPart(content));
    layout->addLayout(makeButtonRow(content));
}

// The icon and the texts.
QLayout* AlertDialog::makeUpperPart(QWidget* content)
{
    auto* const upper = new QHBoxLayout;
    upper->setSpacing(GAP);
    int mostForTexts = largestSize().width() - 2 * MARGIN - 2 * SCROLLED_BORDER
        - style()->pixelMetric(QStyle::PM_ScrollBarExtent);  // which they may get
    const int iconSize = scaled(ICON_SIZE, *this);
    QLabel* const icon = makeIcon(m_alert.type, iconSize, content);
    if (icon != nullptr) {
        upper->addWidget(icon, 0, Qt::AlignTop);
        mostForTexts -= iconSize + GAP;
    }
    QWidget* const texts = makeTexts(mostForTexts, content);
    // Higher than half the screen, they are scrolled, and the buttons stay where they are seen.
    upper->addWidget(
        makeScrollArea(texts, QSize(largestSize().width(), largestSize().height() / 2), content), 0, Qt::AlignVCenter);
    upper->addStretch();
    return upper;
}

// From left to right: the highest number first, and the room between those at the left and those at the right.
QLayout* AlertDialog::makeButtonRow(QWidget* content)
{
    auto* const lower = new QHBoxLayout;
    lower->setSpacing(BUTTON_GAP);
    bool isLeft = true;
    for (auto each = m_alert.buttons.rbegin(); each != m_alert.buttons.rend(); ++each) {
        if (isLeft && each->number < kAlertStdAlertOtherButton)
            lower->addStretch();
        isLeft = isLeft && each->number >= kAlertStdAlertOtherButton;
        QPushButton* const button = makeButton(*each, content);
        button->setMinimumWidth(std::max(button->minimumWidth(), scaled(LEAST_BUTTON_WIDTH, *this)));
        lower->addWidget(button);
    }
    return lower;
}

// The text and the explanation, one below the other, as wide as is good to read and as high as they need.
QWidget* AlertDialog::makeTexts(int most, QWidget* parent) const
{
    auto* const texts = new QWidget(parent);
    auto* const layout = new QVBoxLayout(texts);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(TEXT_GAP);
    QFont bold = font();
    bold.setBold(!m_alert.layout);  // which would have had it plain
    QFont small = font();
    small.setPixelSize(small.pixelSize() * SMALL_FONT / DRAWN_FONT);
    std::vector<QLabel*> labels;
    for (const auto& [text, itsFont] : {std::pair(m_alert.text, bold), std::pair(m_alert.explanation, small)}) {
        if (text.isEmpty())
            continue;
        labels.push_back(makeText(text, texts));
        labels.back()->setFont(itsFont);
        layout->addWidget(labels.back());
    }
    int width = scaled(LEAST_TEXT_WIDTH, *this);
    for (const QLabel* const each : labels)
        width = std::clamp(each->sizeHint().width(), width, scaled(MOST_TEXT_WIDTH, *this));
    width = std::min(width, most);
    for (QLabel* const each : labels)
        breakLines(*each, width);
    texts->setFixedSize(width, layout->heightForWidth(width));
    return texts;
}

QPushButton* AlertDialog::makeButton(const AlertButton& button, QWidget* parent)
{
    QPushButton* const made = makePushButton(button.title, parent);
    made->setEnabled(button.enabled);
    made->setDefault(button.number == m_alert.defaultButton);
    connect(made, &QPushButton::clicked, this, [this, number = button.number] { press(number); });
    return made;
}

void AlertDialog::press(SInt16 number)
{
    m_pressed = number;
    done(Accepted);
}

}  // namespace Toolbox
