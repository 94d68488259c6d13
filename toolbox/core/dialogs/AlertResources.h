// The alerts of resource files: 'ALRT', which says where an alert lies and how it behaves, and 'DITL', the list of its
// items. The readers take any bytes: what is not whole is refused, and nothing is read past the end.

#ifndef TOOLBOX_CORE_DIALOGS_ALERTRESOURCES_H
#define TOOLBOX_CORE_DIALOGS_ALERTRESOURCES_H

#include <Carbon/MacTypes.h>

#include <QByteArray>

#include <optional>
#include <vector>

namespace Toolbox {

/// How an alert behaves at one of its four stages.
struct AlertStage {
    bool drawsBox;
    SInt16 defaultItem;  // 1 or 2
};

/// What an 'ALRT' says.
struct AlertTemplate {
    /// The behaviour at `occurrence`, from 1, of the alert in a row; the fourth stage serves all later ones.
    AlertStage stage(int occurrence) const;

    Rect bounds{};
    SInt16 itemListID = 0;
    UInt16 stages = 0;  // four bits a stage, the first stage lowest
};

/// The kinds of item that an alert shows. Every other kind is Other: it keeps its number and is not shown.
enum class DialogItemKind { Button, StaticText, Other };

/// An item of a 'DITL'. Items are known by their position, from 1.
struct DialogItem {
    DialogItemKind kind = DialogItemKind::Other;
    bool enabled = true;
    Rect bounds{};     // in the alert's own coordinates
    QByteArray title;  // of a button or a static text, in Mac OS Roman
};

/// The alert in the bytes of an 'ALRT'; nothing when they end too early or its bounds enclose nothing. A position,
/// which newer resources have at the end, is not looked at.
std::optional<AlertTemplate> readAlertTemplate(const QByteArray& bytes);

/// The items in the bytes of a 'DITL', in order; nothing when it promises more than is there, or more items than an
/// item number can count. Bytes after the last item are ignored.
std::optional<std::vector<DialogItem>> readItemList(const QByteArray& bytes);

}  // namespace Toolbox

#endif
