// Whether an input leaves the toolbox with as many objects as it found.

#ifndef FUZZ_NOTHING_LEFT_H
#define FUZZ_NOTHING_LEFT_H

#include "fuzz/must_hold.h"

#include <Toolbox/LiveObjects.h>

/// Ends the process when an object that came to life during this one's life still lives, or one is gone that did
/// before. Constants of Core Foundation stay; they must have been asked for before.
class NothingLeft {
public:
    NothingLeft() = default;
    NothingLeft(const NothingLeft&) = delete;
    NothingLeft& operator=(const NothingLeft&) = delete;

    ~NothingLeft()
    {
        for (const auto& [kind, count] : Toolbox::CountLiveObjects()) {
            const auto before = m_before.find(kind);
            mustHold(count == (before == m_before.end() ? 0 : before->second), "nothing is left of what was made");
        }
    }

private:
    const std::map<std::string, std::size_t> m_before = Toolbox::CountLiveObjects();
};

#endif
