#include "platform/desktop/data_directory.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <system_error>

#include "platform/desktop/drawing/pictures.h"
#include "platform/files.h"

namespace vorn {

namespace fs = std::filesystem;

// For each copied file, the modification time of the installed file when it was copied. The copy has the same
// time, unless the user has changed it.
using copied_times = std::map<std::string, long long>;

static constexpr const char* times_file = ".copied";

// A folder with this file was written by the installer for Windows. Even a user who can write there works on
// a copy, since the installer replaces and removes its own files.
static constexpr const char* uninstaller = "uninstall.exe";

static bool was_complete(const fs::path& folder)
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

// Each file is written under a temporary name and then renamed, so that a file with the final name is
// complete. With the process id in the name, two programs started at the same time use different files.
static fs::path temporary_for(fs::path file)
{
    return file += '.' + std::to_string(QCoreApplication::applicationPid()) + ".part";
}

// Tests by creating a file: the mode of a folder doesn't show what access control lists (NTFS, network
// folders) allow.
static bool can_write(const fs::path& folder)
{
    const fs::path trial = temporary_for(folder / "writable");
    std::error_code ignored;
    const bool made = std::ofstream(trial).is_open();
    fs::remove(trial, ignored);
    return made;
}

static bool rename_to(const fs::path& temporary, const fs::path& file)
{
    std::error_code failed, ignored;
    fs::rename(temporary, file, failed);
    if (failed) fs::remove(temporary, ignored);
    return !failed;
}

static bool write_times(const fs::path& folder, const copied_times& times)
{
    const fs::path temporary = temporary_for(folder / times_file);
    std::ofstream file(temporary);
    for (const auto& [name, time] : times) file << time << ' ' << name << '\n';
    file.close();
    std::error_code ignored;
    if (!file) fs::remove(temporary, ignored);
    return file && rename_to(temporary, folder / times_file);
}

// Removes temporary files that killed programs left more than a day ago. The pattern matches only names of
// the form that temporary_for makes.
static void remove_old_temporaries(const fs::path& folder)
{
    static const std::regex temporary(R"(.*\.\d+\.part)");
    std::error_code failed, ignored;
    for (fs::recursive_directory_iterator i(folder, failed), end; !failed && i != end; i.increment(failed)) {
        const auto age = fs::file_time_type::clock::now() - i->last_write_time(ignored);
        const bool old = i->is_regular_file(ignored) && age > std::chrono::hours(24);
        if (old && std::regex_match(to_utf8(i->path().filename()), temporary)) fs::remove(i->path(), ignored);
    }
}

// Nanoseconds since the epoch of the file clock; 0 for a missing file.
static long long time_of(const fs::path& file)
{
    std::error_code failed;
    const fs::file_time_type time = fs::last_write_time(file, failed);
    return failed ? 0 : static_cast<long long>(time.time_since_epoch().count());
}

// FAT file systems store times with a resolution of two seconds.
static bool same_time(long long a, long long b)
{
    return std::abs(a - b) <= 2'000'000'000;
}

static bool copy_with_time(const fs::path& from, const fs::path& to)
{
    std::error_code failed, ignored;
    const fs::path temporary = temporary_for(to);
    fs::create_directories(to.parent_path(), failed);
    if (!fs::copy_file(from, temporary, fs::copy_options::overwrite_existing, failed)) {
        fs::remove(temporary, ignored);
        return false;
    }
    // Installed files may be read-only.
    fs::permissions(temporary, fs::perms::owner_write, fs::perm_options::add, ignored);
    fs::last_write_time(temporary, fs::last_write_time(from, ignored), ignored);
    return rename_to(temporary, to);
}

// Ranges and their pictures are never updated: the user may have made a range on the same picture, and its
// targets would no longer fit the ground.
static bool is_updated(const std::string& name)
{
    const std::string ending = extension(name);
    return ending != ".arf" && ending != ".vrp" && ending != ".trp";
}

static bool needs_copy(const fs::path& installed, const fs::path& own, const std::string& name,
                       const copied_times& times)
{
    std::error_code failed;
    if (!fs::exists(own, failed)) return true;
    const auto copied = times.find(name);
    const bool untouched = copied != times.end() && same_time(time_of(own), copied->second);
    return untouched && is_updated(name) && !same_time(time_of(installed), copied->second);
}

static bool is_twin(const fs::path& file)
{
    return to_utf8(file.stem()).ends_with(twin_mark);
}

bool fill_directory(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    bool complete = true;
    copied_times times = read_times(to);
    const copied_times before = times;
    for (fs::recursive_directory_iterator i(from, failed), end; !failed && i != end; i.increment(failed)) {
        if (!i->is_regular_file(failed) || is_twin(i->path())) continue;
        const fs::path own = to / i->path().lexically_relative(from);
        const std::string name = to_utf8(own.lexically_relative(to));
        const bool needed = needs_copy(i->path(), own, name, times);
        const bool copied = needed && copy_with_time(i->path(), own);
        complete &= copied == needed;
        // Equal times also identify a file that an interrupted start has copied but not recorded.
        if (copied || same_time(time_of(own), time_of(i->path()))) times[name] = time_of(i->path());
    }
    complete = complete && !failed;
    // No list is written until the first complete copy: the list marks the folder as complete.
    if (was_complete(to) ? times != before : complete) complete &= write_times(to, times);
    remove_old_temporaries(to);
    return complete;
}

static bool same_content(const QString& one, const QString& other)
{
    QFile a(one), b(other);
    return a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly) && a.size() == b.size() &&
           a.readAll() == b.readAll();
}

QString folder_of_same_file(const fs::path& installed, const std::string& file)
{
    if (installed.empty()) return {};
    const QString folder = QString::fromStdString(to_utf8(installed / "ranges"));
    const QString path = QString::fromStdString(file);
    return same_content(folder + '/' + QFileInfo(path).fileName(), path) ? folder : QString();
}

fs::path data_directory(const fs::path& installed, const fs::path& own)
{
    std::error_code failed;
    const bool kept = fs::exists(installed / uninstaller, failed);
    if (own.empty() || (!kept && can_write(installed / "ranges"))) return installed;
    const bool usable = was_complete(own / "ranges");
    return fill_directory(installed / "ranges", own / "ranges") || usable ? own : installed;
}

static bool has_ranges(const fs::path& folder)
{
    std::error_code failed;
    return fs::is_directory(folder / "ranges", failed);
}

data_place find_data(const fs::path& program, const fs::path& usual, const fs::path& own)
{
    for (const fs::path& installed : {program, usual})
        if (has_ranges(installed)) return {installed, data_directory(installed, own)};
    fs::path above = program;
    for (int i = 0; i <= 4; ++i, above = above.parent_path())
        if (has_ranges(above / "data")) return {{}, above / "data"};
    return {{}, usual};
}

}   // namespace vorn
