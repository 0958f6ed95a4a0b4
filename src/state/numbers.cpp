#include "state/numbers.h"

#include <algorithm>
#include <charconv>

namespace vorn {

static bool begins_character(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

std::size_t length(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_character));
}

std::string left(const std::string& text, std::size_t n)
{
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (begins_character(text[end]) && n-- == 0) break;
    return text.substr(0, end);
}

std::string without_padding(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string number_text(double x)
{
    std::array<char, 40> digits{};
    // snprintf may use the decimal separator of the user's locale.
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), x, std::chars_format::general, 15);
    return {digits.data(), end.ptr};
}

double Rnd(random_numbers& c)
{
    if (c.source) return c.source();
    return static_cast<double>(c.generator() - std::minstd_rand::min()) /
           (static_cast<double>(std::minstd_rand::max() - std::minstd_rand::min()) + 1);
}

}   // namespace vorn
