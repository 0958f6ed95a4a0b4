// The one text form of practice, range and results files: an item a line, each line ended by CR LF; booleans
// #TRUE# and #FALSE#, numbers as plain decimals, texts between double quotes with no escape.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "state/numbers.h"

namespace vorn {

// Takes one item after another from a file's text. Each take gives false, and leaves what it was given as it
// is, when no item is left, when the item has another form, or when a number doesn't fit its field; from then
// on every take gives false. An item also ends at a comma outside quotes.
class item_reader {
public:
    explicit item_reader(std::string text) : text_(std::move(text)) {}

    bool take(std::string&);
    bool take(bool&);
    bool take(int16&);
    bool take(std::int32_t&);

private:
    bool next_item(std::string_view& item);
    template <std::signed_integral whole>
    bool take_number(whole&);

    std::string text_;
    std::size_t place_ = 0;
    bool failed_ = false;
};

// Builds a file's text item by item. A double quote inside a text becomes an apostrophe and a line break a
// blank, since the form has no way to hold them and the file would not read back.
class item_writer {
public:
    void put(std::string_view text);
    void put(const char* text) { put(std::string_view(text)); }
    void put(const std::string& text) { put(std::string_view(text)); }
    void put(bool);
    void put(std::integral auto number) { put_line(std::to_string(number)); }
    void put(int16 number) { put_line(std::to_string(static_cast<int>(number))); }

    // What has been put, in the bytes of a file: one byte a character where all of them are Latin-1, UTF-8
    // otherwise, so that a path in any script survives. The reader tells the two apart.
    std::string file_bytes() const;

private:
    void put_line(const std::string& item) { text_ += item + "\r\n"; }

    std::string text_;
};

// Text from a file, as UTF-8: kept where it is valid UTF-8, else read as Latin-1.
std::string from_file_bytes(const std::string& bytes);

}   // namespace vorn
