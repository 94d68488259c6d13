#include "toolbox/core/core_foundation/FileName.h"

namespace Toolbox {

std::optional<std::string> fileName(const QString& text)
{
    const bool isName = text.isValidUtf16() && !text.contains(QChar(0));
    return isName ? std::optional(text.toStdString()) : std::nullopt;
}

}  // namespace Toolbox
