#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace vorn {

namespace fs = std::filesystem;

static constexpr std::uintmax_t largest_text_file = 4'000'000;

fs::path from_utf8(const std::string& s)
{
    return fs::path(std::u8string(s.begin(), s.end()));
}

std::string to_utf8(const fs::path& p)
try {
    const std::u8string s = p.u8string();
    return std::string(s.begin(), s.end());
} catch (const fs::filesystem_error&) {
    return {};
}

// Whether a path begins with the name of a computer, as in \\SERVER\SHARE, and the standard library doesn't
// recognise it. The library then replaces the two separators by one and takes the path for a relative one.
static bool is_network_path(const fs::path& p)
{
    const std::string s = to_utf8(p);
    const auto separator = [&](std::size_t i) { return s[i] == '/' || s[i] == '\\'; };
    return path_separator == '\\' && !p.has_root_name() && s.size() > 2 && separator(0) && separator(1) &&
           !separator(2);
}

static fs::path root_of(const fs::path& p)
{
    return is_network_path(p) ? fs::path("//").make_preferred() : p.root_path();
}

static fs::path normal(const fs::path& p)
{
    const fs::path n = p.lexically_normal();
    return is_network_path(p) ? root_of(p) / n.relative_path() : n;
}

static fs::path absolute(const machine& m, const std::string& path)
{
    const fs::path p = from_utf8(path);
    return is_network_path(p) ? p : m.working_directory / p;
}

static bool is_there(const fs::path& p)
{
    std::error_code failed;
    return fs::exists(p, failed);
}

static std::string lower(std::string s)
{
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// The path of the entry whose name matches without regard to case; folder / name if there is none.
static fs::path entry_like(const fs::path& folder, const fs::path& name)
{
    std::error_code failed;
    const std::string wanted = lower(to_utf8(name));
    for (fs::directory_iterator i(folder, failed), end; !failed && i != end; i.increment(failed))
        if (lower(to_utf8(i->path().filename())) == wanted) return i->path();
    return folder / name;
}

std::string find_path(const machine& m, const std::string& path)
{
    const fs::path written = absolute(m, path);
    if (is_there(written)) return to_utf8(written);
    std::string parts = path;
    if (path_separator == '/') std::replace(parts.begin(), parts.end(), '\\', '/');
    const fs::path whole = absolute(m, parts);
    fs::path found = root_of(whole);
    for (const fs::path& part : whole.relative_path()) {
        const fs::path next = found / part;
        found = is_there(next) ? next : entry_like(found, part);
    }
    return to_utf8(found);
}

std::string extension(const std::string& path)
{
    return lower(to_utf8(from_utf8(path).extension()));
}

bool file_exists(const machine& m, const std::string& path)
{
    std::error_code failed;
    return fs::is_regular_file(from_utf8(find_path(m, path)), failed);
}

file_text read_file(const machine& m, const std::string& path)
{
    const fs::path file = from_utf8(find_path(m, path));
    std::error_code failed;
    if (!fs::exists(file, failed)) return {.reason = "The file does not exist."};
    if (!fs::is_regular_file(file, failed)) return {.reason = "It is not a file."};
    if (fs::file_size(file, failed) > largest_text_file || failed)
        return {.reason = "The file is too large."};
    std::ifstream in(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in.is_open() || in.bad()) return {.reason = "The file can't be read."};
    return {std::move(text), {}};
}

static bool write_whole(std::ofstream& out, const std::string& text)
{
    out << text;
    out.close();
    return static_cast<bool>(out);
}

// An unused name for a temporary file beside a file.
static fs::path temporary_name(const fs::path& file)
{
    for (int n = 0;; ++n) {
        fs::path part = file;
        part += ".part" + (n == 0 ? "" : std::to_string(n));
        std::error_code failed;
        if (fs::symlink_status(part, failed).type() == fs::file_type::not_found || failed) return part;
    }
}

enum class replaced { done, failed, not_possible };

// Writes a temporary file and renames it when it is complete, so that the old file is kept if the disk is
// full. Fails if the old file is write-protected, since a rename would replace it nevertheless. Returns
// not_possible only if no file may be created in the folder.
static replaced replace_file(const fs::path& file, const std::string& text)
{
    std::error_code failed;
    if (fs::exists(file, failed) && !std::fstream(file, std::ios::in | std::ios::out).is_open())
        return replaced::failed;
    const fs::path part = temporary_name(file);
    errno = 0;
    std::ofstream out(part, std::ios::binary | std::ios::trunc);
    if (!out.is_open())
        return errno == EACCES || errno == EPERM || errno == EROFS ? replaced::not_possible
                                                                   : replaced::failed;
    bool whole = write_whole(out, text);
    if (whole && fs::exists(file, failed))
        fs::permissions(part, fs::status(file, failed).permissions(), failed);
    if (whole) fs::rename(part, file, failed);
    whole = whole && !failed;
    if (!whole) fs::remove(part, failed);
    return whole ? replaced::done : replaced::failed;
}

// Overwrites a file in place. Writes the old text back if the new one could not be written.
static bool write_over(const fs::path& file, const std::string& old, const std::string& text)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    if (write_whole(out, text)) return true;
    out = std::ofstream(file, std::ios::binary | std::ios::trunc);
    write_whole(out, old);
    return false;
}

// A file in a folder without write permission may still be writable: it is then overwritten in place.
// A device is also written in place.
std::string write_file(const machine& m, const std::string& path, const std::string& text)
{
    constexpr const char* reason = "The file can't be written.";
    std::error_code failed;
    fs::path file = absolute(m, path);
    if (fs::is_symlink(file, failed)) file = fs::weakly_canonical(file, failed);
    if (fs::is_regular_file(file, failed) || !fs::exists(file, failed)) {
        const replaced r = replace_file(file, text);
        if (r != replaced::not_possible) return r == replaced::done ? "" : reason;
    }
    if (fs::is_fifo(file, failed)) return reason;   // opening it would block until there is a reader
    const std::optional<std::string> old = read_file(m, to_utf8(file)).text;
    if (!old && fs::is_regular_file(file, failed)) return reason;   // its old text could not be written back
    return write_over(file, old.value_or(""), text) ? "" : reason;
}

std::string delete_file(const machine& m, const std::string& path)
{
    const fs::path file = absolute(m, path);   // find_path might find another file
    std::error_code failed;
    if (!fs::exists(file, failed)) return "The file does not exist.";
    if (!fs::is_regular_file(file, failed)) return "It is not a file.";
    return fs::remove(file, failed) ? std::string() : "The file can't be deleted.";
}

bool change_directory(machine& m, const std::string& folder)
{
    if (folder.empty()) return false;
    std::error_code failed;
    const fs::path found = from_utf8(find_path(m, folder));
    if (!fs::is_directory(found, failed)) return false;
    fs::directory_iterator listed(found, failed);   // fails without permission
    if (failed) return false;
    m.working_directory = normal(found);
    if (!m.working_directory.has_filename() && m.working_directory.has_relative_path())
        m.working_directory = m.working_directory.parent_path();
    return true;
}

}   // namespace vorn
