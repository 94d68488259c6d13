#include "toolbox/base/memory/MemError.h"

#include "toolbox/base/TracedCall.h"

namespace Toolbox {

namespace {

OSErr lastResult = noErr;

}  // namespace

void setMemError(OSErr result)
{
    lastResult = result;
}

}  // namespace Toolbox

OSErr MemError()
{
    Toolbox::TracedCall call("MemError");
    return call.gives(Toolbox::lastResult);
}
