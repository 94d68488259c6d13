// The resource-file reader: a file's bytes, read as its data fork (resources or AppleDouble) and as the AppleDouble
// file beside it. Every resource is loaded, and every alert drawn on the unattended display.

#include "fuzz/must_hold.h"
#include "fuzz/nothing_left.h"
#include "fuzz/scratch_file.h"
#include "tests/support/TemporaryFolder.h"
#include "toolbox/base/files/FileReferences.h"
#include "toolbox/base/memory/MemoryManager.h"
#include "toolbox/base/resources/Forks.h"
#include "toolbox/base/resources/ResourceMap.h"

#include <Carbon/Carbon.h>
#include <Toolbox/CallReport.h>

#include <algorithm>

namespace {

using namespace Toolbox;

constexpr int STAGES = 4;  // of an alert that is shown again and again

bool isZero(char byte)
{
    return byte == 0;
}

// The file "file", whose "._file" is the same file.
class TwoForks {
public:
    TwoForks()
        : m_path(m_folder / "file")
        , m_file(m_path)
    {
        std::filesystem::create_hard_link(m_path, m_folder / "._file");
        mustHold(makeFileReference(m_path, &m_reference) == noErr, "the file is there");
    }

    void hold(const std::uint8_t* data, std::size_t size) { m_file.hold(data, size); }

    const std::string& path() const { return m_path; }
    const FSRef& reference() const { return m_reference; }

private:
    const TemporaryFolder m_folder;
    const std::string m_path;
    ScratchFile m_file;
    FSRef m_reference;
};

void checkResource(const std::vector<UInt8>& bytes, const ResourceKey& key, const ResourcePlace& place)
{
    const Handle handle = GetResource(key.first, key.second);
    mustHold((handle == nullptr) == place.isCompressed, "a resource is loaded unless it is compressed");
    if (handle == nullptr)
        return;
    const auto length = static_cast<Size>(place.length);
    mustHold(GetHandleSize(handle) == length, "a handle has the length of its resource");
    mustHold(std::equal(*handle, *handle + length, reinterpret_cast<const char*>(bytes.data()) + place.offset),
        "a handle holds the bytes of its resource");
    mustHold(std::all_of(*handle + length, *handle + length + HANDLE_SLACK, isZero), "zeros follow the resource");
    ReleaseResource(handle);
}

void drawAlert(SInt16 id)
{
    for (int stage = 0; stage < STAGES; ++stage)
        StopAlert(id, nullptr);
    TakeReport();
}

void checkFork(const TwoForks& file, Fork fork)
{
    static const std::u16string RESOURCE_FORK = u"RESOURCE_FORK";
    const auto* const name = reinterpret_cast<const UniChar*>(RESOURCE_FORK.data());
    const auto nameLength = static_cast<UniCharCount>(fork == Fork::Data ? 0 : RESOURCE_FORK.size());
    SInt16 refNum = 0;
    const OSErr opened = FSOpenResourceFile(&file.reference(), nameLength, name, fsRdPerm, &refNum);

    std::vector<UInt8> bytes;
    ResourceMap resources;
    OSErr expected = readFork(file.path(), fork, &bytes);
    if (expected == noErr)
        expected = readResourceMap(BigEndianBytes(bytes.data(), bytes.size()), &resources);
    mustHold(opened == expected, "a file opens exactly if its resources can be read");

    for (const auto& [key, place] : resources) {
        checkResource(bytes, key, place);
        if (key.first == 'ALRT')
            drawAlert(key.second);
    }
    CloseResFile(refNum);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static TwoForks file;
    const NothingLeft check;
    file.hold(data, size);
    checkFork(file, Fork::Data);
    checkFork(file, Fork::Resource);
    return 0;
}
