// A temporary program directory for a test: ranges, and the headers of their pictures and icons.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "gunnery/sight.h"
#include "state/practice_state.h"

namespace vorn {

class data_folder {
public:
    data_folder();
    ~data_folder();
    data_folder(const data_folder&) = delete;
    data_folder& operator=(const data_folder&) = delete;

    std::string program() const { return path_.string(); }
    std::string ranges() const { return (path_ / "ranges").string(); }
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
