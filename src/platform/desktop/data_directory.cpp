#include "platform/desktop/data_directory.h"

#include <QFileInfo>
#include <fstream>
#include <map>
#include <system_error>

#include "platform/files.h"

namespace vorn {

namespace fs = std::filesystem;

static bool can_write(const fs::path& folder)
{
    return QFileInfo(QString::fromStdString(to_utf8(folder))).isWritable();
}

// Of each file of a copy, when the installed one that it was made from had last been changed. A copy still
// has that time as its own unless the user has put something else in its place.
using copied_times = std::map<std::string, long long>;

static constexpr const char* times_file = ".copied";

static copied_times read_times(const fs::path& folder)
{
    copied_times times;
    std::ifstream file(folder / times_file);
    std::string name;
    for (long long time = 0; file >> time && file.get() && std::getline(file, name);) times[name] = time;
    return times;
}

static void write_times(const fs::path& folder, const copied_times& times)
{
    std::ofstream file(folder / times_file);
    for (const auto& [name, time] : times) file << time << ' ' << name << '\n';
}

// Nanoseconds from some fixed moment; 0 for what isn't there.
static long long time_of(const fs::path& file)
{
    std::error_code failed;
    const fs::file_time_type time = fs::last_write_time(file, failed);
    return failed ? 0 : static_cast<long long>(time.time_since_epoch().count());
}

// By way of a file of another name, so that what has the right name is whole.
static bool copy_whole(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    fs::path part = to;
    part += ".part";
    fs::create_directories(to.parent_path(), failed);
    if (!fs::copy_file(from, part, fs::copy_options::overwrite_existing, failed)) {
        fs::remove(part, failed);
        return false;
    }
    // Installed files may be for reading alone; these are the user's.
    fs::permissions(part, fs::perms::owner_write, fs::perm_options::add, failed);
    fs::last_write_time(part, fs::last_write_time(from, failed), failed);
    fs::rename(part, to, failed);
    return !failed;
}

// A range is not: the user may have made one of his own on the same picture, and its targets would then stand
// in other country.
static bool is_renewed(const std::string& name)
{
    const std::string ending = name_ending(name);
    return ending != ".arf" && ending != ".vrp" && ending != ".trp";
}

static bool lacks(const fs::path& installed, const fs::path& own, const std::string& name,
                  const copied_times& times)
{
    std::error_code failed;
    if (!fs::exists(own, failed)) return true;
    const auto copied = times.find(name);
    const bool untouched = copied != times.end() && time_of(own) == copied->second;
    return untouched && is_renewed(name) && time_of(installed) != copied->second;
}

bool fill_directory(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    bool whole = true;
    copied_times times = read_times(to);
    const copied_times before = times;
    for (fs::recursive_directory_iterator i(from, failed), end; !failed && i != end; i.increment(failed)) {
        if (!i->is_regular_file(failed)) continue;
        const fs::path relative = i->path().lexically_relative(from);
        const std::string name = to_utf8(relative);
        if (!lacks(i->path(), to / relative, name, times)) continue;
        if (copy_whole(i->path(), to / relative))
            times[name] = time_of(i->path());
        else
            whole = false;
    }
    if (times != before) write_times(to, times);
    return whole && !failed;
}

fs::path data_directory(const fs::path& installed, const fs::path& own)
{
    if (own.empty() || can_write(installed / "ranges")) return installed;
    // What the user has saved is in his own copy: once there is one it is used, whole or not.
    const bool begun = can_write(own / "ranges");
    return fill_directory(installed / "ranges", own / "ranges") || begun ? own : installed;
}

}   // namespace vorn
