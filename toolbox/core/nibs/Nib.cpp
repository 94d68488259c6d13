#include "toolbox/core/nibs/Nib.h"

#include "toolbox/base/TracedCall.h"
#include "toolbox/base/files/InputFile.h"
#include "toolbox/core/bundles/MainBundle.h"
#include "toolbox/core/core_foundation/StringObject.h"
#include "toolbox/core/nibs/NibArchive.h"
#include "toolbox/core/nibs/NibWindow.h"

namespace Toolbox {

namespace {

// No dialog comes near, and what an archive holds takes many times its size in memory.
constexpr std::uint64_t LONGEST_ARCHIVE = 2 * 1024 * 1024;

std::optional<QByteArray> readArchive(const std::string& path)
{
    InputFile file;
    std::vector<UInt8> bytes;
    if (file.open(path) != noErr || file.length() > LONGEST_ARCHIVE
        || file.read(0, static_cast<std::size_t>(file.length()), &bytes) != noErr)
        return std::nullopt;
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

OSStatus openNib(CFStringRef name, IBNibRef* result)
{
    if (result == nullptr)
        return paramErr;
    *result = nullptr;
    const QString text = textOf(name);
    if (text.isNull())
        return paramErr;
    const std::optional<QByteArray> archive = readArchive(
        mainBundleResource(QStringLiteral("objects"), QStringLiteral("xib"), text + QStringLiteral(".nib")));
    if (!archive)
        return kIBCarbonRuntimeCantFindNibFile;
    *result = (new Nib(*archive))->ref();
    return noErr;
}

OSStatus openWindow(IBNibRef ref, CFStringRef name, WindowRef* result)
{
    if (result == nullptr)
        return paramErr;
    *result = nullptr;
    const Nib* const nib = Nib::find(ref);
    const QString text = textOf(name);
    if (nib == nullptr || text.isNull())
        return paramErr;

    const std::optional<NibArchive> archive = NibArchive::read(nib->archive);
    const NibValue* const entry = archive ? archive->named(text) : nullptr;
    if (entry == nullptr)
        return kIBCarbonRuntimeCantFindObject;
    const NibReference* const reference = entry->as<NibReference>();
    if (reference == nullptr)
        return kIBCarbonRuntimeObjectNotOfRequestedType;
    const NibObject* const object = archive->find(*reference);
    if (object == nullptr)
        return kIBCarbonRuntimeCantFindObject;
    if (!isWindow(*object))
        return kIBCarbonRuntimeObjectNotOfRequestedType;
    std::unique_ptr<Window> window = makeWindow(*archive, *object);
    if (window == nullptr)
        return kIBCarbonRuntimeCantFindObject;
    *result = window.release()->ref();
    return noErr;
}

}  // namespace

}  // namespace Toolbox

using Toolbox::TracedCall;

OSStatus CreateNibReference(CFStringRef name, IBNibRef* nib)
{
    TracedCall call("CreateNibReference", name, nib);
    return call.gives(Toolbox::openNib(name, nib));
}

OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef name, WindowRef* window)
{
    TracedCall call("CreateWindowFromNib", nib, name, window);
    return call.gives(Toolbox::openWindow(nib, name, window));
}

void DisposeNibReference(IBNibRef nib)
{
    const TracedCall call("DisposeNibReference", nib);
    delete Toolbox::Nib::find(nib);
}
