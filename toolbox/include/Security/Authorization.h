// Authorization Services: asking the system for a right. The functions lie in Security.framework, which is loaded at
// run time; nothing links them.

#ifndef SECURITY_AUTHORIZATION_H
#define SECURITY_AUTHORIZATION_H

#include <Carbon/MacTypes.h>

extern "C" {

typedef const struct AuthorizationOpaqueRef* AuthorizationRef;
typedef const char* AuthorizationString;
typedef UInt32 AuthorizationFlags;

struct AuthorizationItem {
    AuthorizationString name;
    UInt32 valueLength;
    void* value;
    UInt32 flags;
};

struct AuthorizationItemSet {
    UInt32 count;
    AuthorizationItem* items;
};

typedef AuthorizationItemSet AuthorizationRights;
typedef AuthorizationItemSet AuthorizationEnvironment;

enum {
    kAuthorizationFlagDefaults = 0,
};

enum {
    errAuthorizationSuccess = 0,
    errAuthorizationInvalidSet = -60001,
    errAuthorizationInvalidRef = -60002,
    errAuthorizationInvalidPointer = -60004,
    errAuthorizationDenied = -60005,
    errAuthorizationInteractionNotAllowed = -60007,
    errAuthorizationInvalidFlags = -60011,
};

/// A reference in `*authorization` under which rights are asked for, the caller's. `rights` and `environment` may be
/// null: then it holds no right yet.
/// Returns errAuthorizationSuccess; errAuthorizationInvalidPointer for a null `authorization`;
/// errAuthorizationInvalidFlags for other flags than kAuthorizationFlagDefaults.
OSStatus AuthorizationCreate(const AuthorizationRights* rights, const AuthorizationEnvironment* environment,
    AuthorizationFlags flags, AuthorizationRef* authorization);

/// Asks for all of `rights`, without a question to anybody. `granted` may be null; nothing is ever put there.
/// Returns errAuthorizationSuccess when the process holds them all; errAuthorizationInteractionNotAllowed when somebody
/// would have to be asked; errAuthorizationDenied for a right that is nobody's; errAuthorizationInvalidRef,
/// errAuthorizationInvalidSet, errAuthorizationInvalidFlags for wrong arguments.
OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
    const AuthorizationEnvironment* environment, AuthorizationFlags flags, AuthorizationRights** granted);
}

#endif
