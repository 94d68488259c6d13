#include "toolbox/core/displays/ScreenLibrary.h"

#include <QFile>

#include <dlfcn.h>

namespace Toolbox {

namespace {

// The path of `name` in the folder of the library that this code is in. Empty where that is only known relative to the
// working directory, which is no place to load code from.
QByteArray besideThisLibrary(const char* name)
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&screenLibrary), &info) == 0)
        return QByteArray();
    const QByteArray own(info.dli_fname);
    return own.startsWith('/') ? own.left(own.lastIndexOf('/') + 1) + name : QByteArray();
}

const ScreenLibrary* load(QString* problem)
{
    const QByteArray path = besideThisLibrary(SCREEN_LIBRARY_NAME);
    // Never closed: Qt does not survive being unloaded.
    void* const handle = path.isEmpty() ? nullptr : dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    const void* const library = handle == nullptr ? nullptr : dlsym(handle, "toolboxScreenLibrary");
    if (library == nullptr)
        *problem = QStringLiteral("the library for screens, %1, cannot be loaded").arg(QFile::decodeName(path));
    return static_cast<const ScreenLibrary*>(library);
}

}  // namespace

const ScreenLibrary* screenLibrary(QString* problem)
{
    static const ScreenLibrary* library = nullptr;
    if (library == nullptr)
        library = load(problem);
    return library;
}

}  // namespace Toolbox
