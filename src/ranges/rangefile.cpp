#include "ranges/rangefile.h"

#include "platform/files.h"

namespace vorn {

static constexpr const char* damaged = "It is not a whole range file.";

// The items of a part in their order. Stops when the visitor returns false.
template <class state, class visitor>
static bool each_item(state& p, range_part part, int i, const visitor& visit)
{
    const auto all = [&](auto&... items) { return (visit(items) && ...); };
    switch (part) {
        case range_part::name:
            return visit(p.rangename);
        case range_part::picture:
            return visit(p.rangepicture);
        case range_part::type:
            return visit(p.rangetype);
        case range_part::icons:
            return all(p.targeticon1, p.targeticon2, p.targeticon3);
        case range_part::entry:
            break;
    }
    return all(p.targetx[i], p.targety[i], p.targetrange[i]);
}

// Visits the parts of a file with this many entries, in their order. Stops when the visitor returns false.
template <class visitor>
static bool each_part(int entries, const visitor& visit)
{
    for (const range_part part : {range_part::name, range_part::picture, range_part::type, range_part::icons})
        if (!visit(part, 0)) return false;
    for (int i = 0; i < entries; ++i)
        if (!visit(range_part::entry, i)) return false;
    return true;
}

template <std::size_t N>
static bool take(item_reader& items, padded<N>& field)
{
    std::string text;
    if (!items.take(text)) return false;
    field = text;
    return true;
}

template <class item>
static bool take(item_reader& items, item& field)
{
    return items.take(field);
}

static bool take_part(item_reader& items, range_part part, int i, practice_state& p)
{
    return each_item(p, part, i, [&](auto& field) { return take(items, field); });
}

bool take_range(item_reader& items, practice_state& p,
                const std::function<bool(range_part, int position)>& taken)
{
    return each_part(positions, [&](range_part part, int i) {
        return take_part(items, part, i, p) && (!taken || taken(part, i));
    });
}

std::string read_range_head(const machine& m, const std::string& file, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    item_reader items(std::move(*read.text));
    std::string picture;
    const bool whole = take(items, p.rangename) && take(items, picture) && take(items, p.rangetype);
    return whole ? "" : damaged;
}

std::string read_range(const machine& m, const std::string& file, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    item_reader items(std::move(*read.text));
    practice_state whole = p;
    const auto take_into_copy = [&](range_part part, int i) { return take_part(items, part, i, whole); };
    if (!each_part(practice_entries, take_into_copy)) return damaged;
    p = std::move(whole);
    return {};
}

template <std::size_t N>
static void put(item_writer& items, const padded<N>& field)
{
    items.put(field.text());
}

template <class item>
static void put(item_writer& items, const item& field)
{
    items.put(field);
}

std::string range_file_bytes(const practice_state& p)
{
    item_writer items;
    each_part(positions, [&](range_part part, int i) {
        return each_item(p, part, i, [&](const auto& field) {
            put(items, field);
            return true;
        });
    });
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

static bool begins_with_separator(const std::string& path)
{
    return !path.empty() && is_separator(path.front());
}

std::string icon_path(const machine& m, const std::string& rootpath, const std::string& stored)
{
    const std::string below =
        begins_with_separator(stored) ? rootpath + stored : rootpath + path_separator + stored;
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
