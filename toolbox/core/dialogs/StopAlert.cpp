#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"
#include "toolbox/core/core_foundation/StringObject.h"
#include "toolbox/core/dialogs/Alert.h"
#include "toolbox/core/dialogs/AlertResources.h"
#include "toolbox/core/dialogs/MacText.h"

#include <Carbon/MacMemory.h>
#include <Carbon/Resources.h>

#include <QRegularExpression>
#include <QStringList>

namespace Toolbox {

namespace {

constexpr DialogItemIndex NO_BOX = -1;
constexpr SInt16 ESCAPE_ITEM = 2;  // "Cancel", by convention

DialogItemIndex notShown(SInt16 id, const std::string& reason)
{
    remark("the alert " + std::to_string(id) + " was not shown: " + reason);
    return NO_BOX;
}

std::string noResource(const char* type, SInt16 id)
{
    return "the resources have no " + std::string(type) + " " + std::to_string(id) + ", or a damaged one";
}

// The bytes of a resource, empty when there is none; it is given back at once.
QByteArray resourceBytes(ResType type, SInt16 id)
{
    const Handle handle = GetResource(type, id);
    if (handle == nullptr)
        return QByteArray();
    const QByteArray bytes(*handle, GetHandleSize(handle));
    ReleaseResource(handle);
    return bytes;
}

// The text with ^0 to ^3 replaced by what was set for them: nothing sets them here, so by nothing.
QString withoutPlaceholders(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("\\^[0-3]")));
}

void addItem(Alert& alert, SInt16 number, const DialogItem& item)
{
    const QString title = withLineFeeds(fromMacRoman(item.title));
    if (item.kind == DialogItemKind::Button)
        alert.buttons.push_back({number, title, item.enabled, item.bounds});
    else if (item.kind == DialogItemKind::StaticText)
        alert.layout->texts.push_back({withoutPlaceholders(title), item.bounds});
}

Alert makeAlert(AlertType type, SInt16 id, const Rect& bounds, const std::vector<DialogItem>& items)
{
    Alert alert;
    alert.type = type;
    alert.layout = AlertLayout{id, bounds, {}};
    for (std::size_t index = 0; index < items.size(); ++index)
        addItem(alert, static_cast<SInt16>(index + 1), items[index]);
    QStringList lines;
    for (const AlertText& each : alert.layout->texts)
        lines.append(each.text);
    alert.text = lines.join(QLatin1Char('\n'));
    return alert;
}

// How often in a row the alert `id` has occurred, this time included.
int nextOccurrence(SInt16 id)
{
    static SInt16 lastID = 0;
    static int occurrences = 0;
    occurrences = id == lastID ? occurrences + 1 : 1;
    lastID = id;
    return occurrences;
}

DialogItemIndex runResourceAlert(AlertType type, SInt16 id)
{
    const auto alertTemplate = readAlertTemplate(resourceBytes('ALRT', id));
    if (!alertTemplate)
        return notShown(id, noResource("'ALRT'", id));
    const auto items = readItemList(resourceBytes('DITL', alertTemplate->itemListID));
    if (!items)
        return notShown(id, noResource("'DITL'", alertTemplate->itemListID));
    Alert alert = makeAlert(type, id, alertTemplate->bounds, *items);
    if (!alert.canEnd())
        return notShown(id, "it has no button that ends it");

    const AlertStage stage = alertTemplate->stage(nextOccurrence(id));
    if (!stage.drawsBox)
        return NO_BOX;
    alert.defaultButton = alert.offers(stage.defaultItem) ? stage.defaultItem : SInt16{0};
    alert.cancelButton = alert.offers(ESCAPE_ITEM) ? ESCAPE_ITEM : SInt16{0};
    return runAlert(alert);
}

}  // namespace

}  // namespace Toolbox

using namespace Toolbox;

DialogItemIndex StopAlert(SInt16 id, ModalFilterUPP filter)
{
    TracedCall call("StopAlert", id, filter);
    return call.gives(runResourceAlert(kAlertStopAlert, id));
}
