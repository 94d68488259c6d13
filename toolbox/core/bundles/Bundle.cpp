#include "toolbox/core/bundles/Bundle.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/NeverDestroyed.h"
#include "toolbox/base/files/InputFile.h"
#include "toolbox/core/bundles/LanguageFolders.h"
#include "toolbox/core/bundles/PlugInRegister.h"
#include "toolbox/core/bundles/PropertyList.h"
#include "toolbox/core/core_foundation/StringObject.h"

#include <map>
#include <optional>
#include <vector>

namespace fs = std::filesystem;

namespace Toolbox {

namespace {

// Bundles that live until the process ends stay in it.
std::map<fs::path, Bundle*>& bundlesByFolder()
{
    return neverDestroyed<struct Bundles, std::map<fs::path, Bundle*>>();
}

// The property list in `file`, which is there; nothing, with the reason in `*problem`, when it cannot be used.
std::optional<QVariantMap> readFile(const fs::path& file, QString* problem)
{
    InputFile input;
    std::vector<UInt8> bytes;
    *problem = QStringLiteral("it cannot be read");
    if (input.open(file) != noErr || input.read(0, LONGEST_PROPERTY_LIST + 1, &bytes) != noErr)
        return std::nullopt;
    const auto length = static_cast<qsizetype>(bytes.size());
    return readPropertyList(QByteArray(reinterpret_cast<const char*>(bytes.data()), length), problem);
}

QVariantMap readInfo(const fs::path& folder, const BundleLayout& layout)
{
    const fs::path file = findInside(folder, layout.info);
    if (file.empty())
        return {};
    QString problem;
    const std::optional<QVariantMap> info = readFile(file, &problem);
    if (!info)
        remark("the Info.plist of the bundle " + quoted(QString::fromStdString(folder.filename().native()))
            + " was refused: " + problem.toStdString());
    return info.value_or(QVariantMap());
}

}  // namespace

Bundle::Bundle(const fs::path& folder)
    : m_folder(folder)
    , m_layout(layoutOf(folder))
    , m_info(readInfo(folder, m_layout))
{
    bundlesByFolder().emplace(m_folder, this);
    registerFactories(*this);
}

Bundle::~Bundle()
{
    unregisterFactories(*this);
    bundlesByFolder().erase(m_folder);
}

std::string Bundle::traceName() const
{
    return quoted(QString::fromStdString(m_folder.filename().native()));
}

Bundle* Bundle::create(const fs::path& folder)
{
    std::error_code missing;
    const fs::path real = fs::canonical(folder, missing);
    if (!fs::is_directory(real, missing))
        return nullptr;
    const auto found = bundlesByFolder().find(real);
    if (found == bundlesByFolder().end())
        return new Bundle(real);
    found->second->retain();
    return found->second;
}

QString Bundle::infoText(const char* key) const
{
    return m_info.value(key).toString();
}

QString Bundle::executableName() const
{
    for (const char* const key : {"CFBundleExecutable", "NSExecutable"}) {
        if (const QString name = infoText(key); !name.isEmpty())
            return name;
    }
    return QString::fromStdString(m_folder.stem());
}

bool Bundle::load(std::string* reason)
{
    if (m_executable.isLoaded())
        return true;
    const std::optional<std::string> name = fileName(executableName());
    const fs::path file = name.has_value() ? findExecutable(m_folder, *name) : fs::path();
    if (file.empty()) {
        *reason = "there is no file " + quoted(executableName()) + " inside it";
        return false;
    }
    return m_executable.load(file, reason);
}

void* Bundle::findFunction(const QString& name)
{
    const std::optional<std::string> symbol = fileName(name);
    std::string ignored;  // the caller knows only that there is no such function
    return symbol.has_value() && load(&ignored) ? m_executable.find(*symbol) : nullptr;
}

fs::path Bundle::findResource(
    const QString& name, const QString& type, const QString& subfolder, const QStringList& languages) const
{
    const std::optional<std::string> folder = fileName(subfolder);
    const std::optional<std::string> file = fileName(type.isEmpty() ? name : name + '.' + type);
    if (name.isEmpty() || !folder.has_value() || !file.has_value())
        return {};
    const QString region = infoText("CFBundleDevelopmentRegion");
    for (const QString& language : QStringList(QString()) + languageFolders(languages + QStringList(region))) {
        fs::path found = findInside(m_folder, m_layout.resources / fs::path(language.toStdString()) / *folder / *file);
        if (!found.empty())
            return found;
    }
    return {};
}

fs::path Bundle::builtInPlugIns() const
{
    return m_folder / m_layout.builtInPlugIns;
}

}  // namespace Toolbox
