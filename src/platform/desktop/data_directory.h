// Where the trainer works: on the installed data if the user may write there, otherwise on the user's own
// copy.
#pragma once

#include <QString>
#include <filesystem>
#include <string>

namespace vorn {

struct data_place {
    std::filesystem::path installed;   // as shipped; empty in a build tree
    std::filesystem::path used;        // contains the folder "ranges" that the trainer works on
};

// Looks for the data of a program that is in the folder `program`: in that folder (on Windows, or unpacked on
// a USB stick), in `usual`, where the data is normally installed, and in the source tree above the build
// folder. If there is none, `usual` is returned, so that the user is asked.
data_place find_data(const std::filesystem::path& program, const std::filesystem::path& usual,
                     const std::filesystem::path& own);

// The directory that contains the folder "ranges": `installed` if its ranges are writable and no installer
// keeps them, otherwise `own`, after the files missing there have been copied. Files that the user has
// changed are kept. When copying fails (full disk, no home directory), `own` is still used if it has once
// been complete, since the user's saved files are there; otherwise `installed`, which is enough for a
// practice.
std::filesystem::path data_directory(const std::filesystem::path& installed,
                                     const std::filesystem::path& own);

// Copies the files below `from` that are missing below `to`. Replaces those that have changed in `from` since
// they were copied and that the user has not changed, except ranges and their pictures. Twins of pictures
// stay where they are: they are large, and the program finds them there. False when a file could not be
// copied. An interrupted copy leaves no incomplete file under the final name.
bool fill_directory(const std::filesystem::path& from, const std::filesystem::path& to);

// The folder below `installed` that contains a file of the same name and content; empty if there is none.
QString folder_of_same_file(const std::filesystem::path& installed, const std::string& file);

}   // namespace vorn
