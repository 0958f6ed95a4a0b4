#include "platform/desktop/data_directory.h"

#include <QFileInfo>
#include <system_error>

namespace vorn {

namespace fs = std::filesystem;

static bool can_write(const fs::path& folder)
{
    return QFileInfo(QString::fromStdString(folder.string())).isWritable();
}

// By way of a file of another name, so that what has the right name is whole.
static bool copy_missing(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    if (fs::exists(to, failed)) return true;
    fs::path part = to;
    part += ".part";
    fs::create_directories(to.parent_path(), failed);
    if (!fs::copy_file(from, part, fs::copy_options::overwrite_existing, failed)) {
        fs::remove(part, failed);
        return false;
    }
    // Installed files may be for reading alone; these are the user's.
    fs::permissions(part, fs::perms::owner_write, fs::perm_options::add, failed);
    fs::rename(part, to, failed);
    return !failed;
}

bool fill_directory(const fs::path& from, const fs::path& to)
{
    std::error_code failed;
    bool whole = true;
    for (fs::recursive_directory_iterator i(from, failed), end; !failed && i != end; i.increment(failed))
        if (i->is_regular_file(failed))
            whole &= copy_missing(i->path(), to / i->path().lexically_relative(from));
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
