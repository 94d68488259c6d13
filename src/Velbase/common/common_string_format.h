// Text from numbers, for String::Number and String::Arg. Private to String.

#ifndef VELBASE_COMMON_STRING_FORMAT_H
#define VELBASE_COMMON_STRING_FORMAT_H

#include "Velbase/common/common_checked_types.h"
#include "Velbase/common/common_string.h"

/// The digits of `n`, after "-" if it is negative. A base outside 2 to 36 counts as 10.
String formatInteger(int n, unsigned base);
String formatInteger(unsigned n, unsigned base);
String formatInteger(long n, unsigned base);
String formatInteger(unsigned long n, unsigned base);

/// In base 16 the digits of the 64 bits, without a sign; in every other base, decimal.
String formatInteger(long long n, unsigned base);
String formatInteger(unsigned long long n, unsigned base);

/// What printf writes for `value` with the conversion `format`, one of f F e E g G, else f. A `precision` above 99
/// counts as 99, and none leaves it to printf.
String formatFloat(double value, const checked_uint& precision, char format);

#endif
