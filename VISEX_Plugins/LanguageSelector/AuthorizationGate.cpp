#include "VISEX_Plugins/LanguageSelector/AuthorizationGate.h"

#include "VISEX_Plugins/LanguageSelector/HostContract.h"

#include <Carbon/Carbon.h>
#include <Security/Authorization.h>

#include <type_traits>

namespace {

// kSystemDomain, where the system's frameworks are looked for. The number decides, and headers do not agree on its
// name: there are some that have kSystemDomain for another number and call this one kOnAppropriateDisk.
const SInt16 SYSTEM_DOMAIN = -32767;

// The right that is asked for comes first. The other two are the names under which a user's name and password would be
// handed over in an authorization environment; none is, since nobody is asked.
const AuthorizationItem AUTHORIZATION_ITEMS[] = {
    {"system.privilege.admin", 0, nullptr, 0},
    {"username", 0, nullptr, 0},
    {"password", 0, nullptr, 0},
};

// The two functions of the framework count as functions of a 16-bit result, and on the target, whose pointers have 32
// bits, they are called as such. Elsewhere a call through a pointer of another type than the function's is undefined.
using Result = std::conditional_t<sizeof(void*) == 4, SInt16, OSStatus>;
using AuthorizationCreateProcPtr = Result (*)(
    const AuthorizationRights*, const AuthorizationEnvironment*, AuthorizationFlags, AuthorizationRef*);
using AuthorizationCopyRightsProcPtr = Result (*)(AuthorizationRef, const AuthorizationRights*,
    const AuthorizationEnvironment*, AuthorizationFlags, AuthorizationRights**);

// The low 16 bits of `result`, which alone decide: a status with none of these bits set is a success. Volatile, as
// compilers for PowerPC take it that a function of a 16-bit result has filled the whole register with its sign, and
// would look at all 32 bits.
SInt16 lowHalf(Result result)
{
    const volatile SInt16 low = static_cast<SInt16>(result);
    return low;
}

// Whether the installer's resource demands the right. Without the resource it does not.
bool rightIsDemanded()
{
    const Handle resource = GetResource(CALL_RESOURCE_TYPE, CALL_RESOURCE_ID);
    if (resource == nullptr)
        return false;

    HLock(resource);
    UInt8 flagByte = 0;
    BlockMoveData(*resource + ADMINISTRATOR_BYTE, &flagByte, sizeof flagByte);
    const bool demanded = BitTst(&flagByte, ADMINISTRATOR_BIT) != 0;
    HUnlock(resource);
    ReleaseResource(resource);
    return demanded;
}

// The bundle at `url` with its code loaded, the caller's; null if there is none or its code cannot be loaded.
CFBundleRef createLoadedBundle(CFURLRef url)
{
    const CFBundleRef bundle = CFBundleCreate(kCFAllocatorSystemDefault, url);
    if (bundle == nullptr || CFBundleLoadExecutable(bundle))
        return bundle;
    CFRelease(bundle);
    return nullptr;
}

// The bundle `name` in `folder` with its code loaded, the caller's; null if it cannot be reached or loaded.
CFBundleRef createLoadedBundle(const FSRef& folder, CFStringRef name)
{
    const CFURLRef folderURL = CFURLCreateFromFSRef(kCFAllocatorSystemDefault, &folder);
    if (folderURL == nullptr)
        return nullptr;

    CFBundleRef bundle = nullptr;
    const CFURLRef bundleURL = CFURLCreateCopyAppendingPathComponent(kCFAllocatorSystemDefault, folderURL, name, false);
    if (bundleURL != nullptr) {
        bundle = createLoadedBundle(bundleURL);
        CFRelease(bundleURL);
    }
    CFRelease(folderURL);
    return bundle;
}

// Loads Security.framework. Returns noErr, with `*framework` the caller's; the Folder Manager's error;
// coreFoundationUnknownErr.
OSStatus loadSecurityFramework(CFBundleRef* framework)
{
    FSRef folder;
    const OSErr found = FSFindFolder(SYSTEM_DOMAIN, kFrameworksFolderType, kCreateFolder, &folder);
    if (found != noErr)
        return found;
    *framework = createLoadedBundle(folder, CFSTR("Security.framework"));
    if (*framework == nullptr)
        return coreFoundationUnknownErr;
    return noErr;
}

// Asks for the administrator's right. Returns noErr when it is granted; cfragNoSymbolErr when the framework lacks a
// function; the low half of what the function returned.
OSStatus requestAdministratorRight(CFBundleRef framework)
{
    const auto create = reinterpret_cast<AuthorizationCreateProcPtr>(
        CFBundleGetFunctionPointerForName(framework, CFSTR("AuthorizationCreate")));
    if (create == nullptr)
        return cfragNoSymbolErr;
    AuthorizationRef authorization = nullptr;
    const SInt16 created = lowHalf(create(nullptr, nullptr, kAuthorizationFlagDefaults, &authorization));

    const auto copyRights = reinterpret_cast<AuthorizationCopyRightsProcPtr>(
        CFBundleGetFunctionPointerForName(framework, CFSTR("AuthorizationCopyRights")));
    if (copyRights == nullptr)
        return cfragNoSymbolErr;
    if (created != noErr)
        return created;

    AuthorizationItem item = AUTHORIZATION_ITEMS[0];
    const AuthorizationRights rights = {1, &item};

    // Default flags: no question to the user, no extension of the user's rights.
    return lowHalf(copyRights(authorization, &rights, nullptr, kAuthorizationFlagDefaults, nullptr));
}

}  // namespace

bool passAuthorizationGate()
{
    if (!rightIsDemanded())
        return true;

    // Neither the framework nor the authorization is given back, whatever the outcome: code that has been loaded stays
    // loaded for the life of the process.
    CFBundleRef framework = nullptr;
    OSStatus status = loadSecurityFramework(&framework);
    if (status == noErr)
        status = requestAdministratorRight(framework);
    return status == noErr;
}
