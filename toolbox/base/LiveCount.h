// Counts what is alive, by kind. An object of a counted kind has one of these as a member.

#ifndef TOOLBOX_BASE_LIVECOUNT_H
#define TOOLBOX_BASE_LIVECOUNT_H

#include <cstddef>

namespace Toolbox {

/// One more of `kind` for as long as this lives. `kind` is a literal, in the words of CountLiveObjects.
class LiveCount {
public:
    explicit LiveCount(const char* kind);
    ~LiveCount();
    LiveCount(const LiveCount&) = delete;
    LiveCount& operator=(const LiveCount&) = delete;

private:
    std::size_t& m_count;  // of the kind; a reference, so that counting out needs no memory
};

}  // namespace Toolbox

#endif
