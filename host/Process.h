// What the process has from outside, made safe: its standard streams, its environment, and the signals that come to it.

#ifndef HOST_PROCESS_H
#define HOST_PROCESS_H

#include <sys/types.h>

#include <csignal>

namespace Host {

/// Gives each standard stream that the process was started without a file on which its use fails. Otherwise the next
/// file that is opened would have its number, and the answer would be written into that. Writing to a reader that has
/// gone, or past the size that files may have, fails too, rather than ending the process. To be called first.
void holdStandardStreams();

/// The variables by which foreign code could get into the process: those of the libraries that it loads, not those of
/// the loader itself, which has read its own before any code runs.
constexpr const char* PLUG_IN_VARIABLES[] = {
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

/// Takes these variables out of the environment. To be called before anything of the toolbox.
void clearPlugInPaths();

/// Holds back every signal that can be, while it lives, and the one that the parent's death was to send.
class HeldSignals {
public:
    HeldSignals();
    ~HeldSignals();
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

private:
    sigset_t m_before;
    int m_deathSignal = 0;
    const pid_t m_process;
    const pid_t m_parent;
};

}  // namespace Host

#endif
