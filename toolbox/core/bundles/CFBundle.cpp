#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/core/bundles/Bundle.h"
#include "toolbox/core/bundles/LanguageFolders.h"
#include "toolbox/core/bundles/MainBundle.h"
#include "toolbox/core/core_foundation/StringObject.h"
#include "toolbox/core/core_foundation/URLObject.h"

#include <CoreFoundation/CFBundle.h>
#include <Toolbox/Application.h>

namespace fs = std::filesystem;

namespace Toolbox {

namespace {

// A reference, not an object: a caller may have released what was only borrowed.
CFBundleRef mainBundle = nullptr;

CFBundleRef createBundle(const fs::path& folder)
{
    const Bundle* const bundle = Bundle::create(folder);
    return bundle == nullptr ? nullptr : referenceTo<CFBundleRef>(*bundle);
}

// As resources are looked for: the locale decides nothing but which of a bundle's own language folders is taken.
QStringList resourceLanguages()
{
    QStringList languages;
    for (const std::string& language : UserLanguages())
        languages += QString::fromStdString(language);
    return languages;
}

// Whether `string` is null, which stands for no text, or a live string.
bool isOptionalString(CFStringRef string)
{
    return string == nullptr || findObject<StringObject>(string) != nullptr;
}

CFURLRef copyResourceURL(const Bundle* bundle, CFStringRef name, CFStringRef type, CFStringRef subfolder)
{
    if (bundle == nullptr || !isOptionalString(type) || !isOptionalString(subfolder))
        return nullptr;
    return createURL(bundle->findResource(textOf(name), textOf(type), textOf(subfolder), resourceLanguages()));
}

}  // namespace

bool SetMainBundle(const std::string& folder)
{
    const CFBundleRef bundle = createBundle(folder);
    if (bundle == nullptr)
        return false;
    if (auto* const previous = findObject<Bundle>(mainBundle))
        previous->release();
    mainBundle = bundle;
    return true;
}

QString mainBundleName()
{
    const auto* const bundle = findObject<Bundle>(mainBundle);
    return bundle == nullptr ? QString() : bundle->info().value(QStringLiteral("CFBundleName")).toString();
}

fs::path mainBundleResource(const QString& name, const QString& type, const QString& subfolder)
{
    const auto* const bundle = findObject<Bundle>(mainBundle);
    return bundle == nullptr ? fs::path() : bundle->findResource(name, type, subfolder, resourceLanguages());
}

}  // namespace Toolbox

using namespace Toolbox;

CFBundleRef CFBundleGetMainBundle()
{
    TracedCall call("CFBundleGetMainBundle");
    return call.gives(mainBundle);
}

CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url)
{
    TracedCall call("CFBundleCreate", allocator, url);
    const auto* const found = findObject<URLObject>(url);
    if (found == nullptr)
        return call.gives<CFBundleRef>(nullptr);
    const CFBundleRef bundle = createBundle(found->path());
    if (bundle == nullptr)
        remark("there is no bundle " + found->traceName());
    return call.gives(bundle);
}

Boolean CFBundleLoadExecutable(CFBundleRef bundle)
{
    TracedCall call("CFBundleLoadExecutable", bundle);
    auto* const found = findObject<Bundle>(bundle);
    std::string reason;
    const bool loaded = found != nullptr && found->load(&reason);
    if (found != nullptr && !loaded)
        remark("the bundle " + found->traceName() + " has no executable that can be loaded: " + reason);
    return call.gives<Boolean>(loaded);
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name)
{
    TracedCall call("CFBundleGetFunctionPointerForName", bundle, name);
    auto* const found = findObject<Bundle>(bundle);
    const auto* const string = findObject<StringObject>(name);
    if (found == nullptr || string == nullptr)
        return call.gives<void*>(nullptr);
    void* const function = found->findFunction(string->text());
    if (function == nullptr)
        remark("the bundle " + found->traceName() + " has no function " + string->traceName());
    return call.gives(function);
}

CFURLRef CFBundleCopyResourceURL(CFBundleRef bundle, CFStringRef name, CFStringRef type, CFStringRef subfolder)
{
    TracedCall call("CFBundleCopyResourceURL", bundle, name, type, subfolder);
    return call.gives(copyResourceURL(findObject<Bundle>(bundle), name, type, subfolder));
}

CFURLRef CFBundleCopyBuiltInPlugInsURL(CFBundleRef bundle)
{
    TracedCall call("CFBundleCopyBuiltInPlugInsURL", bundle);
    const auto* const found = findObject<Bundle>(bundle);
    return call.gives(found == nullptr ? nullptr : createURL(found->builtInPlugIns()));
}
