#include "state/item_text.h"

#include <gtest/gtest.h>

#include "state/numbers.h"

namespace vorn {
namespace {

TEST(item_text, items_end_at_any_line_end_and_at_commas_outside_quotes)
{
    item_reader r("1,2\n 3 \r\"a,b\"\r\n4");
    std::int32_t n = 0;
    std::string s;
    for (const int expected : {1, 2, 3}) {
        EXPECT_TRUE(r.take(n));
        EXPECT_EQ(n, expected);
    }
    EXPECT_TRUE(r.take(s));
    EXPECT_EQ(s, "a,b");
    EXPECT_TRUE(r.take(n));
    EXPECT_EQ(n, 4);
    EXPECT_FALSE(r.take(n));
}

template <class field>
bool takes(const std::string& bytes)
{
    item_reader r(bytes);
    field f{};
    const bool taken = r.take(f);
    item_reader after(bytes + "\r\n#TRUE#");
    field first{};
    bool second = false;
    EXPECT_EQ(after.take(first) && after.take(second), taken) << "a failure stops all that follows";
    return taken;
}

TEST(item_text, an_item_of_the_wrong_form_or_out_of_its_fields_bounds_fails)
{
    EXPECT_TRUE(takes<int16>("32767"));
    for (const char* bad :
         {"32768", "-32769", "1.5", "0x10", "+3", "1 2", "\"1\"", "", "99999999999999999999", "#TRUE#"})
        EXPECT_FALSE(takes<int16>(bad)) << bad;
    EXPECT_FALSE(takes<std::int32_t>("2147483648"));
    for (const char* bad : {"TRUE", "#true#", "1", "\"#TRUE#\""}) EXPECT_FALSE(takes<bool>(bad)) << bad;
    for (const char* bad : {"word", "\"open", "\"", "\"a\"b\"", "12"})
        EXPECT_FALSE(takes<std::string>(bad)) << bad;
    EXPECT_FALSE(takes<std::string>(std::string("\"a\0b\"", 5)));
}

TEST(item_text, texts_in_either_encoding_come_out_as_utf8)
{
    item_writer both;   // two letters whose Latin-1 bytes are one letter of UTF-8
    both.put("\xC3\x83\xC2\xA9");
    item_reader again(both.file_bytes());
    std::string letters;
    EXPECT_TRUE(again.take(letters));
    EXPECT_EQ(letters, "\xC3\x83\xC2\xA9");
    both.put("M\xC3\xBCller");   // which can't be UTF-8 as Latin-1, and so neither can the whole
    item_reader beside(both.file_bytes());
    EXPECT_TRUE(beside.take(letters));
    EXPECT_EQ(letters, "\xC3\x83\xC2\xA9");
    item_writer latin, wide;
    latin.put("M\xC3\xBCller");
    wide.put("\xD0\x9F");
    EXPECT_EQ(latin.file_bytes(), "\"M\xFCller\"\r\n");
    EXPECT_EQ(wide.file_bytes(), "\"\xD0\x9F\"\r\n");
    for (const item_writer* w : {&latin, &wide}) {
        item_reader r(w->file_bytes());
        std::string s;
        EXPECT_TRUE(r.take(s));
        EXPECT_EQ(s, w == &latin ? "M\xC3\xBCller" : "\xD0\x9F");
    }
}

TEST(numbers, sixteen_bit_fields_stay_at_their_bounds_and_round_halves_to_even)
{
    int16 n = 32760;
    n += 100;
    EXPECT_EQ(n, 32767);
    EXPECT_EQ(int16(-70000), -32768);
    EXPECT_EQ(int16(1e30), 32767);
    EXPECT_EQ(int16(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(int16(2.5), 2);
    EXPECT_EQ(int16(-3.5), -4);
}

TEST(numbers, texts_are_cut_and_padded_by_characters)
{
    padded<5> p;
    p = "\xC3\xA4\xC3\xB6\xC3\xBCxyz";
    EXPECT_EQ(p.text(), "\xC3\xA4\xC3\xB6\xC3\xBCxy");
    p = "ab";
    EXPECT_EQ(p.text(), "ab   ");
    EXPECT_EQ(p.trimmed(), "ab");
    EXPECT_EQ(number_text(1600), "1600");
    EXPECT_EQ(number_text(100.0 / 3), "33.3333333333333");
}

}   // namespace
}   // namespace vorn
