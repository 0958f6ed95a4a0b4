#include "ranges/rangefile.h"

#include "platform/files.h"

namespace vorn {

static constexpr const char* damaged = "It is not a whole range file.";

// Calls `visit` for each item of a file with this many entries, in order, and `done` after each part. Stops
// when one of them returns false.
template <class state, class visitor, class action>
static bool each_item(state& p, int entries, const visitor& visit, const action& done)
{
    int i = 0;   // number of the entry
    const auto part = [&](range_part which, auto&... items) {
        return (visit(items) && ...) && done(which, i);
    };
    bool on = part(range_part::name, p.rangename) && part(range_part::picture, p.rangepicture) &&
              part(range_part::type, p.rangetype) &&
              part(range_part::icons, p.targeticon1, p.targeticon2, p.targeticon3);
    for (; on && i < entries; ++i) on = part(range_part::entry, p.targetx[i], p.targety[i], p.targetrange[i]);
    return on;
}

static bool go_on(range_part, int)
{
    return true;
}

bool take_range(item_reader& items, practice_state& p,
                const std::function<bool(range_part, int position)>& taken)
{
    return each_item(
        p, positions, [&](auto& field) { return items.take(field); }, taken);
}

std::string read_range_head(const machine& m, const std::string& file, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    item_reader items(std::move(*read.text));
    std::string picture;
    const bool whole = items.take(p.rangename) && items.take(picture) && items.take(p.rangetype);
    return whole ? "" : damaged;
}

std::string read_range(const machine& m, const std::string& file, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    item_reader items(std::move(*read.text));
    practice_state whole = p;
    const auto take = [&](auto& field) { return items.take(field); };
    if (!each_item(whole, practice_entries, take, go_on)) return damaged;
    p = std::move(whole);
    return {};
}

std::string range_file_bytes(const practice_state& p)
{
    item_writer items;
    const auto put = [&](const auto& field) {
        items.put(field);
        return true;
    };
    each_item(p, positions, put, go_on);
    return items.file_bytes();
}

std::string write_range(const machine& m, const std::string& file, practice_state& p)
{
    std::string failed = write_file(m, file, range_file_bytes(p));
    if (failed.empty()) p.rangefile = file;
    return failed;
}

static bool is_separator(char c)
{
    return c == '/' || c == '\\';
}

std::string icon_path(const machine& m, const std::string& rootpath, const std::string& stored)
{
    const bool separated = !stored.empty() && is_separator(stored.front());
    const std::string below = rootpath + (separated ? "" : std::string(1, path_separator)) + stored;
    return file_exists(m, below) || !file_exists(m, stored) ? find_path(m, below) : find_path(m, stored);
}

std::optional<std::string> below_folder(const machine& m, const std::string& folder, const std::string& path)
{
    const std::string root = find_path(m, folder);
    const std::string file = find_path(m, path);
    const bool inside = file.size() > root.size() && file.compare(0, root.size(), root) == 0 &&
                        is_separator(file[root.size()]);
    return inside ? std::optional(file.substr(root.size() + 1)) : std::nullopt;
}

std::string stored_icon(const machine& m, const std::string& rootpath, const std::string& chosen)
{
    const auto below = below_folder(m, rootpath, chosen);
    return below ? path_separator + *below : chosen;
}

}   // namespace vorn
