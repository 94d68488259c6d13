// The register of plug-ins: which factories there are, whose they are and which types they make.

#ifndef TOOLBOX_CORE_BUNDLES_PLUGINREGISTER_H
#define TOOLBOX_CORE_BUNDLES_PLUGINREGISTER_H

#include "toolbox/core/bundles/Bundle.h"
#include "toolbox/core/core_foundation/UUIDObject.h"

#include <QString>

#include <vector>

namespace Toolbox {

/// A factory: a function of a bundle's code, known by an id.
struct Factory {
    UUIDBytes id;
    Bundle* bundle;
    QString function;
};

/// Registers what the Info.plist of `bundle` says, as CFPlugIn.h describes it: the factories of CFPlugInFactories, then
/// the types of CFPlugInTypes. No code is loaded for it.
void registerFactories(Bundle& bundle);

/// Takes out all factories of `bundle`, with their types.
void unregisterFactories(const Bundle& bundle);

/// The factory `id`, or null when it is not registered or not for `type`.
const Factory* findFactory(const UUIDBytes& id, const UUIDBytes& type);

/// All factories for `type`, each bundle's in the order of its Info.plist.
std::vector<Factory> factoriesForType(const UUIDBytes& type);

}  // namespace Toolbox

#endif
