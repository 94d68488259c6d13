// Texts as the Mac stores them, in Mac OS Roman and with a carriage return at the end of a line, as Qt has them.

#ifndef TOOLBOX_CORE_DIALOGS_MACTEXT_H
#define TOOLBOX_CORE_DIALOGS_MACTEXT_H

#include <Carbon/MacTypes.h>

#include <QString>

namespace Toolbox {

/// The text of a Pascal string in Mac OS Roman; empty for null.
QString fromPascalString(ConstStringPtr text);

/// `text` with each of its lines ended by a line feed, whether CR, LF or both did before.
QString withLineFeeds(QString text);

}  // namespace Toolbox

#endif
