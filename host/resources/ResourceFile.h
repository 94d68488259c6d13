// Makes a resource file in the classic format: a header, the data of all resources, and a map that says what is where.

#ifndef HOST_RESOURCES_RESOURCEFILE_H
#define HOST_RESOURCES_RESOURCEFILE_H

#include "host/resources/ByteWriter.h"

#include <cstdint>
#include <map>

namespace Resources {

class ResourceFile {
public:
    /// Adds a resource: `type` is four characters, such as 'ALRT'. Throws std::invalid_argument when there is one of
    /// this type and id.
    void add(std::uint32_t type, std::int16_t id, const Bytes& data);

    /// The file with all resources, ordered by type and id, without names or attributes. Throws std::length_error when
    /// they are more than the format can hold.
    Bytes bytes() const;

private:
    std::map<std::uint32_t, std::map<std::int16_t, Bytes>> m_resources;  // by type, then by id
};

}  // namespace Resources

#endif
