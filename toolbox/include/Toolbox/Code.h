// What the host may ask of an address that an external gave it, before it calls it.

#ifndef TOOLBOX_CODE_H
#define TOOLBOX_CODE_H

namespace Toolbox {

/// Whether code lies at `address`: in a part of the program or of a loaded library that may be executed.
bool IsCode(const void* address);

}  // namespace Toolbox

#endif
