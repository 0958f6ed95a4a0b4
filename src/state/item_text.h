// The text format of practice, range and results files: one item per line, each line ended by CR LF; flags
// #TRUE# and #FALSE#, whole numbers in decimal, texts between double quotes without escapes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "state/numbers.h"

namespace vorn {

// Reads the items of a file one by one. `take` fails if no item is left or the item isn't a valid value of
// the argument's type. It then returns false and leaves the argument unchanged. Outside quotes an item ends
// at a comma or a line break (CR LF, CR or LF). Spaces and tabs around an item are dropped.
class item_reader {
public:
    explicit item_reader(std::string text) : text_(std::move(text)) {}

    bool take(std::string&);
    bool take(bool&);
    bool take(int16&);
    bool take(std::int32_t&);
    template <std::size_t N>
    bool take(padded<N>& field)
    {
        std::string text;
        if (!take(text)) return false;
        field = text;
        return true;
    }

private:
    bool next_item(std::string_view& item);

    std::string text_;
    std::size_t place_ = 0;
};

// Builds the text of a file item by item. Double quotes in texts become apostrophes, and line breaks become
// spaces, since the format has no escapes.
class item_writer {
public:
    void put(const std::string& text);
    void put(const char* text) { put(std::string(text)); }   // otherwise a pointer would be taken for a bool
    template <std::size_t N>
    void put(const padded<N>& text)
    {
        put(text.text());
    }
    void put(bool value) { put_line(value ? "#TRUE#" : "#FALSE#"); }
    void put(int number) { put_line(std::to_string(number)); }

    // The file as bytes: in Latin-1 if it can encode all characters and the reader wouldn't misread any line
    // as UTF-8, otherwise in UTF-8.
    std::string file_bytes() const;

private:
    void put_line(const std::string& item) { text_ += item + "\r\n"; }

    std::string text_;
};

// Converts text from a file to UTF-8: valid UTF-8 is unchanged, anything else is read as Latin-1.
std::string from_file_bytes(const std::string& bytes);

}   // namespace vorn
