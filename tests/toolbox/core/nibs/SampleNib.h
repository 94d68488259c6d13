// Archives for the tests: one of a small dialog, and one around whatever a test puts into a window.

#ifndef TESTS_TOOLBOX_CORE_NIBS_SAMPLENIB_H
#define TESTS_TOOLBOX_CORE_NIBS_SAMPLENIB_H

#include <string>

/// An archive whose window, "Window" (id 2), has a root control (id 3) with the controls `controls`. `others` are
/// further objects.
inline std::string nibOf(const std::string& controls, const std::string& others = std::string())
{
    return "<object class='NSIBObjectData'><array name='allObjects'><object class='IBCarbonWindow' id='2'>"
           "<string name='windowRect'>0 0 100 200 </string>"
           "<object name='rootControl' class='IBCarbonRootControl' id='3'><string name='bounds'>0 0 100 200 </string>"
           "<array name='subviews'>"
        + controls + "</array></object></object>" + others
        + "</array><dictionary name='nameTable'><string>Window</string><reference idRef='2'/></dictionary></object>";
}

/// A control of `className` with bounds "1 2 3 4", the properties `properties` and an id of no importance.
inline std::string controlOf(const std::string& className, const std::string& properties = std::string())
{
    return "<object class='" + className + "'><string name='bounds'>1 2 3 4 </string>" + properties + "</object>";
}

/// The property `menu` of a pop-up, with `items`.
inline std::string menuOf(const std::string& items)
{
    return "<object name='menu' class='IBCarbonMenu'><array name='items'>" + items + "</array></object>";
}

/// The entry `title` of a control or an item.
inline std::string titled(const std::string& title)
{
    return "<string name='title'>" + title + "</string>";
}

/// A dialog with a text, a pop-up of two items and two buttons, one of which stands elsewhere.
inline const std::string SAMPLE_NIB = nibOf(controlOf("IBCarbonStaticText", titled("Choose a &lt;size&gt;:"))
        + controlOf("IBCarbonPopupButton",
            "<ostype name='controlSignature'>demo</ostype><int name='controlID'>1</int>"
                + menuOf("<object class='IBCarbonMenuItem'/><object class='IBCarbonMenuItem'/>"))
        + "<reference idRef='10'/>"
        + controlOf(
            "IBCarbonButton", titled("Cancel") + "<ostype name='command'>not!</ostype><int name='buttonType'>2</int>"),
    "<object class='IBCarbonButton' id='10'><string name='bounds'>80 230 100 300 </string>" + titled("OK")
        + "<ostype name='command'>ok  </ostype><int name='buttonType'>1</int></object>");

#endif
