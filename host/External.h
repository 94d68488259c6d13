// The external: loaded, called and released as its installer does it, through the plug-in services and nothing else.

#ifndef HOST_EXTERNAL_H
#define HOST_EXTERNAL_H

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"
#include "host/CFReferences.h"
#include "host/Options.h"
#include "host/Record.h"
#include "host/Report.h"

#include <Toolbox/Trace.h>

#include <filesystem>

namespace Host {

class External {
public:
    /// Loads the bundle in `folder` and takes an instance from the factory that it registers for the installer's type.
    /// Throws Problem when there is no such bundle, factory or code, or when what the factory gives is not an instance.
    explicit External(const std::filesystem::path& folder);

    External(const External&) = delete;
    External& operator=(const External&) = delete;

    /// Calls the main entry with `record`, while `display` shows what it shows, and returns what came of it. `trace`,
    /// if it is not empty, is given a line for each call that the external makes of the toolbox.
    Report call(Record& record, DisplayKind display, const Toolbox::TraceSink& trace);

    /// Releases the instance. Nothing can be called any more. Not done by itself: it runs code of the external's, and
    /// that may end the process.
    void release();

private:
    void load(const std::filesystem::path& folder);

    const CFOwner<CFPlugInRef> m_bundle;
    XcodInstance* m_instance = nullptr;  // the first word of it is all that is known
};

}  // namespace Host

#endif
