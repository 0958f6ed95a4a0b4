// Finds, reads, writes and deletes files; changes the working directory. A function that opens a file also
// closes it. Paths are in UTF-8; a relative path is relative to machine::working_directory.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/machine.h"

namespace vorn {

inline constexpr char path_separator = static_cast<char>(std::filesystem::path::preferred_separator);

std::filesystem::path from_utf8(const std::string& path);
// Empty for a path with an unpaired surrogate, which Windows allows in a name. The program doesn't find a
// file with such a path.
std::string to_utf8(const std::filesystem::path&);

// The absolute path of the file that a stored path names. The path is used as written if the file exists.
// Otherwise '\' also counts as a separator on systems that use '/', and names are compared without regard to
// case (A to Z only).
std::string find_path(const machine&, const std::string& path);
bool file_exists(const machine&, const std::string& path);

struct file_text {
    std::optional<std::string> text = {};
    std::string reason = {};   // why it could not be read; empty on success
};

// Reads a text file of at most 4,000,000 bytes. Refuses anything but a regular file.
file_text read_file(const machine&, const std::string& path);
// The extension of a file name in lower case, with its dot; empty if it has none.
std::string extension(const std::string& path);
// Creates or replaces a file; unlike find_path, uses the path exactly as written. Returns the reason for a
// failure, empty on success. After a failure the old file is kept, or its text is written back.
std::string write_file(const machine&, const std::string& path, const std::string& text);
// Deletes a regular file; unlike find_path, uses the path exactly as written. Returns the reason for a
// failure, empty on success.
std::string delete_file(const machine&, const std::string& path);

// Makes a folder the working directory. Returns false and changes nothing if the path is empty or the folder
// can't be listed.
bool change_directory(machine&, const std::string& folder);

}   // namespace vorn
