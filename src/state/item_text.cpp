#include "state/item_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace vorn {

namespace {

std::string_view without_blanks(std::string_view s)
{
    const auto first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

bool ends_item(char c)
{
    return c == ',' || c == '\r' || c == '\n';
}

// The size in bytes of the UTF-8 character at an index; 0 if the bytes there aren't valid UTF-8. Overlong
// forms, surrogates and code points above U+10FFFF aren't valid: Windows can't convert them into a path.
std::size_t utf8_size(std::string_view s, std::size_t at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
    const unsigned first = byte(at);
    const std::size_t size = first < 0x80                    ? 1
                             : first >= 0xC2 && first < 0xE0 ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
    if (size == 0 || at + size > s.size()) return 0;
    for (std::size_t i = at + 1; i < at + size; ++i)
        if ((byte(i) & 0xC0U) != 0x80U) return 0;
    const unsigned second = size > 1 ? byte(at + 1) : 0;
    const bool valid = first == 0xE0   ? second >= 0xA0
                       : first == 0xED ? second < 0xA0
                       : first == 0xF0 ? second >= 0x90
                       : first == 0xF4 ? second < 0x90
                                       : true;
    return valid ? size : 0;
}

bool is_utf8(std::string_view s)
{
    for (std::size_t at = 0; at < s.size();) {
        const std::size_t size = utf8_size(s, at);
        if (size == 0) return false;
        at += size;
    }
    return true;
}

std::optional<std::string> as_latin1(std::string_view utf8)
{
    std::string bytes;
    for (std::size_t at = 0; at < utf8.size();) {
        const auto first = static_cast<unsigned char>(utf8[at]);
        if (first >= 0xC4) return std::nullopt;
        const std::size_t size = first < 0x80 ? 1 : 2;
        if (at + size > utf8.size()) return std::nullopt;
        const unsigned code =
            size == 1 ? first : ((first & 0x1FU) << 6U) | (static_cast<unsigned char>(utf8[at + 1]) & 0x3FU);
        bytes += static_cast<char>(code);
        at += size;
    }
    return bytes;
}

// Whether a line of a Latin-1 text contains non-ASCII characters and is also valid UTF-8. The reader, which
// detects the encoding of each item, would then misread that line.
bool reads_as_utf8(std::string_view latin)
{
    while (!latin.empty()) {
        const std::string_view line = latin.substr(0, latin.find('\n'));
        const auto beyond_ascii = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
        if (std::any_of(line.begin(), line.end(), beyond_ascii) && is_utf8(line)) return true;
        latin.remove_prefix(std::min(line.size() + 1, latin.size()));
    }
    return false;
}

}   // namespace

bool item_reader::next_item(std::string_view& item)
{
    if (place_ >= text_.size()) return false;
    const std::size_t begin = place_;
    bool quoted = false;
    while (place_ < text_.size() && (quoted || !ends_item(text_[place_]))) {
        if (text_[place_] == '"') quoted = !quoted;
        ++place_;
    }
    item = without_blanks(std::string_view(text_).substr(begin, place_ - begin));
    if (text_.compare(place_, 2, "\r\n") == 0) ++place_;
    ++place_;
    return true;
}

bool item_reader::take(std::string& text)
{
    std::string_view item;
    if (!next_item(item)) return false;
    const bool quoted = item.size() >= 2 && item.front() == '"' && item.back() == '"';
    if (!quoted || item.substr(1, item.size() - 2).find_first_of("\"\r\n") != std::string_view::npos ||
        item.find('\0') != std::string_view::npos)
        return false;
    text = from_file_bytes(std::string(item.substr(1, item.size() - 2)));
    return true;
}

bool item_reader::take(bool& value)
{
    std::string_view item;
    if (!next_item(item)) return false;
    if (item != "#TRUE#" && item != "#FALSE#") return false;
    value = item == "#TRUE#";
    return true;
}

bool item_reader::take(std::int32_t& number)
{
    std::string_view item;
    if (!next_item(item)) return false;
    std::int32_t n = 0;
    const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), n);
    if (error != std::errc() || end != item.data() + item.size()) return false;
    number = n;
    return true;
}

bool item_reader::take(int16& number)
{
    std::int32_t n = 0;
    if (!take(n) || n != int16(n)) return false;
    number = n;
    return true;
}

void item_writer::put(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? '\'' : c == '\r' || c == '\n' ? ' ' : c;
    put_line(quoted + '"');
}

std::string item_writer::file_bytes() const
{
    const auto latin = as_latin1(text_);
    return latin && !reads_as_utf8(*latin) ? *latin : text_;
}

std::string from_file_bytes(const std::string& bytes)
{
    if (is_utf8(bytes)) return bytes;
    std::string utf8;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80)
            utf8 += c;
        else {
            utf8 += static_cast<char>(0xC0U | (code >> 6U));
            utf8 += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return utf8;
}

}   // namespace vorn
