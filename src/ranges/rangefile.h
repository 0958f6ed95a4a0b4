// The range file (.arf): a picture of a piece of country, twenty numbered target positions on it and the
// range of each. 69 lines of item text; the three readers take as much of it as they need.
#pragma once

#include <optional>
#include <string>

#include "platform/machine.h"
#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// Entries that a practice reads, and that the range author reads: position 20 is never shot at.
inline constexpr int practice_entries = 20;
inline constexpr int all_entries = positions;

// Each reader gives the reason when it fails, empty when it didn't.

// Name and type. The path of the picture stays that of the range in hand: it belongs to the positions, which
// a head doesn't bring.
std::string read_range_head(const machine&, const std::string& file, practice_state&);
// The six head items and the first entries of the tables; all of them, or on a failure none.
std::string read_range(const machine&, const std::string& file, int entries, practice_state&);
// The same from a file's text; false when it fails.
bool take_range(const std::string& text, int entries, practice_state&);

// The items one group after another, in the file's order: an author sees what was read before a failure.
bool take_range_name(item_reader&, practice_state&);
bool take_range_picture(item_reader&, practice_state&);
bool take_range_type(item_reader&, practice_state&);
bool take_range_icons(item_reader&, practice_state&);
bool take_range_entry(item_reader&, int i, practice_state&);

// The file's bytes for the range in hand.
std::string range_file_bytes(const practice_state&);
// Writes the range in hand and makes the file the range of the practice; gives the reason when it can't.
std::string write_range(const machine&, const std::string& file, practice_state&);

// Where a stored icon text leads: below rootpath, with or without a leading separator of either kind; or,
// when nothing lies there, the full path that it may be.
std::string icon_path(const machine&, const std::string& rootpath, const std::string& stored);
// A path from a folder on, without a separator before it; nothing where it lies elsewhere.
std::optional<std::string> below_folder(const machine&, const std::string& folder, const std::string& path);
// How a chosen icon is stored: from the leading separator on when it lies inside rootpath, so that the range
// can move with its folder; the full path otherwise.
std::string stored_icon(const machine&, const std::string& rootpath, const std::string& chosen);

}   // namespace vorn
