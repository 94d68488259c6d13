#include "toolbox/core/dialogs/ControlLabel.h"

namespace Toolbox {

const Control* labelBefore(const Control& control)
{
    const Control* label = nullptr;
    for (const Control* const each : control.window.controls()) {
        if (each == &control)
            break;
        if (each->kind == ControlKind::StaticText && each->shown())
            label = each;
    }
    return label;
}

QString labelOf(const Control& control)
{
    const Control* const labelled = control.title.isEmpty() ? labelBefore(control) : &control;
    QString label = labelled == nullptr ? QString() : labelled->title.simplified();
    if (label.endsWith(QLatin1Char(':')))
        label.chop(1);
    return label.trimmed();
}

}  // namespace Toolbox
