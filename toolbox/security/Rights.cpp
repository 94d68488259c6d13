#include "toolbox/security/Rights.h"

#include <cstring>

namespace Toolbox {

namespace {

// The one right that the rules know: to administer the system.
constexpr const char* ADMINISTRATOR_RIGHT = "system.privilege.admin";
constexpr uid_t SUPERUSER = 0;

bool isValid(const AuthorizationRights* rights)
{
    if (rights == nullptr || (rights->count > 0 && rights->items == nullptr))
        return false;
    for (UInt32 index = 0; index < rights->count; ++index) {
        if (rights->items[index].name == nullptr)
            return false;
    }
    return true;
}

}  // namespace

OSStatus judgeRight(const char* name, uid_t user)
{
    if (std::strcmp(name, ADMINISTRATOR_RIGHT) != 0)
        return errAuthorizationDenied;
    return user == SUPERUSER ? errAuthorizationSuccess : errAuthorizationInteractionNotAllowed;
}

OSStatus judgeRights(const AuthorizationRights* rights, uid_t user)
{
    if (!isValid(rights))
        return errAuthorizationInvalidSet;
    OSStatus judgement = errAuthorizationSuccess;
    for (UInt32 index = 0; index < rights->count && judgement == errAuthorizationSuccess; ++index)
        judgement = judgeRight(rights->items[index].name, user);
    return judgement;
}

}  // namespace Toolbox
