// Somebody in front of the screen: does one thing after the other in the dialogs that come up.

#ifndef TESTS_TOOLBOX_SCREEN_PERSON_H
#define TESTS_TOOLBOX_SCREEN_PERSON_H

#include <QDialog>
#include <QString>

#include <functional>
#include <stdexcept>
#include <vector>

/// While it lives, each of its acts is done as soon as a dialog is up and active, in the order in which they are given.
/// A test fails if acts are left at its end, or if a dialog waits for more acts than there are, which ends it.
class Person {
public:
    using Act = std::function<void(QDialog&)>;

    explicit Person(const std::vector<Act>& acts);
    ~Person();
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;
};

/// Presses a key where the focus is; in the menu, while one is open.
Person::Act press(Qt::Key key);

/// Types `text` there, without a pause.
Person::Act type(const char* text);

/// Clicks on the beginning of the button that shows `title`.
Person::Act click(const char* title);

/// Closes the dialog as its window's close box does.
Person::Act close();

/// The only widget of its class in `dialog`. Throws std::runtime_error, which fails the test, if there is not one.
template <typename Widget> Widget& only(const QDialog& dialog)
{
    const QList<Widget*> all = dialog.findChildren<Widget*>();
    if (all.size() != 1)
        throw std::runtime_error("there is not one such widget but " + std::to_string(all.size()));
    return *all.front();
}

/// The widget of its class in `dialog` that shows `title`. Throws likewise.
template <typename Widget> Widget& titled(const QDialog& dialog, const char* title)
{
    for (Widget* const each : dialog.findChildren<Widget*>())
        if (each->text() == QString::fromUtf8(title))
            return *each;
    throw std::runtime_error(std::string("there is no widget titled ") + title);
}

#endif
