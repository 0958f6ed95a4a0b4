// A temporary program directory for a test: ranges, and the headers of their pictures and icons. Its path has
// blanks and letters of two alphabets, as that of a user may have.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "gunnery/sight.h"
#include "platform/files.h"
#include "state/practice_state.h"

namespace vorn {

// A path with the separators of the system.
std::string native(const std::string& path);

class data_folder {
public:
    data_folder();
    ~data_folder();
    data_folder(const data_folder&) = delete;
    data_folder& operator=(const data_folder&) = delete;

    std::string program() const { return to_utf8(path_); }
    std::string ranges() const { return to_utf8(path_ / "ranges"); }
    std::string path(const std::string& name) const { return native(ranges() + '/' + name); }
    void put(const std::string& name, const std::string& bytes) const;   // a file below "ranges"
    std::string get(const std::string& name) const;
    void remove(const std::string& name) const;
    void put_range(const std::string& name, const practice_state& range) const;

private:
    std::filesystem::path path_;
};

// A range whose 20 positions are at one place, so that the lay is the same for all, at 600, 700 ... 2500
// metres. With the sight as loaded, the place is a little to the right of and below the end of a lay.
practice_state plain_range(sight_kind);
// The bytes of a file; none if it can't be read.
std::string bytes_of(const std::filesystem::path&);
// The first lines of the text of a file.
std::string first_lines(const std::string& text, int n);
// The header of a PNG file of this many pixels, which is all that the headless machine reads of a picture.
std::string picture_head(unsigned width, unsigned height);

}   // namespace vorn
