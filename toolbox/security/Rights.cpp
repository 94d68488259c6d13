#include "toolbox/security/Rights.h"

#include "toolbox/base/CurrentReport.h"

#include <cstring>
#include <string>

namespace Toolbox {

namespace {

// The one right that the rules know: to administer the system.
constexpr const char* ADMINISTRATOR_RIGHT = "system.privilege.admin";
constexpr uid_t SUPERUSER = 0;

void remarkRefusal(const std::string& right, OSStatus judgement)
{
    const char* const who =
        judgement == errAuthorizationDenied ? "nobody has it" : "only the superuser's processes have it";
    remark("the right \"" + right + "\" was not granted: " + who);
}

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

OSStatus judgeRights(const AuthorizationRights* rights, uid_t user, bool partly, std::vector<AuthorizationItem>* held)
{
    if (!isValid(rights))
        return errAuthorizationInvalidSet;
    OSStatus firstRefusal = errAuthorizationSuccess;
    for (UInt32 index = 0; index < rights->count && (partly || firstRefusal == errAuthorizationSuccess); ++index) {
        const AuthorizationItem& item = rights->items[index];
        const OSStatus judgement = judgeRight(item.name, user);
        if (judgement == errAuthorizationSuccess) {
            held->push_back(item);
            continue;
        }
        remarkRefusal(item.name, judgement);
        firstRefusal = firstRefusal == errAuthorizationSuccess ? judgement : firstRefusal;
    }
    return partly && !held->empty() ? OSStatus{errAuthorizationSuccess} : firstRefusal;
}

}  // namespace Toolbox
