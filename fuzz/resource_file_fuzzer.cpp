// The resource-file reader: a file's bytes, which are resources, AppleDouble or AppleSingle. Every resource is loaded,
// and every alert drawn on the unattended display.

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

void checkFile(const std::string& path)
{
    FSRef reference;
    mustHold(makeFileReference(path, &reference) == noErr, "the file is there");
    SInt16 refNum = 0;
    const OSErr opened = FSOpenResourceFile(&reference, 0, nullptr, fsRdPerm, &refNum);

    std::vector<UInt8> bytes;
    ResourceMap resources;
    OSErr expected = readFork(path, &bytes);
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
    static const TemporaryFolder folder;
    static const std::string path = folder / "file";
    static ScratchFile file(path);
    const NothingLeft check;
    file.hold(data, size);
    checkFile(path);
    return 0;
}
