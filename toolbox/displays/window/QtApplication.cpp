#include "toolbox/displays/window/QtApplication.h"

#include <clocale>
#include <string>

namespace Toolbox {

namespace {

char programName[] = "toolbox";
char platformOption[] = "-platform";

// Qt sets the process's locale to the user's, which would change how the numbers of everybody else are read. It says so
// where it does not like what it finds there; nobody can act on that.
class KeptLocale {
public:
    KeptLocale()
        : m_locale(std::setlocale(LC_ALL, nullptr))
        , m_handler(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}))
    {
    }
    ~KeptLocale()
    {
        qInstallMessageHandler(m_handler);
        std::setlocale(LC_ALL, m_locale.c_str());
    }
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;

private:
    const std::string m_locale;
    const QtMessageHandler m_handler;
};

}  // namespace

QtApplication::QtApplication(const QByteArray& platform)
    : m_platform(platform)
    , m_argumentCount(platform.isEmpty() ? 1 : 3)
    , m_arguments{programName, platformOption, m_platform.data(), nullptr}
{
    if (QCoreApplication::instance() != nullptr)
        return;
    const KeptLocale kept;
    m_own = std::make_unique<QApplication>(m_argumentCount, m_arguments);
    m_own->setQuitOnLastWindowClosed(false);  // the end of a dialog is none of the program
}

}  // namespace Toolbox
