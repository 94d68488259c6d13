// Folders, URLs, bundles, and the functions of Security.framework, which are only to be had by their names.

#include "tests/double/Call.h"
#include "tests/double/State.h"

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

#include <cstring>

using namespace ToolboxDouble;

namespace {

struct Folder : Object { };
struct URL : CFObject { };
struct Bundle : CFObject { };
struct Authorization : Object { };

// A file reference holds the address of its folder.
const void* folderIn(const FSRef& file)
{
    const void* address = nullptr;
    std::memcpy(&address, file.hidden, sizeof address);
    return address;
}

std::string describeItems(const AuthorizationItemSet* set)
{
    if (set == nullptr)
        return "null";
    std::string text;
    for (UInt32 i = 0; i < set->count; ++i) {
        const AuthorizationItem& item = set->items[i];
        text += (i == 0 ? "" : ", ") + quoted(std::string(item.name)) + ' ' + std::to_string(item.valueLength) + ' '
            + describe(Given{item.value != nullptr}) + ' ' + std::to_string(item.flags);
    }
    return '{' + text + '}';
}

OSStatus authorizationCreate(const AuthorizationRights* rights, const AuthorizationEnvironment* environment,
    AuthorizationFlags flags, AuthorizationRef* authorization)
{
    Call call(
        "AuthorizationCreate", [&] { return describeItems(rights); }, [&] { return describeItems(environment); },
        flags);
    return create<Authorization>(call, "authorization", authorization);
}

OSStatus authorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
    const AuthorizationEnvironment* environment, AuthorizationFlags flags, AuthorizationRights** granted)
{
    Call call(
        "AuthorizationCopyRights", authorization, [&] { return describeItems(rights); },
        [&] { return describeItems(environment); }, flags, Given{granted != nullptr});
    return call.returnsStatus(noErr);
}

}  // namespace

OSErr FSFindFolder(SInt16 volume, OSType type, Boolean create, FSRef* folder)
{
    Call call("FSFindFolder", volume, Code{type}, create);
    if (call.fails())
        return static_cast<OSErr>(call.returnsStatus(noErr));
    Folder& found = add(std::make_unique<Folder>(), numbered("folder"));
    found.borrowed = true;
    const void* const address = &found;
    std::memcpy(folder->hidden, &address, sizeof address);
    return static_cast<OSErr>(call.succeeds(address));
}

CFURLRef CFURLCreateFromFSRef(CFAllocatorRef allocator, const FSRef* file)
{
    Call call("CFURLCreateFromFSRef", allocator, folderIn(*file));
    return create<URL, CFURLRef>(call, "url");
}

CFURLRef CFURLCreateCopyAppendingPathComponent(
    CFAllocatorRef allocator, CFURLRef url, CFStringRef component, Boolean isFolder)
{
    Call call("CFURLCreateCopyAppendingPathComponent", allocator, url, component, isFolder);
    return create<URL, CFURLRef>(call, "url");
}

CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef url)
{
    Call call("CFBundleCreate", allocator, url);
    return create<Bundle, CFBundleRef>(call, "bundle");
}

Boolean CFBundleLoadExecutable(CFBundleRef bundle)
{
    Call call("CFBundleLoadExecutable", bundle);
    return call.returns<Boolean>(!call.fails());
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef name)
{
    Call call("CFBundleGetFunctionPointerForName", bundle, name);
    void* function = nullptr;
    if (!call.fails() && name == CFSTR("AuthorizationCreate"))
        function = reinterpret_cast<void*>(authorizationCreate);
    if (!call.fails() && name == CFSTR("AuthorizationCopyRights"))
        function = reinterpret_cast<void*>(authorizationCopyRights);
    call.returns(Given{function != nullptr});
    return function;
}
