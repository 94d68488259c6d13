#include "host/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>

namespace {

using namespace Host;

bool isCleared(const std::string& variable)
{
    return std::count(std::begin(PLUG_IN_VARIABLES), std::end(PLUG_IN_VARIABLES), variable) == 1;
}

TEST(ClearPlugInPaths, TakesOutEveryVariableThatNamesCode)
{
    for (const char* const variable : PLUG_IN_VARIABLES)
        setenv(variable, "/foreign", 1);
    clearPlugInPaths();
    for (const char* const variable : PLUG_IN_VARIABLES)
        EXPECT_EQ(std::getenv(variable), nullptr) << variable;
    for (const char* const variable : {"QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH", "QT_VULKAN_LIB",
             "QT_LOAD_TESTABILITY", "GCONV_PATH", "GTK_MODULES", "GTK3_MODULES", "GTK_PATH", "GTK_EXE_PREFIX",
             "GTK_IM_MODULE_FILE", "GDK_PIXBUF_MODULE_FILE", "GDK_PIXBUF_MODULEDIR", "GIO_EXTRA_MODULES",
             "GIO_MODULE_DIR", "LIBGL_DRIVERS_PATH", "GBM_BACKENDS_PATH", "__EGL_VENDOR_LIBRARY_DIRS",
             "__EGL_VENDOR_LIBRARY_FILENAMES", "VK_DRIVER_FILES", "VK_ICD_FILENAMES", "VK_LAYER_PATH"})
        EXPECT_TRUE(isCleared(variable)) << variable;
    for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANG", "HOME", "PATH"})
        EXPECT_FALSE(isCleared(variable)) << variable;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    clearPlugInPaths();
    EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), "offscreen");
    unsetenv("QT_QPA_PLATFORM");
}

}  // namespace
