// Bundles with code: folders that the tests fill with an Info.plist and the plug-in made for them.

#ifndef TESTS_TOOLBOX_CORE_BUNDLES_PLUGINBUNDLE_H
#define TESTS_TOOLBOX_CORE_BUNDLES_PLUGINBUNDLE_H

#include "tests/toolbox/core/bundles/BundleTest.h"

/// The module of plug_in.cpp.
constexpr const char* PLUG_IN_FILE = TEST_PLUG_IN;

/// Copies the plug-in's code to `file`. One that is there already may be loaded: it is replaced, never written over.
inline void copyPlugIn(const fs::path& file)
{
    fs::create_directories(file.parent_path());
    fs::remove(file);
    fs::copy_file(PLUG_IN_FILE, file);
}

/// Makes a bundle with the plug-in's code in `folder`, with these entries in its Info.plist.
inline void makePlugIn(const fs::path& folder, const std::string& entries)
{
    makeBundle(folder, entries);
    copyPlugIn(folder / "Contents" / PLATFORM_FOLDER / folder.stem());
}

#endif
