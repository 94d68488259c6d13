// The nib as the nib services would read it: the archive's rules, then what is drawn.

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/VISEX_Plugins/LanguageSelector/XmlElement.h"

namespace {

// Top, left, bottom, right.
struct Bounds {
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

std::ostream& operator<<(std::ostream& stream, const Bounds& bounds)
{
    return stream << bounds.top << ' ' << bounds.left << ' ' << bounds.bottom << ' ' << bounds.right << ' ';
}

// The rectangle in `text`: four numbers, each followed by a blank.
Bounds boundsOf(const std::string& text)
{
    Bounds bounds;
    std::istringstream(text) >> bounds.top >> bounds.left >> bounds.bottom >> bounds.right;
    std::ostringstream written;
    written << bounds;
    EXPECT_EQ(text, written.str());
    return bounds;
}

int numberOf(const std::string& text)
{
    return std::stoi(text);
}

class Nib : public testing::Test {
protected:
    Nib()
        : archive(readXml(readFile(NIB_FOLDER "/objects.xib")))
    {
        collect(archive, 0);
    }

    // Notes every object that is written out, and which one it stands in.
    void collect(const XmlElement& element, int parent)
    {
        if (element.tag == "object" && !element.attribute("id").empty()) {
            const int id = numberOf(element.attribute("id"));
            EXPECT_TRUE(objects.emplace(id, &element).second) << "two objects have the id " << id;
            parents[id] = parent;
            parent = id;
        }
        for (const XmlElement& child : element.children)
            collect(child, parent);
    }

    // What an element of allObjects or allParents stands for.
    static int idOf(const XmlElement& element)
    {
        return numberOf(element.attribute(element.tag == "reference" ? "idRef" : "id"));
    }

    // The one object of this class.
    const XmlElement& only(const std::string& objectClass) const
    {
        const XmlElement* found = nullptr;
        for (const auto& [id, object] : objects) {
            if (object->attribute("class") != objectClass)
                continue;
            EXPECT_EQ(found, nullptr) << "two objects are " << objectClass;
            found = object;
        }
        if (found == nullptr)
            throw std::runtime_error("there is no " + objectClass);
        return *found;
    }

    // The one button with this command.
    const XmlElement& button(const std::string& command) const
    {
        const XmlElement* found = nullptr;
        for (const auto& [id, object] : objects) {
            if (object->attribute("class") != "IBCarbonButton" || object->property("command") != command)
                continue;
            EXPECT_EQ(found, nullptr) << "two buttons give " << command;
            found = object;
        }
        if (found == nullptr)
            throw std::runtime_error("there is no button for " + command);
        return *found;
    }

    XmlElement archive;
    std::map<int, const XmlElement*> objects;
    std::map<int, int> parents;
};

// ---- The archive

TEST_F(Nib, IsACarbonNib)
{
    EXPECT_EQ(archive.tag, "object");
    EXPECT_EQ(archive.attribute("class"), "NSIBObjectData");
    EXPECT_EQ(archive.property("targetFramework"), "IBCarbonFramework");
    ASSERT_NE(archive.named("rootObject"), nullptr);
    EXPECT_EQ(archive.named("rootObject")->attribute("class"), "NSCustomObject");
    EXPECT_EQ(archive.named("rootObject")->attribute("id"), "1");
}

void expectCountsToBeRight(const XmlElement& element)
{
    if (element.tag == "array") {
        EXPECT_EQ(element.attribute("count"), std::to_string(element.children.size())) << element.attribute("name");
    }
    if (element.tag == "dictionary") {
        EXPECT_EQ(element.attribute("count"), std::to_string(element.children.size() / 2)) << element.attribute("name");
    }
    for (const XmlElement& child : element.children)
        expectCountsToBeRight(child);
}

TEST_F(Nib, CountsAreWhatIsThere)
{
    expectCountsToBeRight(archive);
}

TEST_F(Nib, ListsEveryObjectOnceWithItsParentBesideIt)
{
    const std::vector<XmlElement>& listed = archive.named("allObjects")->children;
    const std::vector<XmlElement>& listedParents = archive.named("allParents")->children;
    ASSERT_EQ(listed.size(), listedParents.size());

    std::set<int> seen;
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const int id = idOf(listed[i]);
        EXPECT_TRUE(seen.insert(id).second) << "object " << id << " is listed twice";
        ASSERT_EQ(objects.count(id), 1u) << "there is no object " << id;
        const int parent = parents.at(id) != 0 ? parents.at(id) : 1;  // what stands in nothing is the file's owner's
        EXPECT_EQ(idOf(listedParents[i]), parent) << "of object " << id;
    }
    EXPECT_EQ(seen.size(), objects.size() - 1) << "all but the root object";
}

TEST_F(Nib, NextObjectIDIsTheFirstThatIsFree)
{
    EXPECT_EQ(numberOf(archive.property("nextObjectID")), objects.rbegin()->first + 1);
}

TEST_F(Nib, NamesItsOwnerAndTheWindow)
{
    const std::vector<XmlElement>& entries = archive.named("nameTable")->children;
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].text, "Files Owner");
    EXPECT_EQ(idOf(entries[1]), 1);
    EXPECT_EQ(entries[2].text, "Language_Selector");
    EXPECT_EQ(objects.at(idOf(entries[3])), &only("IBCarbonWindow"));
}

void expectCodesOfFourCharacters(const XmlElement& element)
{
    if (element.tag == "ostype") {
        EXPECT_EQ(element.text.size(), 4u) << element.text;
    }
    for (const XmlElement& child : element.children)
        expectCodesOfFourCharacters(child);
}

TEST_F(Nib, CodesHaveFourCharactersBlanksIncluded)
{
    expectCodesOfFourCharacters(archive);
}

TEST(NibFolder, HasTheOtherFilesOfANib)
{
    EXPECT_EQ(readFile(NIB_FOLDER "/classes.nib").toStdString(), "{\nIBClasses = ();\nIBVersion = 1;\n}\n");
    const XmlElement info = readXml(readFile(NIB_FOLDER "/info.nib"));
    ASSERT_EQ(info.tag, "plist");
    ASSERT_EQ(info.children.size(), 1u);
    ASSERT_EQ(info.children[0].children.size(), 2u);
    EXPECT_EQ(info.children[0].children[0].text, "targetFramework");
    EXPECT_EQ(info.children[0].children[1].text, "IBCarbonFramework");
}

// ---- What the external relies on

TEST_F(Nib, PopUpHasItsIDAndTheSixLanguagesInOrder)
{
    const XmlElement& popup = only("IBCarbonPopupButton");
    EXPECT_EQ(popup.property("controlSignature"), "lsel");
    EXPECT_EQ(popup.property("controlID"), "1");

    ASSERT_NE(popup.named("menu"), nullptr);
    std::vector<std::string> titles;
    for (const XmlElement& item : popup.named("menu")->named("items")->children) {
        EXPECT_EQ(item.attribute("class"), "IBCarbonMenuItem");
        titles.push_back(item.property("title"));
    }
    EXPECT_EQ(titles,
        (std::vector<std::string>{"English", "\u65E5\u672C\u8A9E (Japanese)", "Deutsch (German)",
            "Fran\u00E7ais (French)", "Italiano (Italian)", "Espa\u00F1ol (Spanish)"}));
}

TEST_F(Nib, OnlyThePopUpHasAnID)
{
    for (const auto& [id, object] : objects) {
        if (object != &only("IBCarbonPopupButton")) {
            EXPECT_EQ(object->named("controlSignature"), nullptr) << id;
        }
    }
}

TEST_F(Nib, OKIsTheDefaultAndCancelTheCancelButton)
{
    EXPECT_EQ(button("ok  ").property("title"), "OK");
    EXPECT_EQ(button("ok  ").property("buttonType"), "1");
    EXPECT_EQ(button("not!").property("title"), "Cancel");
    EXPECT_EQ(button("not!").property("buttonType"), "2");
}

TEST_F(Nib, WindowIsMovableModalWithoutBoxesAtTheAlertPosition)
{
    const XmlElement& window = only("IBCarbonWindow");
    EXPECT_EQ(window.property("title"), "Language Selector");
    EXPECT_EQ(window.property("carbonWindowClass"), "4");
    EXPECT_EQ(window.property("windowPosition"), "7");
    for (const char* const box :
        {"isResizable", "hasCloseBox", "hasCollapseBox", "hasHorizontalZoom", "hasVerticalZoom"})
        EXPECT_EQ(window.property(box), "FALSE") << box;
}

// ---- Where things stand, in pixels, by the habits of Aqua

TEST_F(Nib, ContentIsAsLargeAsTheWindow)
{
    const Bounds window = boundsOf(only("IBCarbonWindow").property("windowRect"));
    const Bounds content = boundsOf(only("IBCarbonRootControl").property("bounds"));
    EXPECT_EQ(content.top, 0);
    EXPECT_EQ(content.left, 0);
    EXPECT_EQ(content.bottom, window.height());
    EXPECT_EQ(content.right, window.width());
}

TEST_F(Nib, ControlsLeaveAMarginOf20)
{
    const Bounds content = boundsOf(only("IBCarbonRootControl").property("bounds"));
    Bounds all = {content.bottom, content.right, 0, 0};
    for (const XmlElement& control : only("IBCarbonRootControl").named("subviews")->children) {
        const Bounds bounds = boundsOf(control.property("bounds"));
        all.top = std::min(all.top, bounds.top);
        all.left = std::min(all.left, bounds.left);
        all.bottom = std::max(all.bottom, bounds.bottom);
        all.right = std::max(all.right, bounds.right);
    }
    EXPECT_EQ(all.top, 20);
    EXPECT_EQ(all.left, 20);
    EXPECT_EQ(content.bottom - all.bottom, 20);
    EXPECT_EQ(content.right - all.right, 20);
}

TEST_F(Nib, ButtonsStand12ApartWithOKAtTheRight)
{
    const Bounds content = boundsOf(only("IBCarbonRootControl").property("bounds"));
    const Bounds ok = boundsOf(button("ok  ").property("bounds"));
    const Bounds cancel = boundsOf(button("not!").property("bounds"));
    EXPECT_EQ(ok.right, content.right - 20);
    EXPECT_EQ(ok.left - cancel.right, 12);
    EXPECT_EQ(ok.top, cancel.top);
    for (const Bounds& bounds : {ok, cancel}) {
        EXPECT_EQ(bounds.height(), 20);
        EXPECT_GE(bounds.width(), 69);
    }
}

TEST_F(Nib, PromptStandsAboveThePopUpAndThatAboveTheButtons)
{
    const Bounds prompt = boundsOf(only("IBCarbonStaticText").property("bounds"));
    const Bounds popup = boundsOf(only("IBCarbonPopupButton").property("bounds"));
    const Bounds ok = boundsOf(button("ok  ").property("bounds"));
    EXPECT_EQ(prompt.height(), 16);
    EXPECT_EQ(popup.height(), 20);
    EXPECT_EQ(prompt.left, popup.left);
    EXPECT_EQ(popup.top - prompt.bottom, 8);
    EXPECT_EQ(ok.top - popup.bottom, 20);
    EXPECT_NE(only("IBCarbonStaticText").property("title"), "");
}

}  // namespace
