#include "toolbox/core/nibs/Nib.h"

#include "toolbox/base/CurrentReport.h"
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

// Remarks on why the external gets no nib, or no window from it, since the codes that it gets do not say.
void remarkRefusal(const QString& what, const QString& name, const QString& reason)
{
    remark((QStringLiteral("the %1 \"%2\" was refused: %3").arg(what, name, reason)).toStdString());
}

std::optional<QByteArray> readArchive(const std::string& path, QString* problem)
{
    InputFile file;
    std::vector<UInt8> bytes;
    if (file.open(path) != noErr)
        *problem = QStringLiteral("the main bundle has no objects.xib of it that can be read");
    else if (file.length() > LONGEST_ARCHIVE)
        *problem = QStringLiteral("its objects.xib has more than 2 MiB");
    else if (file.read(0, static_cast<std::size_t>(file.length()), &bytes) != noErr)
        *problem = QStringLiteral("its objects.xib cannot be read");
    else
        return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    return std::nullopt;
}

OSStatus openNib(CFStringRef name, IBNibRef* result)
{
    if (result == nullptr)
        return paramErr;
    *result = nullptr;
    const QString text = textOf(name);
    if (text.isNull())
        return paramErr;
    QString problem;
    const std::optional<QByteArray> archive = readArchive(
        mainBundleResource(QStringLiteral("objects"), QStringLiteral("xib"), text + QStringLiteral(".nib")), &problem);
    if (!archive) {
        remarkRefusal(QStringLiteral("nib"), text, problem);
        return kIBCarbonRuntimeCantFindNibFile;
    }
    *result = (new Nib(text, *archive))->ref();
    return noErr;
}

// The window `name` of `archive`, or null, with the reason in `*problem` and the code for that in `*status`.
std::unique_ptr<Window> findWindow(const NibArchive& archive, const QString& name, QString* problem, OSStatus* status)
{
    *status = kIBCarbonRuntimeCantFindObject;
    const NibValue* const entry = archive.named(name);
    const NibReference* const reference = entry == nullptr ? nullptr : entry->as<NibReference>();
    const NibObject* const object = reference == nullptr ? nullptr : archive.find(*reference);
    *problem = QStringLiteral("the nib names nothing so");
    if (entry == nullptr || (reference != nullptr && object == nullptr))
        return nullptr;
    if (object == nullptr || !isWindow(*object)) {
        *problem = QStringLiteral("it is not a window");
        *status = kIBCarbonRuntimeObjectNotOfRequestedType;
        return nullptr;
    }
    return makeWindow(archive, *object, name, problem);
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

    QString problem;
    const std::optional<NibArchive> archive = NibArchive::read(nib->archive, &problem);
    if (!archive) {
        remarkRefusal(QStringLiteral("nib"), nib->name, problem);
        return kIBCarbonRuntimeCantFindObject;
    }
    OSStatus status = noErr;
    std::unique_ptr<Window> window = findWindow(*archive, text, &problem, &status);
    if (window == nullptr) {
        remarkRefusal(QStringLiteral("window"), text, problem);
        return status;
    }
    *result = window.release()->ref();
    return noErr;
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

OSStatus CreateNibReference(CFStringRef name, IBNibRef* nib)
{
    TracedCall call("CreateNibReference", name, nib);
    return call.gives(openNib(name, nib));
}

OSStatus CreateWindowFromNib(IBNibRef nib, CFStringRef name, WindowRef* window)
{
    TracedCall call("CreateWindowFromNib", nib, name, window);
    return call.gives(openWindow(nib, name, window));
}

void DisposeNibReference(IBNibRef nib)
{
    const TracedCall call("DisposeNibReference", nib);
    delete Nib::find(nib);
}
