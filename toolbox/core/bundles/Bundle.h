// The object behind a CFBundleRef: one folder, what its Info.plist says, and its code once that is loaded.

#ifndef TOOLBOX_CORE_BUNDLES_BUNDLE_H
#define TOOLBOX_CORE_BUNDLES_BUNDLE_H

#include "toolbox/core/bundles/BundleLayout.h"
#include "toolbox/core/bundles/Executable.h"
#include "toolbox/core/core_foundation/CFObject.h"

#include <CoreFoundation/CFBundle.h>

#include <QStringList>
#include <QVariantMap>

namespace Toolbox {

/// A bundle. There is never more than one for the same folder, whatever path it was reached by.
class Bundle : public CFObject {
public:
    /// The bundle in `folder`, for one owner more: the one there is already, or a new one, whose factories are then
    /// registered. An Info.plist that is missing, that leads out of the folder or that cannot be read counts as empty.
    /// Null where there is no folder.
    static Bundle* create(const std::filesystem::path& folder);

    /// Takes its factories out of the register. Its code stays.
    ~Bundle() override;

    /// The folder's name, quoted.
    std::string traceName() const override;

    /// What the Info.plist says.
    const QVariantMap& info() const { return m_info; }

    /// Loads the executable. True when it is loaded, then or before; else `*reason` says why it is not, a clause.
    bool load(std::string* reason);

    /// The function `name` of the executable, which is loaded if need be; null when there is none.
    void* findFunction(const QString& name);

    /// The path of the resource `name`.`type` (`name` alone for an empty type) in the folder `subfolder` (or an empty
    /// text) of the resources: first among those without a language, then in `languages`, then in the development
    /// region. Empty when it is not there or not in the bundle.
    std::filesystem::path findResource(
        const QString& name, const QString& type, const QString& subfolder, const QStringList& languages) const;

    /// The folder of the plug-ins that it brings along, which need not be there.
    std::filesystem::path builtInPlugIns() const;

private:
    explicit Bundle(const std::filesystem::path& folder);

    QString infoText(const char* key) const;
    QString executableName() const;

    const std::filesystem::path m_folder;  // absolute, without symbolic links
    const BundleLayout& m_layout;
    const QVariantMap m_info;
    Executable m_executable;
};

}  // namespace Toolbox

#endif
