#include <Security/Authorization.h>

OSStatus AuthorizationCreate(
    const AuthorizationRights*, const AuthorizationEnvironment*, AuthorizationFlags, AuthorizationRef*)
{
    return errAuthorizationSuccess;
}
