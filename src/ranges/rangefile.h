// The range file (.arf): a picture of a landscape, twenty numbered target positions on it and the
// range of each. 69 lines of item text; entry 0 has no number.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/machine.h"
#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// The filter of the dialogs that choose a range file.
inline constexpr const char* range_filter = "Range Files (*.arf)|*.arf|";
// Entries that a practice reads. Position 20 is never shot at.
inline constexpr int practice_entries = 20;

// The parts of the file in their order. `entry` occurs once for each position.
enum class range_part { name, picture, type, icons, entry };

// Reads all parts and calls `taken` after each; `position` is for entries. Stops at the first item that can't
// be read, or when `taken` returns false; keeps what was read before. True if all was read.
bool take_range(item_reader&, practice_state&,
                const std::function<bool(range_part, int position)>& taken = {});

// Each returns the reason for a failure, empty on success.

// Reads name and type only. The path of the picture is left unchanged, as it must match the positions.
std::string read_range_head(const machine&, const std::string& file, practice_state&);
// Reads what a practice needs, or on a failure nothing.
std::string read_range(const machine&, const std::string& file, practice_state&);
// Writes the open range and makes the file the range of the practice.
std::string write_range(const machine&, const std::string& file, practice_state&);

// The bytes of a file with the open range.
std::string range_file_bytes(const practice_state&);

// The file that a stored icon text names: below rootpath, with or without a leading separator of either kind.
// If there is no such file, the text is taken as a full path.
std::string icon_path(const machine&, const std::string& rootpath, const std::string& stored);
// The path relative to a folder, without a leading separator; nothing if it lies elsewhere.
std::optional<std::string> below_folder(const machine&, const std::string& folder, const std::string& path);
// The text to store for an icon: relative to rootpath with a leading separator if it lies there, so that the
// folder can be moved; otherwise the full path.
std::string stored_icon(const machine&, const std::string& rootpath, const std::string& chosen);

}   // namespace vorn
