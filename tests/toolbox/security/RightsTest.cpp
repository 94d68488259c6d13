#include "toolbox/security/Rights.h"

#include <Toolbox/CallReport.h>

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

using Toolbox::judgeRight;

constexpr uid_t SUPERUSER = 0;
constexpr uid_t SOMEBODY = 1000;
constexpr uid_t LAST_USER = static_cast<uid_t>(-1);

// clang-format off
const std::tuple<const char*, const char*, uid_t, OSStatus> RIGHT_CASES[] = {
    // name                         right                          user       judgement
    {"AdministratorOfRoot",         "system.privilege.admin",      SUPERUSER, errAuthorizationSuccess},
    {"AdministratorOfTheFirstUser", "system.privilege.admin",      1,         errAuthorizationInteractionNotAllowed},
    {"AdministratorOfTheLastUser",  "system.privilege.admin",      LAST_USER, errAuthorizationInteractionNotAllowed},
    {"UnknownOfRoot",               "system.preferences",          SUPERUSER, errAuthorizationDenied},
    {"UnknownOfSomebody",           "system.preferences",          SOMEBODY,  errAuthorizationDenied},
    {"Empty",                       "",                            SUPERUSER, errAuthorizationDenied},
    {"Beginning",                   "system.privilege",            SUPERUSER, errAuthorizationDenied},
    {"Longer",                      "system.privilege.admin.more", SUPERUSER, errAuthorizationDenied},
    {"OtherCase",                   "System.Privilege.Admin",      SUPERUSER, errAuthorizationDenied},
};
// clang-format on

TEST(Right, IsGrantedByTheRules)
{
    for (const auto& [name, right, user, judgement] : RIGHT_CASES)
        EXPECT_EQ(judgeRight(right, user), judgement) << name;
}

OSStatus judgeRights(const AuthorizationRights* rights, uid_t user, bool partly = false)
{
    std::vector<AuthorizationItem> held;
    return Toolbox::judgeRights(rights, user, partly, &held);
}

// What is said of the set of these names.
OSStatus judge(const std::vector<const char*>& names, uid_t user, bool partly = false)
{
    std::vector<AuthorizationItem> items;
    for (const char* const name : names)
        items.push_back({name, 0, nullptr, 0});
    const AuthorizationRights rights = {static_cast<UInt32>(items.size()), items.data()};
    return judgeRights(&rights, user, partly);
}

constexpr const char* ADMINISTRATOR = "system.privilege.admin";

TEST(Rights, AreGrantedTogetherOrInPartOrRefusedForTheFirstThatIsNotHeld)
{
    EXPECT_EQ(judge({ADMINISTRATOR}, SUPERUSER), errAuthorizationSuccess);
    EXPECT_EQ(judge({ADMINISTRATOR, ADMINISTRATOR}, SUPERUSER), errAuthorizationSuccess);
    EXPECT_EQ(judge({ADMINISTRATOR, "unknown"}, SUPERUSER), errAuthorizationDenied);
    EXPECT_EQ(judge({"unknown", ADMINISTRATOR}, SUPERUSER), errAuthorizationDenied);
    EXPECT_EQ(judge({ADMINISTRATOR, "unknown"}, SOMEBODY), errAuthorizationInteractionNotAllowed);
    EXPECT_EQ(judge({"unknown", ADMINISTRATOR}, SOMEBODY), errAuthorizationDenied);
    EXPECT_EQ(judge({}, SOMEBODY), errAuthorizationSuccess) << "everybody holds none";
    EXPECT_EQ(judge({"unknown", ADMINISTRATOR}, SUPERUSER, true), errAuthorizationSuccess);
    EXPECT_EQ(judge({"unknown", ADMINISTRATOR}, SOMEBODY, true), errAuthorizationDenied) << "the first refusal";
    EXPECT_EQ(judge({}, SOMEBODY, true), errAuthorizationSuccess);
}

TEST(Rights, ThatAreRefusedAreRemarkedOn)
{
    Toolbox::TakeReport();
    judge({ADMINISTRATOR}, SUPERUSER);  // of what is granted nothing is said
    judge({ADMINISTRATOR}, SOMEBODY);
    judge({"unheard of"}, SUPERUSER);
    EXPECT_EQ(Toolbox::TakeReport().remarks,
        (std::vector<std::string>{
            "the right \"system.privilege.admin\" was not granted: only the superuser's processes have it",
            "the right \"unheard of\" was not granted: nobody has it"}));
}

TEST(Rights, OfAnIncompleteSetAreInvalid)
{
    const AuthorizationRights withoutItems = {1, nullptr};
    EXPECT_EQ(judgeRights(nullptr, SUPERUSER), errAuthorizationInvalidSet);
    EXPECT_EQ(judgeRights(&withoutItems, SUPERUSER), errAuthorizationInvalidSet);
    EXPECT_EQ(judge({nullptr}, SUPERUSER), errAuthorizationInvalidSet);
    EXPECT_EQ(judge({"unknown", nullptr}, SUPERUSER), errAuthorizationInvalidSet) << "looked at before anything else";
}

}  // namespace
