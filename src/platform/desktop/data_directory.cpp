#include "platform/desktop/data_directory.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <map>
#include <regex>
#include <string>
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

static bool was_whole(const fs::path& folder)
{
    std::error_code failed;
    return fs::exists(folder / times_file, failed);
}

static copied_times read_times(const fs::path& folder)
{
    copied_times times;
    std::ifstream file(folder / times_file);
    std::string name;
    for (long long time = 0; file >> time && file.get() && std::getline(file, name);) times[name] = time;
    return times;
}

// By way of a file of another name, as all that is written here, so that what has the right name is whole;
// two programs that start at once have a name each.
static fs::path part_of(fs::path file)
{
    return file += '.' + std::to_string(QCoreApplication::applicationPid()) + ".part";
}

static bool put_in_place(const fs::path& part, const fs::path& file)
{
    std::error_code failed, ignored;
    fs::rename(part, file, failed);
    if (failed) fs::remove(part, ignored);
    return !failed;
}

static bool write_times(const fs::path& folder, const copied_times& times)
{
    const fs::path part = part_of(folder / times_file);
    std::ofstream file(part);
    for (const auto& [name, time] : times) file << time << ' ' << name << '\n';
    file.close();
    std::error_code ignored;
    if (!file) fs::remove(part, ignored);
    return file && put_in_place(part, folder / times_file);
}

// What a program that was killed has left: names as part_of makes them, and no file of the user's that ends
// so.
static void remove_old_parts(const fs::path& folder)
{
    static const std::regex left_over(R"(.*\.\d+\.part)");
    std::error_code failed, ignored;
    for (fs::recursive_directory_iterator i(folder, failed), end; !failed && i != end; i.increment(failed)) {
        const auto age = fs::file_time_type::clock::now() - i->last_write_time(ignored);
        const bool old = i->is_regular_file(ignored) && age > std::chrono::hours(24);
        if (old && std::regex_match(to_utf8(i->path().filename()), left_over)) fs::remove(i->path(), ignored);
    }
}

// Nanoseconds from some fixed moment; 0 for what isn't there.
static long long time_of(const fs::path& file)
{
    std::error_code failed;
    const fs::file_time_type time = fs::last_write_time(file, failed);
    return failed ? 0 : static_cast<long long>(time.time_since_epoch().count());
}

// Some disks keep no time more exactly than to two seconds.
static bool same_time(long long a, long long b)
{
    return std::abs(a - b) <= 2'000'000'000;
}

static bool copy_whole(const fs::path& from, const fs::path& to)
{
    std::error_code failed, ignored;
    const fs::path part = part_of(to);
    fs::create_directories(to.parent_path(), failed);
    if (!fs::copy_file(from, part, fs::copy_options::overwrite_existing, failed)) {
        fs::remove(part, ignored);
        return false;
    }
    // Installed files may be for reading alone; these are the user's.
    fs::permissions(part, fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::last_write_time(part, fs::last_write_time(from, ignored), ignored);
    return put_in_place(part, to);
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
    const bool untouched = copied != times.end() && same_time(time_of(own), copied->second);
    return untouched && is_renewed(name) && !same_time(time_of(installed), copied->second);
}

bool fill_directory(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    bool whole = true;
    copied_times times = read_times(to);
    const copied_times before = times;
    for (fs::recursive_directory_iterator i(from, failed), end; !failed && i != end; i.increment(failed)) {
        if (!i->is_regular_file(failed)) continue;
        const fs::path own = to / i->path().lexically_relative(from);
        const std::string name = to_utf8(own.lexically_relative(to));
        const bool lacking = lacks(i->path(), own, name, times);
        const bool copied = lacking && copy_whole(i->path(), own);
        whole &= copied == lacking;
        // One that an earlier start has copied and not noted has exactly this time.
        if (copied || time_of(own) == time_of(i->path())) times[name] = time_of(i->path());
    }
    whole = whole && !failed;
    // The list is there once the copy has been whole, and not before.
    const bool listed = was_whole(to);
    if (listed ? times != before : whole) whole &= write_times(to, times);
    remove_old_parts(to);
    return whole;
}

fs::path data_directory(const fs::path& installed, const fs::path& own)
{
    if (own.empty() || can_write(installed / "ranges")) return installed;
    // What the user has saved is in his own copy: once it has been whole it is used, whatever it lacks now.
    const bool begun = was_whole(own / "ranges");
    return fill_directory(installed / "ranges", own / "ranges") || begun ? own : installed;
}

}   // namespace vorn
