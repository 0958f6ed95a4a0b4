// Text files and paths. Every file is opened, used and closed within one operation. Paths are UTF-8;
// a relative one counts from the machine's working directory.
#pragma once

#include <optional>
#include <string>

#include "platform/machine.h"

namespace vorn {

inline constexpr char path_separator = static_cast<char>(std::filesystem::path::preferred_separator);

std::filesystem::path from_utf8(const std::string& path);
std::string to_utf8(const std::filesystem::path&);

// The file that a stored path names: as written where that exists; otherwise, where '/' separates, '\' counts
// as one too, and each part that isn't found is looked for without regard to case. Always absolute.
std::string find_path(const machine&, const std::string& path);
bool file_exists(const machine&, const std::string& path);

struct file_text {
    std::optional<std::string> text;
    std::string reason;   // why there is none
};

// Reads a whole text file, at most four million bytes, and nothing but a plain file.
file_text read_file(const machine&, const std::string& path);
// The ending of a file's name, in small letters and with its dot; empty where there is none.
std::string name_ending(const std::string& path);
// Creates or replaces a file; gives the reason when it can't, empty when it did.
std::string write_file(const machine&, const std::string& path, const std::string& text);
// Deletes a plain file, by its name exactly as written; gives the reason when it can't, empty when it did.
std::string delete_file(const machine&, const std::string& path);

// Makes a folder the working directory; false, and no change, when it can't be entered or has no name.
bool change_directory(machine&, const std::string& folder);

}   // namespace vorn
