// The application object without which Qt shows nothing.

#ifndef TOOLBOX_DISPLAYS_WINDOW_QTAPPLICATION_H
#define TOOLBOX_DISPLAYS_WINDOW_QTAPPLICATION_H

#include <QApplication>
#include <QByteArray>

#include <memory>

namespace Toolbox {

/// An application for as long as it lives: the process's own where it has one, else one on `platform`
/// (WindowLibrary.h), made here and ended here, so that nothing of it is left between two windows. It takes no
/// arguments from the command line, and leaves the process's locale as it was.
class QtApplication {
public:
    explicit QtApplication(const QByteArray& platform);

private:
    QByteArray m_platform;
    int m_argumentCount;
    char* m_arguments[4];  // Qt keeps pointers to these
    std::unique_ptr<QApplication> m_own;
};

}  // namespace Toolbox

#endif
