#include <Security/Authorization.h>

OSStatus AuthorizationCopyRights(AuthorizationRef, const AuthorizationRights*, const AuthorizationEnvironment*,
    AuthorizationFlags, AuthorizationRights**)
{
    return errAuthorizationSuccess;
}
