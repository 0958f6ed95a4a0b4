// The range file (.arf): name and type of a range, the paths of its picture and of three target icons, twenty
// numbered target positions on the picture, and the range in metres of each. It has 69 lines of item text
// (state/item_text.h). Before position 1 it has an entry 0, where no target is placed.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/machine.h"
#include "state/item_text.h"
#include "state/practice_state.h"

namespace vorn {

// The filter of the file dialogs for range files.
inline constexpr const char* range_filter = "Range Files (*.arf)|*.arf|";
// A practice reads entries 0 to 19: position 20 never gets a target.
inline constexpr int practice_entries = 20;

// The parts of the file in their order. `entry` occurs for entry 0 and for each position.
enum class range_part { name, picture, type, icons, entry };

// Reads all parts and calls `taken` after each; `position` is the number of the entry. At the first item that
// can't be read, or when `taken` returns false, stops and returns false; keeps what was read before.
bool take_range(item_reader&, practice_state&, const std::function<bool(range_part, int position)>& taken);

// The next three functions return the reason for a failure, empty on success.

// Reads only name and type. The path of the picture is left unchanged, since it must match the positions.
std::string read_range_head(const machine&, const std::string& file, practice_state&);
// Reads what a practice needs. A failure changes nothing.
std::string read_range(const machine&, const std::string& file, practice_state&);
// Writes the open range. On success the file becomes the range of the practice.
std::string write_range(const machine&, const std::string& file, practice_state&);

// The open range as the bytes of a range file.
std::string range_file_bytes(const practice_state&);

// The path of the icon that a range file names. The stored path is taken as relative to rootpath, with or
// without a leading '/' or '\'. If there is no such file, but the stored path itself names a file, that
// file is used.
std::string icon_path(const machine&, const std::string& rootpath, const std::string& stored);
// The path relative to a folder, without a leading separator; nothing if the file isn't in the folder.
std::optional<std::string> below_folder(const machine&, const std::string& folder, const std::string& path);
// The path to store for an icon. For an icon in rootpath this is the path relative to rootpath with a leading
// separator, so that the folder can be moved; otherwise it is the full path.
std::string stored_icon(const machine&, const std::string& rootpath, const std::string& chosen);

}   // namespace vorn
