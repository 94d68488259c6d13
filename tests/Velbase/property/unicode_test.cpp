// To UTF-16 and back: what one byte becomes says what every text becomes, and which texts have no way back. The bytes
// are the toolbox's Text Encoding Converter's.

#include "drivers.h"

#include <map>

namespace {

typedef std::basic_string<unsigned short> Units;

// The units up to the zero; stops where a missing one would make the array longer than `text`.
Units unitsOf(const String& text)
{
    const shared_array<unsigned short> array = text.Unicode();
    Units units;
    if (array.get() == nullptr)
        return units;
    for (unsigned i = 0; i < text.Length() && array[i] != 0; ++i)
        units += array[i];
    EXPECT_EQ(array[units.size()], 0) << "no zero after the units of " << shown(text);
    return units;
}

// The unit that each byte becomes, and the byte for each such unit.
class UnicodeProperty : public testing::Test {
protected:
    UnicodeProperty()
    {
        for (int code = 1; code < 256; ++code) {
            const char byte = static_cast<char>(code);
            const Units units = unitsOf(String(&byte, 1));
            EXPECT_EQ(units.size(), 1u) << "byte " << code;
            if (units.size() == 1) {
                m_units[byte] = units[0];
                m_bytes[units[0]] = byte;
            }
        }
    }

    // The model: each byte on its own, up to the first zero byte.
    Units units(const reference::Text& text) const
    {
        Units all;
        for (const char c : reference::cString(text))
            all += m_units.at(c);
        return all;
    }

    // The model: null as soon as one unit is not that of a byte.
    reference::Text text(const Units& units) const
    {
        std::string bytes;
        for (const unsigned short unit : units) {
            const auto found = m_bytes.find(unit);
            if (found == m_bytes.end())
                return nullptr;
            bytes += found->second;
        }
        return reference::newText(bytes);
    }

    std::map<char, unsigned short> m_units;
    std::map<unsigned short, char> m_bytes;
};

TEST_F(UnicodeProperty, GivesEveryByteAUnitOfItsOwnThatOfMacOSRoman)
{
    EXPECT_EQ(m_bytes.size(), 255u);
    for (char c = 1; c < 0x7F; ++c)
        EXPECT_EQ(m_units[c], c) << "ASCII stays as it is";
    const std::u16string_view expected = u"\u007F\u00E9\u00FC\u00DF\u0153\u02C6\u20AC\u2122\uF8FF";
    EXPECT_EQ(unitsOf("\x7F\x8E\x9F\xA7\xCF\xF6\xDB\xAA\xF0"), Units(expected.begin(), expected.end()));
}

TEST_F(UnicodeProperty, AgreesOnRandomTextsAndBack)
{
    Random random(61);
    for (int round = 0; round < 2000; ++round) {
        const Twin twin = random.text(12);
        const Units there = unitsOf(twin.string);
        ASSERT_EQ(there, units(twin.text)) << call(twin, "Unicode");
        ASSERT_TRUE(agrees(String(there.c_str()), text(there), {twin})) << call(twin, "Unicode") << " and back";
    }
}

TEST_F(UnicodeProperty, AgreesOnEveryUnit)
{
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        const Units one(1, static_cast<unsigned short>(unit));
        ASSERT_TRUE(agrees(String(one.c_str()), text(one))) << "unit " << unit;
    }
}

TEST_F(UnicodeProperty, AgreesOnRandomUnits)
{
    Random random(62);
    for (int round = 0; round < 2000; ++round) {
        Units all;
        for (std::uint32_t left = random.below(9); left > 0; --left) {
            const char byte = static_cast<char>(1 + random.below(255));
            all += random.once(20) ? static_cast<unsigned short>(1 + random.below(0xFFFF)) : m_units.at(byte);
        }
        ASSERT_TRUE(agrees(String(all.c_str()), text(all))) << testing::PrintToString(all);
    }
}

TEST_F(UnicodeProperty, GivesUpFrom100000On)
{
    for (const std::size_t length : {99998u, 99999u, 100000u, 100001u}) {
        const bool taken = length < 100000;
        const String string(Units(length, 'u').c_str());
        EXPECT_TRUE(agrees(string, taken ? reference::newText(std::string(length, 'u')) : nullptr)) << length;
        const String text(std::string(length, 'u').c_str());
        EXPECT_EQ(text.Unicode().get() != nullptr, taken) << length;
    }
}

}  // namespace
