#include "toolbox/screen/QtApplication.h"

#include "toolbox/core/bundles/MainBundle.h"

#include <QIcon>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <exception>
#include <new>
#include <string>

namespace Toolbox {

namespace {

char platformOption[] = "-platform";

// Lets Qt say why it ends the process, and nothing else.
void sayOnlyTheWorst(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// Ends the process at once, before anything is unwound, and whoever looks why finds the exception.
void endForWantOfMemory()
{
    try {
        throw std::bad_alloc();
    } catch (...) {
        std::terminate();
    }
}

// Qt sets the process's locale to the user's, which would change how everybody else's numbers are read. While this
// lives it may; then all is as before.
class KeptLocale {
public:
    KeptLocale()
        : m_locale(std::setlocale(LC_ALL, nullptr))
    {
    }
    ~KeptLocale() { std::setlocale(LC_ALL, m_locale.c_str()); }
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;

private:
    const std::string m_locale;
};

}  // namespace

QuietQt::QuietQt()
    : m_handler(qInstallMessageHandler(sayOnlyTheWorst))
{
}

QuietQt::~QuietQt()
{
    qInstallMessageHandler(m_handler);
}

UnwindingNothing::UnwindingNothing()
    : m_handler(std::set_new_handler(endForWantOfMemory))
{
}

UnwindingNothing::~UnwindingNothing()
{
    std::set_new_handler(m_handler);
}

QtApplication::QtApplication(const QByteArray& platform)
    : m_platform(platform)
    , m_argumentCount(platform.isEmpty() ? 1 : 3)
    , m_arguments{program_invocation_short_name, platformOption, m_platform.data(), nullptr}
{
    if (QCoreApplication::instance() != nullptr)
        return;
    m_quiet.emplace();
    const KeptLocale kept;
    m_own = std::make_unique<QApplication>(m_argumentCount, m_arguments);
    if (const QString name = mainBundleName(); !name.isEmpty())
        m_own->setApplicationName(name);  // which assistive technology says
    // For taskbars: by the entry of this name they know whose windows these are.
    m_own->setDesktopFileName(QString::fromLocal8Bit(program_invocation_short_name));
    m_own->setWindowIcon(QIcon(QStringLiteral(":/ApplicationIcon.svg")));
}

}  // namespace Toolbox
