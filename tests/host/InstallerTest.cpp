#include "host/Installer.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace Host;

const std::filesystem::path DEMO = DEMO_APPLICATION_FOLDER;
const std::filesystem::path DEMO_RESOURCES = DEMO / "Contents/Resources/DemoInstaller.rsrc";

// The demo application's resource file with `byte` as the one that holds the flag.
std::string resourcesWith(char byte)
{
    std::string resources = contents(DEMO_RESOURCES);
    const std::string call(512, '\0');
    resources[resources.find(std::string("\0\0\x02\0", 4) + call) + 4 + 401] = byte;
    return resources;
}

// Reads the byte of 'CALL' 1000 that holds the flag, and gives the resource back, as an external does.
unsigned flagByte()
{
    const Handle call = GetResource('CALL', 1000);
    if (call == nullptr)
        throw std::runtime_error("there is no such resource");
    const auto byte = static_cast<unsigned char>((*call)[401]);
    ReleaseResource(call);
    return byte;
}

TEST(Installer, OpensTheResourceFileThatIsCalledAsItIsAndNamesItsExternalAndClosesItAgain)
{
    {
        const Installer installer(DEMO / "", std::nullopt);
        EXPECT_EQ(flagByte(), 0u);
        EXPECT_EQ(installer.builtInExternal(), DEMO / "Contents/PlugIns/LanguageSelector.bundle");
    }
    EXPECT_EQ(GetResource('CALL', 1000), nullptr);
}

TEST(Installer, OpensTheNamedResourceFileInItsPlaceAndKeepsTheOtherBitsOfTheFlagsByte)
{
    const TemporaryFolder folder;
    Installer installer(DEMO, folder.write("resources", resourcesWith(0x15)).string());
    EXPECT_EQ(flagByte(), 0x15u);
    installer.requireAdministrator();
    EXPECT_EQ(flagByte(), 0x95u);
}

TEST(Installer, SetsTheFlagForEveryCallAndNotInTheFile)
{
    const std::string before = contents(DEMO_RESOURCES);
    {
        Installer installer(DEMO, std::nullopt);
        installer.requireAdministrator();
        EXPECT_EQ(flagByte(), 0x80u);
        EXPECT_EQ(flagByte(), 0x80u) << "giving the resource back does not clear it";
    }
    EXPECT_EQ(contents(DEMO_RESOURCES), before);
    const Installer again(DEMO, std::nullopt);
    EXPECT_EQ(flagByte(), 0u);
}

}  // namespace
