// The application object without which Qt shows nothing.

#ifndef TOOLBOX_SCREEN_QTAPPLICATION_H
#define TOOLBOX_SCREEN_QTAPPLICATION_H

#include <QApplication>
#include <QByteArray>

#include <memory>
#include <new>
#include <optional>

namespace Toolbox {

/// While this lives, Qt says nothing but why it ends the process by a fatal error. It would complain of a locale that
/// is not UTF-8, of which nobody here takes notice, and of a screen that has gone, after which the process ends anyway.
class QuietQt {
public:
    QuietQt();
    ~QuietQt();
    QuietQt(const QuietQt&) = delete;
    QuietQt& operator=(const QuietQt&) = delete;

private:
    const QtMessageHandler m_handler;
};

/// While this lives, memory that runs out ends the process, by std::terminate with a std::bad_alloc: Qt does not
/// survive being unwound.
class UnwindingNothing {
public:
    UnwindingNothing();
    ~UnwindingNothing();
    UnwindingNothing(const UnwindingNothing&) = delete;
    UnwindingNothing& operator=(const UnwindingNothing&) = delete;

private:
    const std::new_handler m_handler;
};

/// An application for as long as it lives: the process's own where it has one, else one on `platform`
/// (ScreenLibrary.h), made here and ended here, so that nothing of it is left between two windows. It takes no
/// arguments from the command line, and leaves the process's locale as it was.
class QtApplication {
public:
    explicit QtApplication(const QByteArray& platform);

private:
    const UnwindingNothing m_unwindingNothing;
    QByteArray m_platform;
    int m_argumentCount;
    char* m_arguments[4];  // Qt keeps pointers to these
    std::optional<QuietQt> m_quiet;
    std::unique_ptr<QApplication> m_own;
};

}  // namespace Toolbox

#endif
