// The rules by which rights are granted. Nobody is ever asked: what the rules do not grant by themselves is refused.

#ifndef TOOLBOX_SECURITY_RIGHTS_H
#define TOOLBOX_SECURITY_RIGHTS_H

#include <Security/Authorization.h>

#include <sys/types.h>

#include <vector>

namespace Toolbox {

/// Whether a process whose effective user is `user` holds the right `name`. Returns errAuthorizationSuccess;
/// errAuthorizationInteractionNotAllowed for a right that somebody could be asked for; errAuthorizationDenied for one
/// that is nobody's.
OSStatus judgeRight(const char* name, uid_t user);

/// The same for all of `rights`: what judgeRight() says of the first that is not held, or success if all are held or,
/// when asked for `partly`, if any is. Appends those that are held to `*held`, with the names of `rights`.
/// errAuthorizationInvalidSet for null and for a set that lacks its items or the name of one.
OSStatus judgeRights(const AuthorizationRights* rights, uid_t user, bool partly, std::vector<AuthorizationItem>* held);

}  // namespace Toolbox

#endif
