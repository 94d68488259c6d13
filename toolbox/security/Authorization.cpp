// Authorization Services: what Security.framework exports.

#include "toolbox/base/Referenced.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/security/Rights.h"

#include <Security/Authorization.h>

#include <unistd.h>

#include <cstring>
#include <vector>

namespace Toolbox {

namespace {

// The flags that may be given where rights are asked for. Nobody is ever asked, so only kAuthorizationFlagPartialRights
// changes an answer.
constexpr AuthorizationFlags KNOWN_FLAGS = kAuthorizationFlagInteractionAllowed | kAuthorizationFlagExtendRights
    | kAuthorizationFlagPartialRights | kAuthorizationFlagPreAuthorize;

// Every caller gets the reference of this one object. It stands for the process, whose rights are judged anew at each
// call, so there is nothing to keep in it; and callers that never free theirs lose nothing.
class Authorization : public Referenced<Authorization, AuthorizationRef> {
public:
    static constexpr const char* KIND = "authorization";
};

AuthorizationRef ownAuthorization()
{
    static const Authorization authorization;
    return authorization.ref();
}

// A set of `items` in one block of memory, with their names behind them.
AuthorizationRights* makeSet(const std::vector<AuthorizationItem>& items)
{
    std::size_t size = sizeof(AuthorizationRights) + items.size() * sizeof(AuthorizationItem);
    for (const AuthorizationItem& each : items)
        size += std::strlen(each.name) + 1;
    auto* const set = static_cast<AuthorizationRights*>(operator new(size));
    set->count = static_cast<UInt32>(items.size());
    set->items = reinterpret_cast<AuthorizationItem*>(set + 1);
    char* name = reinterpret_cast<char*>(set->items + items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        set->items[index] = {name, 0, nullptr, 0};
        name = std::strcpy(name, items[index].name) + std::strlen(items[index].name) + 1;
    }
    return set;
}

OSStatus copyRights(const AuthorizationRights* rights, AuthorizationFlags flags, AuthorizationRights** granted)
{
    if ((flags & ~KNOWN_FLAGS) != 0)
        return errAuthorizationInvalidFlags;
    std::vector<AuthorizationItem> held;
    const OSStatus status = judgeRights(rights, geteuid(), (flags & kAuthorizationFlagPartialRights) != 0, &held);
    if (status == errAuthorizationSuccess && granted != nullptr)
        *granted = makeSet(held);
    return status;
}

OSStatus create(const AuthorizationRights* rights, AuthorizationFlags flags)
{
    const AuthorizationRights none = {0, nullptr};
    return copyRights(rights == nullptr ? &none : rights, flags, nullptr);
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

OSStatus AuthorizationCreate(const AuthorizationRights* rights, const AuthorizationEnvironment* environment,
    AuthorizationFlags flags, AuthorizationRef* authorization)
{
    TracedCall call("AuthorizationCreate", rights, environment, flags, authorization);
    if (authorization == nullptr)
        return call.gives<OSStatus>(errAuthorizationInvalidPointer);
    const OSStatus status = create(rights, flags);
    *authorization = status == errAuthorizationSuccess ? ownAuthorization() : nullptr;
    return call.gives(status);
}

OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
    const AuthorizationEnvironment* environment, AuthorizationFlags flags, AuthorizationRights** granted)
{
    TracedCall call("AuthorizationCopyRights", authorization, rights, environment, flags, granted);
    if (granted != nullptr)
        *granted = nullptr;
    if (authorization != ownAuthorization())
        return call.gives<OSStatus>(errAuthorizationInvalidRef);
    return call.gives(copyRights(rights, flags, granted));
}

OSStatus AuthorizationFreeItemSet(AuthorizationItemSet* set)
{
    TracedCall call("AuthorizationFreeItemSet", static_cast<const void*>(set));
    operator delete(set);
    return call.gives<OSStatus>(errAuthorizationSuccess);
}
