// A control as the nib describes it and as a display shows it: its place, its identity and its value.

#ifndef TOOLBOX_CORE_DIALOGS_CONTROL_H
#define TOOLBOX_CORE_DIALOGS_CONTROL_H

#include "toolbox/base/Referenced.h"

#include <Carbon/CarbonEvents.h>

#include <QString>

#include <memory>
#include <vector>

namespace Toolbox {

class Window;

/// The kinds that displays tell apart. Every other kind that a nib can name is Other: it keeps its place and identity,
/// and is not drawn.
enum class ControlKind {
    Root,
    Button,
    PopupButton,
    StaticText,
    GroupBox,
    Separator,
    Other,
};

/// What a button is to the keyboard: Return presses the default one, Escape the cancel one.
enum class ButtonRole { Plain, Default, Cancel };

enum class Justification { Natural, Left, Center, Right };

/// An item of a pop-up's menu. Separators and hidden ones count as items, but nobody can choose them.
struct MenuItem {
    QString title;
    MenuCommand command = 0;
    bool enabled = true;
    bool separator = false;
    bool hidden = false;
};

/// A control of a window. It owns the controls inside it; its window owns the root.
class Control : public Referenced<Control, ControlRef> {
public:
    static constexpr const char* KIND = "control";

    Control(Window& owner, ControlKind controlKind, const Control* itsContainer = nullptr)
        : window(owner)
        , kind(controlKind)
        , container(itsContainer)
    {
    }

    /// Takes `wanted`, or the nearer end of minimum to maximum.
    void setValue(SInt32 wanted);

    /// Whether a person can see it: it is not hidden, nor is anything that it lies in.
    bool shown() const;

    /// Whether a person can work it: it is shown and enabled, and so is everything that it lies in.
    bool usable() const;

    /// Whether `item`, from 1, can be chosen: it is there, enabled, not hidden and no separator.
    bool offers(SInt32 item) const;

    Window& window;
    const ControlKind kind;
    const Control* const container;  // the control that it lies in; null for the root
    Rect bounds{};                   // in the coordinates of the window's content, also when it lies in another control
    QString title;                   // of a pop-up: the label at its left
    // The last static text shown before it, which labels it if it has no title; or null.
    const Control* label = nullptr;
    ControlID id{};
    MenuCommand command = 0;
    bool enabled = true;
    bool hidden = false;
    ButtonRole role = ButtonRole::Plain;
    Justification justification = Justification::Natural;
    SInt32 value = 0;
    SInt32 minimum = 0;
    SInt32 maximum = 0;
    std::vector<MenuItem> items;  // of a pop-up; its value counts them from 1
    std::vector<std::unique_ptr<Control>> children;
};

/// The title of `control` or else of its label, on one line and without a colon at its end. Empty if there is neither.
QString labelOf(const Control& control);

}  // namespace Toolbox

#endif
