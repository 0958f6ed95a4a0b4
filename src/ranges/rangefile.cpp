#include "ranges/rangefile.h"

#include "platform/files.h"

namespace vorn {

static constexpr const char* damaged = "It is not a whole range file.";

template <std::size_t N>
static bool take(item_reader& items, padded<N>& field)
{
    std::string text;
    if (!items.take(text)) return false;
    field = text;
    return true;
}

bool take_range_name(item_reader& items, practice_state& p)
{
    return take(items, p.rangename);
}

bool take_range_picture(item_reader& items, practice_state& p)
{
    return take(items, p.rangepicture);
}

bool take_range_type(item_reader& items, practice_state& p)
{
    return items.take(p.rangetype);
}

bool take_range_icons(item_reader& items, practice_state& p)
{
    return items.take(p.targeticon1) && items.take(p.targeticon2) && items.take(p.targeticon3);
}

bool take_range_entry(item_reader& items, int i, practice_state& p)
{
    return items.take(p.targetx[i]) && items.take(p.targety[i]) && items.take(p.targetrange[i]);
}

static bool take_entries(item_reader& items, int entries, practice_state& p)
{
    for (int i = 0; i < entries; ++i)
        if (!take_range_entry(items, i, p)) return false;
    return true;
}

std::string read_range_head(const machine& m, const std::string& file, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    item_reader items(std::move(*read.text));
    std::string picture;
    const bool whole = take_range_name(items, p) && items.take(picture) && take_range_type(items, p);
    return whole ? "" : damaged;
}

std::string read_range(const machine& m, const std::string& file, int entries, practice_state& p)
{
    file_text read = read_file(m, file);
    if (!read.text) return read.reason;
    practice_state whole = p;   // a damaged file takes nothing of the range in hand
    if (!take_range(*read.text, entries, whole)) return damaged;
    p = std::move(whole);
    return {};
}

bool take_range(const std::string& text, int entries, practice_state& p)
{
    item_reader items(text);
    return take_range_name(items, p) && take_range_picture(items, p) && take_range_type(items, p) &&
           take_range_icons(items, p) && take_entries(items, entries, p);
}

std::string range_file_bytes(const practice_state& p)
{
    item_writer items;
    items.put(p.rangename.text());
    items.put(p.rangepicture.text());
    for (const std::string& text : {p.rangetype, p.targeticon1, p.targeticon2, p.targeticon3})
        items.put(text);
    for (int i = 0; i < positions; ++i) {
        items.put(p.targetx[i]);
        items.put(p.targety[i]);
        items.put(p.targetrange[i]);
    }
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
