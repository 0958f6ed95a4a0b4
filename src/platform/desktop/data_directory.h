// Selects the data that the trainer works on: the installed data or the user's own copy of it.
#pragma once

#include <QString>
#include <filesystem>
#include <string>

namespace vorn {

struct data_place {
    std::filesystem::path installed;   // as shipped; empty if the data isn't installed
    std::filesystem::path used;        // contains the folder "ranges" that the trainer works on
};

// Finds the data of the program, whose executable is in the folder `program`. Looks in that folder (so on
// Windows and a USB stick), then in `usual`, the usual folder of installed data, then in the source tree
// above the build folder. If none has it, returns `usual`: the program finds no data there and asks the user.
data_place find_data(const std::filesystem::path& program, const std::filesystem::path& usual,
                     const std::filesystem::path& own);

// The directory that contains the folder "ranges". Returns `installed` if its ranges are writable and not
// managed by an installer. Otherwise brings `own` up to date by fill_directory, and returns `own`. Files
// that the user has changed are kept. If copying fails (full disk, no home directory), returns `own` if it
// was complete before: it then contains the user's files. Otherwise returns `installed`, which suffices for
// a practice.
std::filesystem::path data_directory(const std::filesystem::path& installed,
                                     const std::filesystem::path& own);

// Copies the files below `from` that are missing below `to`. Also replaces a copy if its original has changed
// since and the user has not changed the copy; ranges and their pictures are never replaced. Twins of
// pictures aren't copied: they are large, and the program finds them in `from`. False if a file could not be
// copied, or the list of copied files not written. An interrupted copy leaves no incomplete file under the
// final name.
bool fill_directory(const std::filesystem::path& from, const std::filesystem::path& to);

// The folder "ranges" in `installed` if it contains a file with the name and content of `file`, otherwise
// empty.
QString folder_of_same_file(const std::filesystem::path& installed, const std::string& file);

}   // namespace vorn
