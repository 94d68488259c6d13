// Where two of the installer's records differ, so that a test that fails names the fields rather than showing all
// bytes.

#ifndef TESTS_SUPPORT_RECORDDIFFERENCES_H
#define TESTS_SUPPORT_RECORDDIFFERENCES_H

#include "VISEX_Plugins/LanguageSelector/ExternParmBlock.h"

#include <string>
#include <string_view>

/// A line for each field, and for each other byte, that is not as expected: its position and both values in
/// hexadecimal. Empty if there is no difference. What follows a record is compared too. After 16 lines it only says
/// that there is more.
std::string recordDifferences(std::string_view actual, std::string_view expected);

/// The same for records.
std::string recordDifferences(const ExternParmBlock& actual, const ExternParmBlock& expected);

#endif
