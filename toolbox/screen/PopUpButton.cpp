#include "toolbox/screen/PopUpButton.h"

#include "toolbox/screen/PlainText.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QListView>
#include <QStandardItemModel>

#include <algorithm>

namespace Toolbox {

namespace {

// Whether `event` is of a key with a letter, rather than of one that works the pop-up: the blank opens it.
bool hasALetter(const QKeyEvent& event)
{
    const QString text = event.text();
    return !text.isEmpty() && text.front().isPrint() && !text.front().isSpace();
}

bool isCommand(const QKeyEvent& event)
{
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

// `text` with question marks for what no font here has, which would be shown as boxes.
QString withoutBoxes(const QString& text, const QFontMetrics& metrics)
{
    QString shown;
    for (const char32_t character : text.toUcs4())
        shown += metrics.inFontUcs4(character) ? QString::fromUcs4(&character, 1) : QString(QLatin1Char('?'));
    return shown;
}

// What a closed pop-up shows, to assistive technology an item of a menu, though in no list: of such a one screen
// readers say, when asked, in which pop-up it is.
class Value : public QWidget {
    using QWidget::QWidget;
};

QAccessibleInterface* makeAccessibleValue(const QString&, QObject* object)
{
    auto* const value = dynamic_cast<Value*>(object);
    return value == nullptr ? nullptr : new QAccessibleWidget(value, QAccessible::MenuItem);
}

bool isOneLetterOnly(const QString& text)
{
    return text.count(text.front()) == text.size();
}

}  // namespace

PopUpButton::PopUpButton(const Control& control, QWidget* parent)
    : QComboBox(parent)
    , m_values(new QWidget(this))
{
    QAccessible::installFactory(makeAccessibleValue);
    m_values->hide();
    connect(this, &QComboBox::currentIndexChanged, this, &PopUpButton::selectCurrent);
    connect(this, &QComboBox::currentTextChanged, this, &PopUpButton::describe);
    for (std::size_t index = 0; index < control.items.size(); ++index)
        addItem(control, static_cast<int>(index));
    view()->installEventFilter(this);
    // Later, when the keys and the mouse have made what they select the current item of the open menu.
    connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PopUpButton::chooseSelected,
        Qt::QueuedConnection);
}

// With what nobody can choose marked as such.
void PopUpButton::addItem(const Control& control, int row)
{
    const auto& item = control.items[static_cast<std::size_t>(row)];
    const QString title = plainText(item.title).simplified();
    const QString readable =
        readableName(title, [this](const QString& text) { return withoutBoxes(text, fontMetrics()); });
    if (item.separator)
        insertSeparator(row);
    else
        QComboBox::addItem(readable);
    m_names.add(title);
    (new Value(m_values))->setAccessibleName(itemText(row));
    qobject_cast<QStandardItemModel*>(model())->item(row)->setEnabled(control.offers(row + 1));
    qobject_cast<QListView*>(view())->setRowHidden(row, item.hidden);
}

// The keys of the open menu arrive at its view. With a screen reader Return may close the menu before keys that were
// typed earlier have arrived. Letters among those go on from the chosen item; of the rest, Return's own arrival among
// them, only keys that move in the menu have an effect.
bool PopUpButton::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (typeAhead(key))
            return true;
        if (!view()->currentIndex().isValid()) {
            if (key.key() < Qt::Key_Home || key.key() > Qt::Key_PageDown || isCommand(key))
                return true;
            view()->setCurrentIndex(model()->index(currentIndex(), modelColumn()));
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void PopUpButton::keyPressEvent(QKeyEvent* event)
{
    const int before = currentIndex();
    if (!typeAhead(*event)) {
        if (hasALetter(*event))
            event->ignore();  // or a combo box would take the command for a letter
        else
            QComboBox::keyPressEvent(event);
    }
    if (currentIndex() != before)
        tellOfValue();
}

// False when the key is none for this.
bool PopUpButton::typeAhead(const QKeyEvent& event)
{
    if (!hasALetter(event) || isCommand(event))
        return false;
    // By the time at which the key was pressed, not by that at which a busy machine comes to see it; but a key that
    // assistive technology was told of first has lost its time.
    const quint64 now =
        event.timestamp() != 0 ? event.timestamp() : static_cast<quint64>(QDeadlineTimer::current().deadline());
    const bool isNew =
        now < m_lastTyped || now - m_lastTyped > static_cast<quint64>(QApplication::keyboardInputInterval());
    m_typed = isNew ? event.text() : m_typed + event.text();
    m_lastTyped = now;

    std::vector<int> rows = rowsBeginningLike(m_typed);
    const bool goesOn = isOneLetterOnly(m_typed) && (m_typed.size() == 1 || rows.empty());
    if (rows.empty() && goesOn)
        rows = rowsBeginningLike(m_typed.left(1));
    if (rows.empty())
        return true;
    const int first = presentRow() + (goesOn ? 1 : 0);
    const auto next = std::lower_bound(rows.begin(), rows.end(), first);
    goTo(next != rows.end() ? *next : rows.front());
    return true;
}

std::vector<int> PopUpButton::rowsBeginningLike(const QString& text) const
{
    std::vector<int> rows;
    for (const std::size_t index : m_names.beginningLike(text)) {
        const int row = static_cast<int>(index);
        const bool canBeChosen = qobject_cast<const QStandardItemModel*>(model())->item(row)->isEnabled()
            && !qobject_cast<const QListView*>(view())->isRowHidden(row);
        if (canBeChosen)
            rows.push_back(row);
    }
    return rows;
}

int PopUpButton::presentRow() const
{
    const QModelIndex shown = view()->currentIndex();  // of the open menu, or of one that is being closed
    return shown.isValid() ? shown.row() : currentIndex();
}

// Later, when the choice that closed the menu, if one did, was told: what is closed has no item with the focus, and the
// chosen one is selected.
void PopUpButton::hidePopup()
{
    QComboBox::hidePopup();
    const auto settle = [this] {
        if (view()->isVisible())  // again
            return;
        view()->selectionModel()->clearCurrentIndex();
        selectCurrent();
    };
    QMetaObject::invokeMethod(this, settle, Qt::QueuedConnection);
}

// So that assistive technology sees which item that is, and selects another when it chooses one.
void PopUpButton::selectCurrent()
{
    view()->selectionModel()->select(
        model()->index(currentIndex(), modelColumn()), QItemSelectionModel::ClearAndSelect);
}

// Screen readers that say the label of a pop-up leave out its name, which is the current item, and say a description.
// Of the menu's list, which has the focus when it opens, they do not say the item that has it.
void PopUpButton::describe(const QString& item)
{
    setAccessibleDescription(item.isEmpty() ? QString() : QStringLiteral("%1 is chosen").arg(item));
    view()->setAccessibleDescription(accessibleDescription());
}

// Screen readers say what gets the focus, and not when a closed pop-up gets another value; an item of the menu would
// sound as if that were open. What its parent does not list is gone to them, and this lists its menu alone: hence the
// widget that the values are in.
void PopUpButton::tellOfValue()
{
    QAccessibleEvent focus(m_values->children().at(currentIndex()), QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

void PopUpButton::chooseSelected()
{
    const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
    if (selected.isEmpty() || selected.front().row() == presentRow())
        return;
    const int row = selected.front().row();
    const bool wasOpen = view()->isVisible();
    if (wasOpen)
        hidePopup();
    goTo(row);
    if (!wasOpen && hasFocus())
        tellOfValue();
}

// In the open menu nothing is chosen yet.
void PopUpButton::goTo(int row)
{
    if (view()->isVisible()) {
        view()->setCurrentIndex(model()->index(row, modelColumn()));
    } else if (row != currentIndex()) {
        setCurrentIndex(row);
        emit activated(row);
    }
}

}  // namespace Toolbox
