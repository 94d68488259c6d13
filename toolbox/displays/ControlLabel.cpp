#include "toolbox/displays/ControlLabel.h"

namespace Toolbox {

namespace {

QString textBefore(const Control& control)
{
    QString text;
    for (const Control* const each : control.window.controls()) {
        if (each == &control)
            break;
        if (each->kind == ControlKind::StaticText && each->shown())
            text = each->title;
    }
    return text;
}

}  // namespace

QString labelOf(const Control& control)
{
    QString label = (control.title.isEmpty() ? textBefore(control) : control.title).simplified();
    if (label.endsWith(QLatin1Char(':')))
        label.chop(1);
    return label.trimmed();
}

}  // namespace Toolbox
