#include "tests/toolbox/screen/Person.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <deque>

namespace {

constexpr int LONGEST_WAIT_FOR_A_DIALOG = 60000;  // milliseconds; a test that needs them has failed

std::deque<Person::Act> actsToDo;
bool isThere = false;
QElapsedTimer waiting;

void look();

// When what the last act has left to be done later is done: on a busy machine two timers can follow each other at once.
void lookAgain()
{
    QTimer::singleShot(1, qApp, [] { QMetaObject::invokeMethod(qApp, look, Qt::QueuedConnection); });
}

void look()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const bool isUp = dialog != nullptr && dialog->isActiveWindow();
    if (isUp && !actsToDo.empty()) {
        const Person::Act act = actsToDo.front();
        actsToDo.pop_front();
        waiting.start();
        lookAgain();  // first, since the act may open another dialog and come back only when that is done with
        try {
            act(*dialog);
        } catch (const std::exception& problem) {
            ADD_FAILURE() << problem.what();
        }
        return;
    }
    if (waiting.hasExpired(LONGEST_WAIT_FOR_A_DIALOG)) {
        ADD_FAILURE() << (actsToDo.empty() ? "a dialog waits for more" : "no dialog comes up");
        if (dialog != nullptr)
            dialog->done(QDialog::Rejected);
        waiting.start();
    }
    lookAgain();
}

// Whoever makes the application: it is made and ended with each dialog.
void comeToTheScreen()
{
    if (!isThere)
        return;
    lookAgain();
    QApplication::setKeyboardInputInterval(LONGEST_WAIT_FOR_A_DIALOG);  // what is typed, a busy machine does not divide
}

// Of the menu, while one is open.
QWidget* focus()
{
    QWidget* const menu = QApplication::activePopupWidget();
    return menu != nullptr && menu->focusWidget() != nullptr ? menu->focusWidget() : QApplication::focusWidget();
}

const bool PERSON_IS_REGISTERED = (qAddPreRoutine(comeToTheScreen), true);

}  // namespace

Person::Person(const std::vector<Act>& itsActs)
{
    EXPECT_TRUE(PERSON_IS_REGISTERED);
    actsToDo.assign(itsActs.begin(), itsActs.end());
    isThere = true;
    waiting.start();
}

Person::~Person()
{
    EXPECT_TRUE(actsToDo.empty()) << actsToDo.size() << " acts were not done";
    actsToDo.clear();
    isThere = false;
}

Person::Act press(Qt::Key key)
{
    return [key](QDialog&) { QTest::keyClick(focus(), key); };
}

Person::Act type(const char* text)
{
    return [text](QDialog&) {
        for (const QChar letter : QString::fromUtf8(text))
            QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
    };
}

Person::Act click(const char* title)
{
    return [title](QDialog& dialog) {
        auto& button = titled<QAbstractButton>(dialog, title);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(10, button.height() / 2));
    };
}

Person::Act close()
{
    return [](QDialog& dialog) { dialog.close(); };
}
