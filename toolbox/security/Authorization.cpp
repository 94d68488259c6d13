// Authorization Services: what Security.framework exports.

#include <Security/Authorization.h>

#include "toolbox/base/Referenced.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/security/Rights.h"

#include <unistd.h>

using Toolbox::judgeRights;
using Toolbox::TracedCall;

namespace {

// Every caller gets the reference of this one object. It stands for the process, whose rights are judged anew at each
// call, so there is nothing to keep in it; and callers that never free theirs lose nothing.
class Authorization : public Toolbox::Referenced<Authorization, AuthorizationRef> {
public:
    static constexpr const char* KIND = "authorization";
};

AuthorizationRef ownAuthorization()
{
    static const Authorization authorization;
    return authorization.ref();
}

OSStatus checkCreation(const AuthorizationRights* rights, AuthorizationFlags flags)
{
    if (flags != kAuthorizationFlagDefaults)
        return errAuthorizationInvalidFlags;
    if (rights == nullptr)
        return errAuthorizationSuccess;
    return judgeRights(rights, geteuid());
}

OSStatus copyRights(AuthorizationRef authorization, const AuthorizationRights* rights, AuthorizationFlags flags)
{
    if (authorization != ownAuthorization())
        return errAuthorizationInvalidRef;
    if (flags != kAuthorizationFlagDefaults)
        return errAuthorizationInvalidFlags;
    return judgeRights(rights, geteuid());
}

}  // namespace

OSStatus AuthorizationCreate(const AuthorizationRights* rights, const AuthorizationEnvironment* environment,
    AuthorizationFlags flags, AuthorizationRef* authorization)
{
    TracedCall call("AuthorizationCreate", rights, environment, flags, authorization);
    if (authorization == nullptr)
        return call.gives<OSStatus>(errAuthorizationInvalidPointer);
    const OSStatus status = checkCreation(rights, flags);
    *authorization = status == errAuthorizationSuccess ? ownAuthorization() : nullptr;
    return call.gives(status);
}

OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
    const AuthorizationEnvironment* environment, AuthorizationFlags flags, AuthorizationRights** granted)
{
    TracedCall call("AuthorizationCopyRights", authorization, rights, environment, flags, granted);
    if (granted != nullptr)
        *granted = nullptr;
    return call.gives(copyRights(authorization, rights, flags));
}
