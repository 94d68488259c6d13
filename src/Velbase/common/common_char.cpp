#include "Velbase/common/common_char.h"

namespace {

const unsigned char Cc = Char::OTHER_CONTROL;
const unsigned char Ll = Char::LETTER_LOWERCASE;
const unsigned char Lu = Char::LETTER_UPPERCASE;
const unsigned char Nd = Char::NUMBER_DECIMALDIGIT;
const unsigned char No = Char::NUMBER_OTHER;
const unsigned char Pc = Char::PUNCTUATION_CONNECTOR;
const unsigned char Pd = Char::PUNCTUATION_DASH;
const unsigned char Pe = Char::PUNCTUATION_CLOSE;
const unsigned char Pf = Char::PUNCTUATION_FINALQUOTE;
const unsigned char Pi = Char::PUNCTUATION_INITIALQUOTE;
const unsigned char Po = Char::PUNCTUATION_OTHER;
const unsigned char Ps = Char::PUNCTUATION_OPEN;
const unsigned char Sc = Char::SYMBOL_CURRENCY;
const unsigned char Sk = Char::SYMBOL_MODIFIER;
const unsigned char Sm = Char::SYMBOL_MATH;
const unsigned char So = Char::SYMBOL_OTHER;
const unsigned char Zs = Char::SEPARATOR_SPACE;

}  // namespace

// Five entries keep the assignment of an older Unicode, on purpose: A7 and B6 are So (today Po), AA and BA are Ll
// (today Lo), AD is Pd (today Cf).
// clang-format off
const unsigned char CHAR_CATEGORIES[256] = {
    // 0   1   2   3   4   5   6   7   8   9   A   B   C   D   E   F
    Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc,  // 00
    Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc,  // 10
    Zs, Po, Po, Po, Sc, Po, Po, Po, Ps, Pe, Po, Sm, Po, Pd, Po, Po,  // 20   !"#$%&'()*+,-./
    Nd, Nd, Nd, Nd, Nd, Nd, Nd, Nd, Nd, Nd, Po, Po, Sm, Sm, Sm, Po,  // 30  0123456789:;<=>?
    Po, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu,  // 40  @ABCDEFGHIJKLMNO
    Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Ps, Po, Pe, Sk, Pc,  // 50  PQRSTUVWXYZ[\]^_
    Sk, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll,  // 60  `abcdefghijklmno
    Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ps, Sm, Pe, Sm, Cc,  // 70  pqrstuvwxyz{|}~
    Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc,  // 80
    Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc, Cc,  // 90
    Zs, Po, Sc, Sc, Sc, Sc, So, So, Sk, So, Ll, Pi, Sm, Pd, So, Sk,  // A0   ¡¢£¤¥¦§¨©ª«¬-®¯
    So, Sm, No, No, Sk, Ll, So, Po, Sk, No, Ll, Pf, No, No, No, Po,  // B0  °±²³´µ¶·¸¹º»¼½¾¿
    Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Lu,  // C0  ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ
    Lu, Lu, Lu, Lu, Lu, Lu, Lu, Sm, Lu, Lu, Lu, Lu, Lu, Lu, Lu, Ll,  // D0  ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß
    Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll,  // E0  àáâãäåæçèéêëìíîï
    Ll, Ll, Ll, Ll, Ll, Ll, Ll, Sm, Ll, Ll, Ll, Ll, Ll, Ll, Ll, Ll,  // F0  ðñòóôõö÷øùúûüýþÿ
};
// clang-format on
