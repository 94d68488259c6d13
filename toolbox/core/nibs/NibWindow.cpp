#include "toolbox/core/nibs/NibWindow.h"

#include "toolbox/base/CurrentReport.h"
#include "toolbox/base/TracedCall.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Toolbox {

namespace {

// Controls inside one another. A chain of references can go deeper than the archive's elements do.
constexpr int DEEPEST = 100;

// The numbers that the Menu Manager counts items with have 16 bits and a sign.
constexpr std::size_t MOST_MENU_ITEMS = 0x7FFF;

struct ControlClass {
    const char* name;
    ControlKind kind;
};

// The classes that have a kind of their own. Any other is Other, with what every control has.
constexpr ControlClass CONTROL_CLASSES[] = {
    {"IBCarbonRootControl", ControlKind::Root},
    {"IBCarbonButton", ControlKind::Button},
    {"IBCarbonPopupButton", ControlKind::PopupButton},
    {"IBCarbonStaticText", ControlKind::StaticText},
    {"IBCarbonGroupBox", ControlKind::GroupBox},
    {"IBCarbonSeparator", ControlKind::Separator},
};

ControlKind kindOf(const NibObject& object)
{
    for (const ControlClass& each : CONTROL_CLASSES)
        if (object.className == QLatin1String(each.name))
            return each.kind;
    return ControlKind::Other;
}

ButtonRole roleOf(const NibObject& object)
{
    const SInt32 type = object.number("buttonType", 0);
    return type == 1 ? ButtonRole::Default : type == 2 ? ButtonRole::Cancel : ButtonRole::Plain;
}

Justification justificationOf(const NibObject& object)
{
    switch (object.number("justification", 0)) {
    case 1:
        return Justification::Center;
    case -1:
        return Justification::Right;
    case -2:
        return Justification::Left;
    }
    return Justification::Natural;
}

// Makes one window. Where the archive cannot be followed it goes on with what there is, and gives no window in the end.
class WindowMaker {
public:
    WindowMaker(const NibArchive& archive, const QString& name)
        : m_archive(archive)
        , m_name(name)
    {
    }

    // Why there is no window, in a clause.
    const QString& problem() const { return m_problem; }

    std::unique_ptr<Window> make(const NibObject& object)
    {
        claim(object);
        auto window = std::make_unique<Window>();
        window->title = object.text("title");
        window->content = rectangle(object, "windowRect");
        if (const auto root = object.reference("rootControl"))
            window->root = makeControl(*window, nullptr, follow(&*root), 0);
        else
            window->root = std::make_unique<Control>(*window, ControlKind::Root);
        return m_problem.isEmpty() ? std::move(window) : nullptr;
    }

private:
    std::unique_ptr<Control> makeControl(Window& window, const Control* container, const NibObject& object, int depth)
    {
        if (!require(depth < DEEPEST, "controls are nested too deeply") || !claim(object))
            return nullptr;
        auto control = std::make_unique<Control>(window, kindOf(object), container);
        control->bounds = rectangle(object, "bounds");
        control->title = object.text("title");
        control->id = {object.code("controlSignature"), object.number("controlID", 0)};
        control->command = object.code("command");
        control->enabled = object.flag("enabled", true);
        control->hidden = object.flag("hidden", false);
        control->label = m_lastText;
        if (control->kind == ControlKind::StaticText && control->shown())
            m_lastText = control.get();
        control->role = roleOf(object);
        control->justification = justificationOf(object);
        if (control->kind == ControlKind::Other && !control->hidden)
            remarkNotDrawn(object.className, control->id);
        if (const auto menu = object.reference("menu"))
            readMenu(follow(&*menu), object.number("selectedItem", 1), *control);
        for (const NibValue& child : object.array("subviews"))
            control->children.push_back(
                makeControl(window, control.get(), follow(child.as<NibReference>()), depth + 1));
        return control;
    }

    // Such a control keeps its place and its identity, but nobody will see it.
    void remarkNotDrawn(const QString& className, const ControlID& id) const
    {
        remark("the " + className.toStdString() + " " + describeNumber(id.signature) + " " + std::to_string(id.id)
            + " of the window \"" + m_name.toStdString() + "\" is not drawn: no display knows its class");
    }

    void readMenu(const NibObject& menu, SInt32 selectedItem, Control& control)
    {
        if (!claim(menu) || !require(menu.array("items").size() <= MOST_MENU_ITEMS, "a menu has too many items"))
            return;
        for (const NibValue& item : menu.array("items"))
            control.items.push_back(makeItem(follow(item.as<NibReference>())));
        const SInt32 items = static_cast<SInt32>(control.items.size());
        control.minimum = std::min(items, 1);
        control.maximum = items;
        control.setValue(selectedItem);
    }

    MenuItem makeItem(const NibObject& object)
    {
        claim(object);
        MenuItem item;
        item.title = object.text("title");
        item.command = object.code("command");
        item.enabled = !object.flag("disabled", false);
        item.separator = object.flag("separator", false);
        item.hidden = object.flag("hidden", false);
        return item;
    }

    // An object may stand in one place only: so none is inside itself, and a small archive cannot make a huge window.
    bool claim(const NibObject& object)
    {
        return require(m_claimed.insert(&object).second, "an object stands in two places");
    }

    const NibObject& follow(const NibReference* reference)
    {
        static const NibObject nothing;
        const NibObject* const object = reference == nullptr ? nullptr : m_archive.find(*reference);
        return require(object != nullptr, "a reference names nothing") ? *object : nothing;
    }

    Rect rectangle(const NibObject& object, const char* name)
    {
        const std::optional<Rect> found = object.rectangle(name);
        require(found.has_value(), "a rectangle is missing or wrong");
        return found.value_or(Rect{});
    }

    bool require(bool condition, const char* otherwise)
    {
        if (!condition && m_problem.isEmpty())
            m_problem = QLatin1String(otherwise);
        return condition;
    }

    const NibArchive& m_archive;
    const QString m_name;
    std::set<const NibObject*> m_claimed;
    const Control* m_lastText = nullptr;  // of the static texts so far that are shown
    QString m_problem;                    // the first
};

}  // namespace

bool isWindow(const NibObject& object)
{
    return object.className == QLatin1String("IBCarbonWindow");
}

std::unique_ptr<Window> makeWindow(
    const NibArchive& archive, const NibObject& object, const QString& name, QString* problem)
{
    WindowMaker maker(archive, name);
    std::unique_ptr<Window> window = maker.make(object);
    *problem = maker.problem();
    return window;
}

}  // namespace Toolbox
