// Authorization Services: asking the system for a right. The functions lie in Security.framework, which is loaded at
// run time; nothing links them.

#ifndef SECURITY_AUTHORIZATION_H
#define SECURITY_AUTHORIZATION_H

#include <Carbon/MacTypes.h>

CARBON_FUNCTIONS_BEGIN

typedef const struct AuthorizationOpaqueRef* AuthorizationRef;
typedef const char* AuthorizationString;
typedef UInt32 AuthorizationFlags;

typedef struct AuthorizationItem {
    AuthorizationString name;
    UInt32 valueLength;
    void* value;
    UInt32 flags;
} AuthorizationItem;

typedef struct AuthorizationItemSet {
    UInt32 count;
    AuthorizationItem* items;
} AuthorizationItemSet;

typedef AuthorizationItemSet AuthorizationRights;
typedef AuthorizationItemSet AuthorizationEnvironment;

enum {
    kAuthorizationFlagDefaults = 0,
    kAuthorizationFlagInteractionAllowed = 1,
    kAuthorizationFlagExtendRights = 2,
    kAuthorizationFlagPartialRights = 4,
    kAuthorizationFlagPreAuthorize = 16,
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

/// A reference in `*authorization` under which rights are asked for; null after a failure. It is the same at every call
/// and stands for the process, so that a caller who never frees it loses nothing. `rights`, unless null, are asked for
/// at once, as by AuthorizationCopyRights; `environment` is not looked at, since nobody is asked for anything.
/// Returns errAuthorizationSuccess; errAuthorizationInvalidPointer for a null `authorization`;
/// errAuthorizationInvalidFlags for other flags than the above; what AuthorizationCopyRights says of `rights`.
OSStatus AuthorizationCreate(const AuthorizationRights* rights, const AuthorizationEnvironment* environment,
    AuthorizationFlags flags, AuthorizationRef* authorization);

/// Asks for all of `rights`, or with kAuthorizationFlagPartialRights for as many as can be had. There is nobody to put
/// a question to, so the other flags change nothing. `granted` may be null; else `*granted` is the set of what was
/// granted, to be given to AuthorizationFreeItemSet, or null after a failure. `environment` is not looked at.
/// A process whose effective user is the superuser, now, holds "system.privilege.admin"; no process holds any other
/// right.
/// Returns errAuthorizationSuccess when the process holds them all, or one where partial rights will do; else, for the
/// first that it does not hold,
/// errAuthorizationInteractionNotAllowed when somebody would have to be asked and errAuthorizationDenied for a right
/// that is nobody's. For wrong arguments, in this order: errAuthorizationInvalidRef; errAuthorizationInvalidFlags for
/// other flags than the above; errAuthorizationInvalidSet for null and for a set that lacks its items
/// or the name of one.
OSStatus AuthorizationCopyRights(AuthorizationRef authorization, const AuthorizationRights* rights,
    const AuthorizationEnvironment* environment, AuthorizationFlags flags, AuthorizationRights** granted);

/// Frees a set that AuthorizationCopyRights gave; null is ignored. Returns errAuthorizationSuccess.
OSStatus AuthorizationFreeItemSet(AuthorizationItemSet* set);
CARBON_FUNCTIONS_END

#endif
