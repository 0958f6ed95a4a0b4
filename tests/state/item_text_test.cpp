#include "state/item_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "state/numbers.h"

namespace vorn {
namespace {

TEST(item_text, items_end_at_line_ends_and_commas)
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
    return r.take(f);
}

TEST(item_text, rejects_wrong_types_and_numbers_out_of_bounds)
{
    EXPECT_TRUE(takes<int16>("32767"));
    for (const char* bad :
         {"32768", "-32769", "1.5", "0x10", "+3", "1 2", "\"1\"", "", "99999999999999999999", "#TRUE#"})
        EXPECT_FALSE(takes<int16>(bad)) << bad;
    EXPECT_FALSE(takes<std::int32_t>("2147483648"));
    for (const char* bad : {"", "TRUE", "#true#", "1", "\"#TRUE#\""}) EXPECT_FALSE(takes<bool>(bad)) << bad;
    for (const char* bad : {"", "word", "\"open", "\"", "\"a\"b\"", "12"})
        EXPECT_FALSE(takes<std::string>(bad)) << bad;
    EXPECT_FALSE(takes<std::string>(std::string("\"a\0b\"", 5)));
}

TEST(item_text, texts_are_written_as_latin1_where_that_reads_back)
{
    item_writer plain;
    plain.put("\"a\"\r\nb");
    EXPECT_EQ(plain.file_bytes(), "\"'a'  b\"\r\n");
    const std::string ambiguous = "\xC3\x83\xC2\xA9";   // its Latin-1 bytes are one letter of UTF-8
    const struct {
        std::vector<std::string> texts;
        std::string bytes;
    } cases[] = {{{"M\xC3\xBCller"}, "\"M\xFCller\"\r\n"},
                 {{"\xD0\x9F"}, "\"\xD0\x9F\"\r\n"},
                 {{"\xE2\x82\xAC."}, "\"\xE2\x82\xAC.\"\r\n"},
                 {{"\xF0\x9F\x98\x80."}, "\"\xF0\x9F\x98\x80.\"\r\n"},
                 {{"\xC2\x80\xC2\x80\xC2\x80\xC2\x80"}, "\"\x80\x80\x80\x80\"\r\n"},
                 {{"\xC3\xB5\xC2\x80\xC2\x80\xC2\x80"}, "\"\xF5\x80\x80\x80\"\r\n"},
                 {{"\xC3\xA0\xC2\x9F\xC2\xBF"}, "\"\xE0\x9F\xBF\"\r\n"},
                 {{"\xC3\xAD\xC2\xA0\xC2\x80"}, "\"\xED\xA0\x80\"\r\n"},
                 {{"\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF"}, "\"\xF0\x8F\xBF\xBF\"\r\n"},
                 {{"\xC3\xB4\xC2\x90\xC2\x80\xC2\x80"}, "\"\xF4\x90\x80\x80\"\r\n"},
                 {{"\xE0\xA0\x80\xED\x9F\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
                  "\"\xE0\xA0\x80\xED\x9F\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\"\r\n"},
                 {{"\xC3\xA0\xC2\xA4x"}, "\"\xE0\xA4x\"\r\n"},
                 {{ambiguous}, '"' + ambiguous + "\"\r\n"},
                 {{ambiguous, "M\xC3\xBCller"}, '"' + ambiguous + "\"\r\n\"M\xC3\xBCller\"\r\n"}};
    for (const auto& c : cases) {
        item_writer w;
        for (const std::string& text : c.texts) w.put(text);
        EXPECT_EQ(w.file_bytes(), c.bytes);
        item_reader r(c.bytes);
        for (const std::string& text : c.texts) {
            std::string read;
            EXPECT_TRUE(r.take(read));
            EXPECT_EQ(read, text);
        }
    }
}

TEST(numbers, int16_saturates_and_rounds_halves_to_even)
{
    int16 n = 32760;
    n += 100;
    EXPECT_EQ(n, 32767);
    EXPECT_EQ(int16(-70000), -32768);
    EXPECT_EQ(int16(1e30), 32767);
    EXPECT_EQ(int16(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_TRUE(int16(2.5) == 2 && int16(-3.5) == -4);
}

TEST(numbers, random_numbers_run_from_0_up_to_1)
{
    random_numbers c;
    EXPECT_NEAR(Rnd(c), 48270.0 / 2147483646, 1e-12) << "the first number of the default seed";
    double most = 0;
    for (int i = 0; i < 1000; ++i) most = std::max(most, Rnd(c));
    EXPECT_TRUE(most > 0.99 && most < 1);
}

TEST(numbers, texts_are_truncated_and_padded_by_characters)
{
    padded<5> p;
    p = "\xC3\xA4\xC3\xB6\xC3\xBCxyz";
    EXPECT_EQ(p.text(), "\xC3\xA4\xC3\xB6\xC3\xBCxy");
    p = "ab";
    EXPECT_EQ(p.text() + p.trimmed(), "ab   ab");
    EXPECT_EQ(number_text(1600), "1600");
    EXPECT_EQ(number_text(100.0 / 3), "33.3333333333333");
}

}   // namespace
}   // namespace vorn
