// Archives for the tests: one of a small dialog, and one around whatever a test puts into a window.

#ifndef TESTS_TOOLBOX_CORE_NIBS_SAMPLENIB_H
#define TESTS_TOOLBOX_CORE_NIBS_SAMPLENIB_H

#include <string>

/// A dialog, "Size_Chooser", with a text, a pop-up of three items and two buttons.
inline const std::string SAMPLE_NIB = R"(<?xml version="1.0" standalone="yes"?>
<object class="NSIBObjectData">
 <string name="targetFramework">IBCarbonFramework</string>
 <object name="rootObject" class="NSCustomObject" id="1"><string name="customClass">NSApplication</string></object>
 <array count="10" name="allObjects">
  <object class="IBCarbonWindow" id="2">
   <string name="windowRect">200 300 320 620 </string>
   <string name="title">Paper &amp; ink</string>
   <object name="rootControl" class="IBCarbonRootControl" id="3">
    <string name="bounds">0 0 120 320 </string>
    <array count="4" name="subviews">
     <object class="IBCarbonStaticText" id="4">
      <string name="bounds">20 20 36 300 </string><string name="title">Choose a &lt;size&gt;:</string>
     </object>
     <object class="IBCarbonPopupButton" id="5">
      <string name="bounds">44 20 64 200 </string>
      <ostype name="controlSignature">demo</ostype><int name="controlID">1</int>
      <object name="menu" class="IBCarbonMenu" id="6"><array count="3" name="items">
       <object class="IBCarbonMenuItem" id="7"><string name="title">Small</string></object>
       <object class="IBCarbonMenuItem" id="8"><string name="title">Medium</string></object>
       <object class="IBCarbonMenuItem" id="9"><string name="title">Large</string></object>
      </array></object>
     </object>
     <reference idRef="10"/>
     <object class="IBCarbonButton" id="11">
      <string name="bounds">80 148 100 218 </string><string name="title">Cancel</string>
      <ostype name="command">not!</ostype><int name="buttonType">2</int>
     </object>
    </array>
   </object>
   <boolean name="isResizable">FALSE</boolean>
   <int name="carbonWindowClass">4</int><int name="windowPosition">7</int>
  </object>
  <object class="IBCarbonButton" id="10">
   <string name="bounds">80 230 100 300 </string><string name="title">OK</string>
   <ostype name="command">ok  </ostype><int name="buttonType">1</int>
  </object>
  <reference idRef="3"/><reference idRef="4"/><reference idRef="5"/><reference idRef="6"/><reference idRef="7"/>
  <reference idRef="8"/><reference idRef="9"/><reference idRef="11"/>
 </array>
 <array count="10" name="allParents">
  <reference idRef="1"/><reference idRef="3"/><reference idRef="2"/><reference idRef="3"/><reference idRef="3"/>
  <reference idRef="5"/><reference idRef="6"/><reference idRef="6"/><reference idRef="6"/><reference idRef="3"/>
 </array>
 <dictionary count="2" name="nameTable">
  <string>Files Owner</string><reference idRef="1"/>
  <string>Size_Chooser</string><reference idRef="2"/>
 </dictionary>
 <unsigned_int name="nextObjectID">12</unsigned_int>
</object>
)";

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

#endif
