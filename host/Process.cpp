#include "host/Process.h"

#include <cstdlib>

namespace Host {

const std::vector<const char*>& plugInVariables()
{
    static const std::vector<const char*> variables = {
        // Qt
        "QT_PLUGIN_PATH",
        "QT_QPA_PLATFORM_PLUGIN_PATH",
        "QT_LOAD_TESTABILITY",
        "QT_VULKAN_LIB",
        // the C library: converters between encodings
        "GCONV_PATH",
        // GTK and what lies under it, with which Qt dresses itself on some desktops
        "GTK_MODULES",
        "GTK3_MODULES",
        "GTK_PATH",
        "GTK_EXE_PREFIX",
        "GTK_IM_MODULE_FILE",
        "GDK_PIXBUF_MODULE_FILE",
        "GDK_PIXBUF_MODULEDIR",
        "GIO_EXTRA_MODULES",
        "GIO_MODULE_DIR",
        // drivers of the graphics card
        "LIBGL_DRIVERS_PATH",
        "GBM_BACKENDS_PATH",
        "__EGL_VENDOR_LIBRARY_DIRS",
        "__EGL_VENDOR_LIBRARY_FILENAMES",
        "VK_DRIVER_FILES",
        "VK_ICD_FILENAMES",
        "VK_LAYER_PATH",
    };
    return variables;
}

void clearPlugInPaths()
{
    for (const char* const variable : plugInVariables())
        unsetenv(variable);
}

}  // namespace Host
