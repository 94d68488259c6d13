// Numbers by example, in the "C" locale. tests/Velbase/property compares them with a model, in every type and base.

#include "Velbase/common/common_string.h"
#include "string_contents.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

TEST(NumberOfInteger, HasUpperCaseDigitsInTheBases2To36AndIsDecimalInOthers)
{
    EXPECT_EQ(contents(String::Number(255u, 16)), "FF");
    EXPECT_EQ(contents(String::Number(255u, 2)), "11111111");
    EXPECT_EQ(contents(String::Number(1295u, 36)), "ZZ");
    EXPECT_EQ(contents(String::Number(255u, 1)), "255");
    EXPECT_EQ(contents(String::Number(255u, 37)), "255");
    EXPECT_EQ(contents(String::Number(0u, 7)), "0");
    EXPECT_EQ(contents(String::Number(-255, 16)), "-FF");
    EXPECT_EQ(contents(String::Number(INT_MIN, 10)), "-2147483648");
    EXPECT_EQ(contents(String::Number(INT_MIN, 36)), "-ZIK0ZK");
}

TEST(NumberOf64Bits, KnowsBase16AndDecimal)
{
    EXPECT_EQ(contents(String::Number(255ull, 2)), "255");
    EXPECT_EQ(contents(String::Number(-1ll, 16)), "FFFFFFFFFFFFFFFF");
    EXPECT_EQ(contents(String::Number(-1ll, 10)), "-1");
    EXPECT_EQ(contents(String::Number(LLONG_MIN, 10)), "-9223372036854775808");
}

TEST(NumberOfDouble, IsWhatPrintfWritesUpToPrecision99)
{
    EXPECT_EQ(contents(String::Number(1.5, 4294967295, 'f')), "1.500000");
    EXPECT_EQ(contents(String::Number(1.5, 2, 'f')), "1.50");
    EXPECT_EQ(contents(String::Number(1.5, 2, 'x')), "1.50") << "an unknown format";
    EXPECT_EQ(contents(String::Number(1234.5, 3, 'E')), "1.234E+03");
    EXPECT_EQ(contents(String::Number(0.1f, 20, 'f')), "0.10000000149011611938") << "a float's double";
    for (const unsigned precision : {99u, 100u, 150u, 0xFFFFFFFEu})
        EXPECT_EQ(contents(String::Number(1.5, precision, 'e')), "1.5" + std::string(98, '0') + "e+00") << precision;
    const String text = String::Number(-std::numeric_limits<double>::max(), 99, 'f');
    EXPECT_EQ(text.Length(), 1u + 309 + 1 + 99);
    EXPECT_TRUE(text.BeginsWith("-17976931348623157081452742373170435679807056752584499659891747680315726078"));
    EXPECT_TRUE(text.EndsWith(String(("858368." + std::string(99, '0')).c_str())));
}

}  // namespace
