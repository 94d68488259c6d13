// What the external and its installer have agreed on, each thing named once: for the external, for the program
// that plays its installer, and for the one that makes the installer's resources. docs/host-contract.md says what
// follows from it.

#ifndef VISEX_PLUGINS_LANGUAGESELECTOR_HOSTCONTRACT_H
#define VISEX_PLUGINS_LANGUAGESELECTOR_HOSTCONTRACT_H

#include <Carbon/Carbon.h>

// ---- The plug-in

/// The type of the external's factory, 5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8.
inline CFUUIDRef factoryType()
{
    return CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x5C, 0xD9, 0x48, 0x4B, 0x4A, 0x86, 0x4C, 0xA2, 0xA7, 0x9A, 0x15, 0x25, 0xA3, 0xB5, 0xF6, 0xE8);
}

/// The interface of its instances, 00D5FBFE-3D3D-40E2-9DCB-92ED695834F8.
inline CFUUIDRef externalInterface()
{
    return CFUUIDGetConstantUUIDWithBytes(
        nullptr, 0x00, 0xD5, 0xFB, 0xFE, 0x3D, 0x3D, 0x40, 0xE2, 0x9D, 0xCB, 0x92, 0xED, 0x69, 0x58, 0x34, 0xF8);
}

// ---- The record: see ExternParmBlock.h

/// The one message that the external serves.
const SInt16 MESSAGE_SELECT_LANGUAGE = 1000;

/// The flag of the result flags that is set for any other message.
const UInt32 RESULT_FLAG_UNKNOWN_MESSAGE = 1;

// ---- The installer's resources

/// The alert, 'ALRT' and 'DITL', that is shown for any other message.
const SInt16 UNKNOWN_MESSAGE_ALERT = 5000;

/// The resource that says whether the administrator's right is needed: if the byte at this position has this bit, the
/// most significant one, set.
const ResType CALL_RESOURCE_TYPE = 'CALL';
const SInt16 CALL_RESOURCE_ID = 1000;
const Size ADMINISTRATOR_BYTE = 401;
const long ADMINISTRATOR_BIT = 0;  // as BitTst counts them

// ---- The dialog

/// The nib in the installer's bundle, and its window. Functions, as the Mac's CFSTR takes a literal only.
inline CFStringRef nibName()
{
    return CFSTR("LanguageSelector");
}

inline CFStringRef windowName()
{
    return CFSTR("Language_Selector");
}

/// The pop-up in that window.
const OSType POPUP_SIGNATURE = 'lsel';
const SInt32 POPUP_ID = 1;

/// The commands of its two buttons.
const MenuCommand COMMAND_OK = 'ok  ';
const MenuCommand COMMAND_CANCEL = 'not!';

struct MenuLanguage {
    UInt16 code;       // the Mac OS language code
    const char* name;  // in English
};

/// The language of each item of the pop-up, the first item's first. Any other code, and any other item, is English.
constexpr MenuLanguage MENU_LANGUAGES[] = {
    {0, "English"},
    {11, "Japanese"},
    {2, "German"},
    {1, "French"},
    {3, "Italian"},
    {6, "Spanish"},
};
constexpr UInt32 MENU_LANGUAGE_COUNT = sizeof MENU_LANGUAGES / sizeof MENU_LANGUAGES[0];

#endif
