// The external called very often in one process, each time from the factory to the last release, as its installer
// does: nothing grows but what a call leaves behind on purpose. VISEX_LOAD_CALLS in the environment says how often.

#include "host/External.h"
#include "host/Installer.h"
#include "host/Record.h"
#include "tests/support/RowName.h"
#include "tests/support/TemporaryFolder.h"

#include <Carbon/CarbonEvents.h>
#include <Toolbox/Application.h>
#include <Toolbox/Displays.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Host;
using Toolbox::Answer;

namespace fs = std::filesystem;

using Counts = std::map<std::string, long>;

// The number in the environment's `variable`, at least 1; `otherwise` if there is none.
long numberIn(const char* variable, long otherwise)
{
    const char* const text = std::getenv(variable);
    return text == nullptr ? otherwise : std::max(std::atol(text), 1L);
}

const long CALLS = numberIn("VISEX_LOAD_CALLS", 5000);

// How many bytes resident memory may grow by without a leak. The address sanitizer keeps aside what is freed, so that
// its lane sets a larger one and relies on the sanitizer's own search for leaks.
const long TOLERANCE = numberIn("VISEX_LOAD_TOLERANCE", 256 * 1024);

// In bytes.
long residentMemory()
{
    std::ifstream file("/proc/self/statm");
    long size = 0;
    long resident = 0;
    file >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

// What there is more of now than in `before`, for each of `calls`, which must divide it.
Counts growth(const std::map<std::string, std::size_t>& before, long calls)
{
    Counts more;
    for (const auto& [kind, count] : Toolbox::CountLiveObjects()) {
        const auto old = before.find(kind);
        const long added = static_cast<long>(count - (old == before.end() ? 0 : old->second));
        EXPECT_EQ(added % calls, 0) << kind << " grew by " << added << " in " << calls << " calls";
        if (added / calls != 0)
            more[kind] = added / calls;
    }
    return more;
}

struct Load {
    const char* name;
    SInt16 message;
    bool requiresAdministrator;
    bool hasNib;
    std::vector<const char*> spoiled;  // texts that are taken out of the nib
    std::vector<Answer> answers;
    long share;         // of the calls asked for that are made, one in so many
    Counts left;        // by each call
    long bytesPerCall;  // that resident memory may grow by, at most
};

const UInt16 GERMAN = 2;
const std::vector<Answer> CHOOSE = {{Answer::Kind::Item, 3}};
const std::vector<Answer> CANCEL = {{Answer::Kind::Command, kHICommandCancel}};

// clang-format off
const Load LOADS[] = {
    {"Chosen",       1000, false, true,  {}, CHOOSE, 1, {}, 0},
    {"Cancelled",    1000, false, true,  {}, CANCEL, 10, {}, 0},
    // Security.framework's one bundle is retained once more by each call, and there is one authorization for all.
    {"WithTheRight", 1000, true,  true,  {}, CHOOSE, 10, {}, 0},
    {"NotServed",    999,  false, true,  {}, {}, 10, {}, 0},
    {"NoNib",        1000, false, false, {}, {}, 10, {}, 0},
    {"NoWindow",     1000, false, true,  {"Language_Selector"}, {}, 10, {{"nib", 1}}, 8 * 1024},
    {"NoModalLoop",  1000, false, true,  {"ok  ", "not!"}, {}, 10,
        {{"window", 1}, {"control", 5}, {"event target", 1}, {"event handler", 1}}, 8 * 1024},
};
// clang-format on

class LoadTest : public testing::TestWithParam<Load> {
protected:
    LoadTest()
        : m_app(m_folder / fs::path(DEMO_APPLICATION_FOLDER).filename().string())
    {
        fs::copy(DEMO_APPLICATION_FOLDER, m_app, fs::copy_options::recursive);
        spoilNib();
        Toolbox::SetFrameworksFolder(FRAMEWORKS_FOLDER);
        m_installer.emplace(m_app, std::nullopt);
        if (GetParam().requiresAdministrator)
            m_installer->requireAdministrator();
    }

    void call() const
    {
        Toolbox::UseUnattendedDisplay(GetParam().answers);
        Record record;
        record.block().message = GetParam().message;
        External external(m_installer->builtInExternal());
        external.call(record, DisplayKind::Unattended, nullptr);
        external.release();
        ASSERT_EQ(record.block().chosenLanguage, expectedChoice());
    }

private:
    static UInt16 expectedChoice()
    {
        const bool passes = !GetParam().requiresAdministrator || geteuid() == 0;
        const std::vector<Answer>& answers = GetParam().answers;
        return passes && !answers.empty() && answers.front().kind == Answer::Kind::Item ? GERMAN : 0;
    }

    void spoilNib() const
    {
        const fs::path nib = m_app / "Contents/Resources/LanguageSelector.nib";
        if (!GetParam().hasNib) {
            fs::remove_all(nib);
            return;
        }
        const fs::path file = nib / "objects.xib";
        std::string objects = contents(file);
        for (const std::string text : GetParam().spoiled) {
            ASSERT_NE(objects.find(text), std::string::npos) << text;
            objects.replace(objects.find(text), text.size(), std::string(text.size(), 'x'));
        }
        m_folder.write(file.string(), objects);
    }

    const TemporaryFolder m_folder;
    const fs::path m_app;
    std::optional<Installer> m_installer;
};

TEST_P(LoadTest, GrowsByWhatEachCallLeavesAndNoMore)
{
    const long calls = std::max(CALLS / GetParam().share, 1L);
    for (int warmUp = 0; warmUp < 100; ++warmUp)
        call();

    const auto before = Toolbox::CountLiveObjects();
    const long residentBefore = residentMemory();
    for (long made = 0; made < calls && !HasFatalFailure(); ++made)
        call();
    const long grown = residentMemory() - residentBefore;

    EXPECT_EQ(growth(before, calls), GetParam().left);
    EXPECT_LE(grown, TOLERANCE + calls * GetParam().bytesPerCall);
    std::printf("%s: %ld calls, resident memory %ld + %ld bytes, %ld a call\n", GetParam().name, calls, residentBefore,
        grown, grown / calls);
}

INSTANTIATE_TEST_SUITE_P(Loads, LoadTest, testing::ValuesIn(LOADS), RowName());

}  // namespace
