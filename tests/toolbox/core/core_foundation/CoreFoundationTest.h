// What tests of Core Foundation share: a fixture that notices what a test leaves behind.

#ifndef TESTS_TOOLBOX_CORE_CORE_FOUNDATION_COREFOUNDATIONTEST_H
#define TESTS_TOOLBOX_CORE_CORE_FOUNDATION_COREFOUNDATIONTEST_H

#include <CoreFoundation/CoreFoundation.h>
#include <Toolbox/LiveObjects.h>

#include <gtest/gtest.h>

#include <string>

/// How many Core Foundation objects are alive that somebody is to release.
inline std::size_t liveReferences()
{
    return Toolbox::CountLiveObjects()["Core Foundation object"];
}

/// How many are alive that nobody is to release.
inline std::size_t liveConstants()
{
    return Toolbox::CountLiveObjects()["Core Foundation constant"];
}

/// A reference that is released where its scope ends.
template <typename Ref> class Owned {
public:
    Owned(Ref reference)
        : m_reference(reference)
    {
    }
    ~Owned() { CFRelease(m_reference); }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    operator Ref() const { return m_reference; }

private:
    const Ref m_reference;
};

/// A string of ASCII, the caller's.
inline CFStringRef makeString(const char* text)
{
    return CFStringCreateWithCString(nullptr, text, kCFStringEncodingASCII);
}

/// The URL of `path`, the caller's.
inline CFURLRef makeURL(const std::string& path)
{
    return CFURLCreateFromFileSystemRepresentation(
        nullptr, reinterpret_cast<const UInt8*>(path.data()), static_cast<CFIndex>(path.size()), true);
}

/// The path of `url`, which is released; empty for null.
inline std::string takePath(CFURLRef url)
{
    UInt8 path[4096];
    const bool isThere = CFURLGetFileSystemRepresentation(url, true, path, sizeof path);
    CFRelease(url);
    return isThere ? reinterpret_cast<const char*>(path) : "";
}

/// A test that leaves as many Core Foundation objects as it found.
class CoreFoundationTest : public testing::Test {
protected:
    void TearDown() override
    {
        EXPECT_EQ(liveReferences(), m_before) << "an object was left behind, or released too often";
    }

private:
    const std::size_t m_before = liveReferences();
};

/// A reference to an object that is gone.
inline CFStringRef deadString()
{
    return Owned(makeString("dead"));
}

#endif
