// Where the trainer works: on the installed data where the user may write there, otherwise on a copy of his
// own.
#pragma once

#include <filesystem>

namespace vorn {

// The directory that holds the folder "ranges": `installed` when its ranges can be written, else `own`, which
// is filled with what it lacks of the installed files. What the user has changed there stays as he left it.
// Where that fails, on a full disk or without a home, a copy that has once been whole is used all the same,
// since what he has saved is there, and else `installed`: a practice only reads.
std::filesystem::path data_directory(const std::filesystem::path& installed,
                                     const std::filesystem::path& own);

// Copies the files below a folder that are missing below another, and anew those that the user has left as
// they came and that have changed since, but for ranges and their pictures; false when one could not be
// copied. A copy cut short leaves no file of that name.
bool fill_directory(const std::filesystem::path& from, const std::filesystem::path& to);

}   // namespace vorn
