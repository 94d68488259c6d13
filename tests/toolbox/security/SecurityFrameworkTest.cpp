// Security.framework as its callers reach it: found in the frameworks folder, loaded as a bundle, called through the
// names that it exports.

#include <Carbon/Carbon.h>
#include <CoreFoundation/CoreFoundation.h>
#include <Security/Authorization.h>
#include <Toolbox/Application.h>
#include <Toolbox/LiveObjects.h>
#include <Toolbox/Trace.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <string>
#include <vector>

namespace {

constexpr uid_t ROOT = 0;
constexpr uid_t NOBODY = 65534;

// The bundle Security.framework of the frameworks folder, the caller's.
CFBundleRef createFramework()
{
    FSRef folder;
    if (FSFindFolder(kOnAppropriateDisk, kFrameworksFolderType, kCreateFolder, &folder) != noErr)
        return nullptr;
    const CFURLRef frameworks = CFURLCreateFromFSRef(kCFAllocatorSystemDefault, &folder);
    const CFURLRef url = CFURLCreateCopyAppendingPathComponent(
        kCFAllocatorSystemDefault, frameworks, CFSTR("Security.framework"), false);
    const CFBundleRef framework = CFBundleCreate(kCFAllocatorSystemDefault, url);
    CFRelease(url);
    CFRelease(frameworks);
    return framework;
}

template <typename Function> Function* functionOf(CFBundleRef framework, CFStringRef name)
{
    return reinterpret_cast<Function*>(CFBundleGetFunctionPointerForName(framework, name));
}

class SecurityFramework : public testing::Test {
protected:
    void SetUp() override
    {
        Toolbox::SetFrameworksFolder(FRAMEWORKS_FOLDER);
        m_framework = createFramework();
        ASSERT_NE(m_framework, nullptr);
        ASSERT_TRUE(CFBundleLoadExecutable(m_framework));
        m_create = functionOf<decltype(AuthorizationCreate)>(m_framework, CFSTR("AuthorizationCreate"));
        m_copyRights = functionOf<decltype(AuthorizationCopyRights)>(m_framework, CFSTR("AuthorizationCopyRights"));
        ASSERT_NE(m_create, nullptr);
        ASSERT_NE(m_copyRights, nullptr);
    }

    void TearDown() override { CFRelease(m_framework); }

    // A reference without rights.
    AuthorizationRef create() const
    {
        AuthorizationRef authorization = nullptr;
        EXPECT_EQ(m_create(nullptr, nullptr, kAuthorizationFlagDefaults, &authorization), errAuthorizationSuccess);
        return authorization;
    }

    CFBundleRef m_framework = nullptr;
    decltype(AuthorizationCreate)* m_create = nullptr;
    decltype(AuthorizationCopyRights)* m_copyRights = nullptr;
    AuthorizationItem m_item = {"system.privilege.admin", 0, nullptr, 0};
    AuthorizationItem m_unknownItem = {"system.unknown", 0, nullptr, 0};
    const AuthorizationRights m_administrator = {1, &m_item};
    const AuthorizationRights m_unknown = {1, &m_unknownItem};
    const AuthorizationRights m_withoutItems = {1, nullptr};
    const AuthorizationRights m_none = {0, nullptr};
};

TEST_F(SecurityFramework, ExportsItsFunctionsAndNoMore)
{
    for (const CFStringRef name :
        {CFSTR("AuthorizationFree"), CFSTR("judgeRights"), CFSTR("_ZN7Toolbox10judgeRightEPKcj"), CFSTR("geteuid")})
        EXPECT_EQ(CFBundleGetFunctionPointerForName(m_framework, name), nullptr);
}

TEST_F(SecurityFramework, GoesByTheEffectiveUserOfTheMoment)
{
    if (geteuid() != ROOT)
        GTEST_SKIP() << "only the superuser can become another user";
    const AuthorizationRef authorization = create();
    ASSERT_EQ(seteuid(NOBODY), 0);
    const OSStatus asNobody = m_copyRights(authorization, &m_administrator, nullptr, 0, nullptr);
    ASSERT_EQ(seteuid(ROOT), 0);
    EXPECT_EQ(asNobody, errAuthorizationInteractionNotAllowed);
    EXPECT_EQ(m_copyRights(authorization, &m_administrator, nullptr, 0, nullptr), errAuthorizationSuccess);
}

TEST_F(SecurityFramework, CreatesOneReferenceHoweverOftenWhichStaysWhenTheBundleEnds)
{
    const AuthorizationRef authorization = create();
    ASSERT_NE(authorization, nullptr);
    const auto alive = Toolbox::CountLiveObjects();
    for (int time = 0; time < 1000; ++time)
        EXPECT_EQ(create(), authorization);
    EXPECT_EQ(Toolbox::CountLiveObjects(), alive);
    CFRelease(m_framework);
    m_framework = createFramework();
    EXPECT_EQ(functionOf<decltype(AuthorizationCreate)>(m_framework, CFSTR("AuthorizationCreate")), m_create);
    EXPECT_EQ(create(), authorization);
}

TEST_F(SecurityFramework, CreationAsksForTheRightsThatItIsGivenAndRefusesWrongArguments)
{
    AuthorizationRef authorization = reinterpret_cast<AuthorizationRef>(1);
    EXPECT_EQ(m_create(&m_unknown, nullptr, kAuthorizationFlagDefaults, &authorization), errAuthorizationDenied);
    EXPECT_EQ(authorization, nullptr);
    EXPECT_EQ(
        m_create(&m_withoutItems, nullptr, kAuthorizationFlagDefaults, &authorization), errAuthorizationInvalidSet);
    EXPECT_EQ(m_create(&m_none, &m_none, kAuthorizationFlagDefaults, &authorization), errAuthorizationSuccess);
    EXPECT_EQ(authorization, create());
    EXPECT_EQ(m_create(nullptr, nullptr, kAuthorizationFlagDefaults, nullptr), errAuthorizationInvalidPointer);
    EXPECT_EQ(m_create(nullptr, nullptr, 8, nullptr), errAuthorizationInvalidPointer);
    for (const AuthorizationFlags flags : {8U, 32U, 0xFFFFFFFFU}) {
        EXPECT_EQ(m_create(nullptr, nullptr, flags, &authorization), errAuthorizationInvalidFlags) << flags;
        EXPECT_EQ(authorization, nullptr);
    }
}

TEST_F(SecurityFramework, RightsAreNotGivenForWrongArguments)
{
    const AuthorizationRef authorization = create();
    int foreign = 0;
    const auto address = reinterpret_cast<AuthorizationRef>(&foreign);
    const auto string = reinterpret_cast<AuthorizationRef>(CFSTR("a string"));
    for (const AuthorizationRef wrong : {AuthorizationRef(nullptr), address, string})
        EXPECT_EQ(m_copyRights(wrong, nullptr, nullptr, 8, nullptr), errAuthorizationInvalidRef);
    EXPECT_EQ(m_copyRights(authorization, nullptr, nullptr, 8, nullptr), errAuthorizationInvalidFlags);
    EXPECT_EQ(m_copyRights(authorization, &m_administrator, nullptr, 10, nullptr), errAuthorizationInvalidFlags);
    EXPECT_EQ(m_copyRights(authorization, nullptr, nullptr, 0, nullptr), errAuthorizationInvalidSet);
    EXPECT_EQ(m_copyRights(authorization, &m_withoutItems, nullptr, 0, nullptr), errAuthorizationInvalidSet);
}

TEST_F(SecurityFramework, TakesTheFlagsThatAskForMoreButHasNobodyToAsk)
{
    const OSStatus administrator = m_copyRights(create(), &m_administrator, nullptr, 0, nullptr);
    for (const AuthorizationFlags flags : {0U, 1U, 2U, 3U, 4U, 7U, 16U, 23U}) {
        AuthorizationRef authorization = nullptr;
        EXPECT_EQ(m_create(nullptr, nullptr, flags, &authorization), errAuthorizationSuccess) << flags;
        EXPECT_EQ(m_copyRights(authorization, &m_unknown, nullptr, flags, nullptr), errAuthorizationDenied) << flags;
        EXPECT_EQ(m_copyRights(authorization, &m_administrator, nullptr, flags, nullptr), administrator) << flags;
    }
}

TEST_F(SecurityFramework, HandsOutTheSetOfWhatItGranted)
{
    const auto freeSet = functionOf<decltype(AuthorizationFreeItemSet)>(m_framework, CFSTR("AuthorizationFreeItemSet"));
    ASSERT_NE(freeSet, nullptr);
    AuthorizationItem items[] = {{"system.unknown", 0, nullptr, 0}, m_item};
    const AuthorizationRights both = {2, items};
    AuthorizationRights* granted = nullptr;
    ASSERT_EQ(m_copyRights(create(), &m_none, nullptr, kAuthorizationFlagDefaults, &granted), errAuthorizationSuccess);
    ASSERT_NE(granted, nullptr);
    EXPECT_EQ(granted->count, 0u);
    EXPECT_EQ(freeSet(granted), errAuthorizationSuccess);

    EXPECT_EQ(m_copyRights(create(), &both, nullptr, 0, &granted), errAuthorizationDenied);
    EXPECT_EQ(granted, nullptr);
    EXPECT_EQ(freeSet(granted), errAuthorizationSuccess);
    const OSStatus partly = m_copyRights(create(), &both, nullptr, kAuthorizationFlagPartialRights, &granted);
    if (geteuid() != ROOT) {
        EXPECT_EQ(partly, errAuthorizationDenied);
        return;
    }
    ASSERT_EQ(partly, errAuthorizationSuccess);
    ASSERT_EQ(granted->count, 1u);
    EXPECT_STREQ(granted->items[0].name, "system.privilege.admin");
    EXPECT_NE(granted->items[0].name, m_item.name) << "the caller's own may go";
    freeSet(granted);
}

TEST_F(SecurityFramework, ItsCallsAreTraced)
{
    const AuthorizationRef authorization = create();
    std::vector<std::string> lines;
    Toolbox::SetTrace([&](const std::string& line) { lines.push_back(line); });
    AuthorizationRef second = nullptr;
    m_create(nullptr, nullptr, 8, &second);
    m_copyRights(authorization, nullptr, nullptr, 0, nullptr);
    Toolbox::SetTrace(nullptr);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].substr(0, 36), "AuthorizationCreate(null, null, 8, 0");
    EXPECT_NE(lines[0].find(") = -60011"), std::string::npos);
    EXPECT_NE(lines[1].find(", null, null, 0, null) = -60001"), std::string::npos);
}

}  // namespace
