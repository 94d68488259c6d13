// Values for gdb to show, at the moment when stop_here is called, with what it is to show of them.

#include "Velbase/common/common_string.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>

namespace {

// The bytes of a String, of which none has been made or is left.
struct Raw {
    alignas(String) unsigned char bytes[sizeof(String)];
};

// What an owner, and so a String, points to, in the same order.
struct Parts {
    const void* owned;
    const std::int32_t* owners;
};

void stop_here() { }

}  // namespace

int main()
{
    const String null;  // gdb: null (2 owners)
    const String null_copy = null;
    const String empty("");                     // gdb: "" (length 0, 1 owner)
    const String text("abc");                   // gdb: "abc" (length 3, 1 owner)
    const String title("Gr\303\274\303\237e");  // gdb: "Gr\303\274\303\237e" (length 7, 2 owners)
    const String title_copy = title;
    const String quoted("say \"a\\b\"\n\r\t\x7F\x01");  // gdb: "say \"a\\b\"\n\r\t\177\001" (length 14, 1 owner)
    const String before_digit("\0011");                 // gdb: "\0011" (length 2, 1 owner)
    String with_zero("a");                              // gdb: "a\000b" (length 3, 1 owner)
    with_zero[2] = 'b';
    const String of_15("123456789012345");   // gdb: "123456789012345" (length 15, 1 owner)
    const String of_16("1234567890123456");  // gdb: "1234567890123456" (length 16, 1 owner)
    const String of_200(std::string(200, 'x').c_str());
    const String of_201(std::string(201, 'x').c_str());
    const String& reference = text;  // gdb: "abc" (length 3, 1 owner)
    const std::vector<String> words{"one", "", String()};
    const String* const pointer = &text;
    const String* const nowhere = nullptr;

    const Char letter('a');       // gdb: 97 'a'
    const Char accented('\xE9');  // gdb: 233 '\351'
    const Char apostrophe('\'');  // gdb: 39 '\''
    const Char quote('"');        // gdb: 34 '"'
    const Char backslash('\\');   // gdb: 92 '\\'
    const Char zero;              // gdb: 0 '\000'

    const checked_uint position = 7u;                       // gdb: 7
    const checked_uint missing;                             // gdb: no value
    const checked_value<char> some_char = 'a';              // gdb: 97 'a'
    const checked_value<String> some_text = String("abc");  // gdb: "abc" (length 3, 1 owner)

    const shared_ptr<int> number(new int(7));  // gdb: 7 (2 owners)
    const shared_ptr<int> number_copy = number;
    const shared_ptr<String> owned_text(new String("abc"));  // gdb: "abc" (length 3, 1 owner) (1 owner)
    const shared_ptr<int> no_number;                         // gdb: null (1 owner)
    shared_ptr<int> disposed;                                // gdb: <no shared_ptr: not made yet, or gone>
    disposed.dispose();

    // The UTF-16 that String::Unicode makes of such texts.
    const shared_array<unsigned short> units(new unsigned short[4]{'G', 0xFC, 0x65E5, 0});  // gdb: u"Gü日" (2 owners)
    const shared_array<unsigned short> no_units_but_zero(new unsigned short[1]{0});         // gdb: u"" (1 owner)
    const shared_array<unsigned short> units_copy = units;
    const shared_array<unsigned short> many_units(new unsigned short[202]);
    std::fill_n(many_units.get(), 201, static_cast<unsigned short>('x'));
    many_units[201] = 0;
    const shared_array<unsigned short> no_units;  // gdb: null (1 owner)
    shared_array<int> disposed_array;             // gdb: <no shared_array: not made yet, or gone>
    disposed_array.dispose();

    Raw unmade;
    std::memset(unmade.bytes, 0xAA, sizeof unmade.bytes);
    Raw destroyed;
    (new (destroyed.bytes) String("gone"))->~String();

    const std::int32_t one = 1;
    const std::int32_t none = 0;
    const Parts dead_text = {reinterpret_cast<const void*>(16), &one};
    const Parts without_owners = {&one, &none};
    const String& dead_string = *reinterpret_cast<const String*>(16);
    const Char& dead_char = *reinterpret_cast<const Char*>(16);
    const checked_uint& dead_number = *reinterpret_cast<const checked_uint*>(16);

    stop_here();
    return 0;
}
