// The external as its installer calls it, and each way in which the platform fails it: one table, which every test of a
// failure runs through.

#ifndef TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_FAILURES_H
#define TESTS_VISEX_PLUGINS_LANGUAGESELECTOR_FAILURES_H

#include "VISEX_Plugins/LanguageSelector/LanguageSelector.h"

#include <string>
#include <vector>

/// What an installer asks an instance for.
const CFUUIDBytes EXTERNAL_INTERFACE = {
    0x00, 0xD5, 0xFB, 0xFE, 0x3D, 0x3D, 0x40, 0xE2, 0x9D, 0xCB, 0x92, 0xED, 0x69, 0x58, 0x34, 0xF8};

const UInt16 UNTOUCHED = 0xBEEF;  // the chosen language of a record in which none was stored

/// What happens if nothing fails.
enum class Scenario {
    Served,      // the right is demanded and granted; the current language is Japanese, Italian is chosen, OK pressed
    WithoutNib,  // the same, but there is no nib to draw the dialog
    NotServed,   // the message is another one
};

/// One call of one of the platform's functions that fails.
struct Failure {
    const char* name;
    Scenario scenario;
    const char* function;
    int occurrence;
    std::vector<long> results;  // each of which is tried; 0 for null, false, or nothing done
    const char* source;         // that says so: the platform's header
    std::string then;           // the log that follows; with `stops`, all of it but for a message box
    bool stops;
    const char* seen;  // the text of the message box; "nothing" without one or without a text
    UInt16 chosen;
    std::string leftBehind;
};

/// The table. Between them its rows fail every call that the external makes.
const std::vector<Failure>& failures();

/// Whether it ends in a message box with a text.
bool hasBox(const Failure& failure);

/// The calls of the main entry in `scenario`, as the double logs them, if nothing else fails.
std::string logOf(Scenario scenario);

/// The log of a message box with `text`, up to its end.
std::string boxLog(const std::string& text);

/// Resets the double and makes it ready for `scenario`.
void prepare(Scenario scenario);

/// The same, with `failure` giving `result`.
void prepare(const Failure& failure, long result);

/// The record that the main entry is given in `scenario`.
ExternParmBlock recordFor(Scenario scenario);

#endif
