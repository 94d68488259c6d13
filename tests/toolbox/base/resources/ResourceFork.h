// Writes resource forks and AppleDouble files for tests, field by field as the formats say.

#ifndef TESTS_TOOLBOX_BASE_RESOURCES_RESOURCEFORK_H
#define TESTS_TOOLBOX_BASE_RESOURCES_RESOURCEFORK_H

#include <Carbon/MacTypes.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

using Bytes = std::vector<unsigned char>;

struct TestResource {
    ResType type;
    SInt16 id;
    std::string data;
    unsigned attributes = 0;
    const char* name = nullptr;
};

/// Sets the `width` bytes from `position` on to `value`, big-endian.
inline void setNumber(Bytes& bytes, std::size_t position, std::size_t width, unsigned long long value)
{
    for (std::size_t i = 0; i < width; ++i)
        bytes.at(position + i) = static_cast<unsigned char>(value >> (8 * (width - 1 - i)) & 0xFF);
}

inline void addNumber(Bytes& bytes, std::size_t width, unsigned long long value)
{
    bytes.resize(bytes.size() + width);
    setNumber(bytes, bytes.size() - width, width, value);
}

inline void addText(Bytes& bytes, const std::string& text)
{
    bytes.insert(bytes.end(), text.begin(), text.end());
}

/// A resource fork with its parts apart, so that a test can spoil one of them.
struct TestFork {
    Bytes data;
    Bytes types;       // the type list, with its count
    Bytes references;  // follow the type list
    Bytes names;
    std::size_t dataOffset = 256;

    std::size_t mapOffset() const { return dataOffset + data.size(); }
    std::size_t typeListOffset() const { return mapOffset() + 28; }
    std::size_t referencesOffset() const { return typeListOffset() + types.size(); }

    /// The bytes of the fork: header, data area, map.
    Bytes bytes() const
    {
        const std::size_t mapLength = 28 + types.size() + references.size() + names.size();
        Bytes fork;
        addNumber(fork, 4, dataOffset);
        addNumber(fork, 4, mapOffset());
        addNumber(fork, 4, data.size());
        addNumber(fork, 4, mapLength);
        fork.resize(dataOffset);
        fork.insert(fork.end(), data.begin(), data.end());
        fork.resize(fork.size() + 24);  // the header's copy, left zero, and what is for use in memory
        addNumber(fork, 2, 28);
        addNumber(fork, 2, 28 + types.size() + references.size());
        for (const Bytes* part : {&types, &references, &names})
            fork.insert(fork.end(), part->begin(), part->end());
        return fork;
    }
};

/// A fork with these resources, in this order within each type.
inline TestFork makeFork(const std::vector<TestResource>& resources)
{
    std::map<ResType, std::vector<const TestResource*>> types;
    for (const TestResource& resource : resources)
        types[resource.type].push_back(&resource);

    TestFork fork;
    addNumber(fork.types, 2, types.size() - 1);  // none gives 0xFFFF
    const std::size_t typeListLength = 2 + 8 * types.size();
    for (const auto& [type, ofType] : types) {
        addNumber(fork.types, 4, type);
        addNumber(fork.types, 2, ofType.size() - 1);
        addNumber(fork.types, 2, typeListLength + fork.references.size());
        for (const TestResource* resource : ofType) {
            addNumber(fork.references, 2, static_cast<unsigned>(resource->id));
            addNumber(fork.references, 2, resource->name == nullptr ? 0xFFFF : fork.names.size());
            addNumber(fork.references, 1, resource->attributes);
            addNumber(fork.references, 3, fork.data.size());
            addNumber(fork.references, 4, 0);
            addNumber(fork.data, 4, resource->data.size());
            addText(fork.data, resource->data);
            if (resource->name != nullptr) {
                addNumber(fork.names, 1, std::string(resource->name).size());
                addText(fork.names, resource->name);
            }
        }
    }
    return fork;
}

/// An entry of an AppleDouble file: its id and bytes.
using TestEntry = std::pair<unsigned, Bytes>;

constexpr unsigned APPLE_SINGLE = 0x00051600;
constexpr unsigned APPLE_DOUBLE = 0x00051607;
constexpr unsigned DATA_FORK_ENTRY = 1;
constexpr unsigned RESOURCE_FORK_ENTRY = 2;
constexpr unsigned FINDER_INFO_ENTRY = 9;

/// An AppleDouble or AppleSingle file, after its magic number, with these entries.
inline Bytes makeAppleDouble(unsigned magic, const std::vector<TestEntry>& entries)
{
    Bytes file;
    addNumber(file, 4, magic);
    addNumber(file, 4, 0x00020000);
    addText(file, std::string(16, '\0'));
    addNumber(file, 2, entries.size());
    std::size_t offset = file.size() + 12 * entries.size();
    for (const auto& [id, bytes] : entries) {
        addNumber(file, 4, id);
        addNumber(file, 4, offset);
        addNumber(file, 4, bytes.size());
        offset += bytes.size();
    }
    for (const auto& [id, bytes] : entries)
        file.insert(file.end(), bytes.begin(), bytes.end());
    return file;
}

#endif
