#include "dovsys/dirutil.h"
#include "dovsys/internal.h"

#include <cerrno>
#include <cstring>
#include <direct.h>
#include <io.h>
#include <sys/stat.h>

namespace {

bool has_type(const char *path, unsigned type)
{
    struct _stat64 status;
    return path != nullptr && _stat64(path, &status) == 0 && (status.st_mode & S_IFMT) == type;
}

bool take(const _finddata_t &found, listing_name &name)
{
    const std::string_view text(found.name);
    if (text.size() >= name.size())
        return false;
    name[text.copy(name.data(), text.size())] = '\0';
    return true;
}

} // namespace

int dovsys_is_file(const char *path)
{
    return has_type(path, S_IFREG) ? 1 : 0;
}

int dovsys_is_directory(const char *path)
{
    return has_type(path, S_IFDIR) ? 1 : 0;
}

int dovsys_mkdir(const char *path)
{
    if (path == nullptr) {
        errno = EINVAL;
        return -1;
    }
    return _mkdir(path);
}

bool is_dir_separator(char c)
{
    return c == '\\';
}

char dir_separator_for(std::string_view /*path*/)
{
    return '\\';
}

bool current_directory(listing_name &directory)
{
    return _getcwd(directory.data(), static_cast<int>(directory.size()) - 1) != nullptr;
}

search_handle search_first(const char *mask, const char * /*directory*/, const char * /*pattern*/, listing_name &name)
{
    _finddata_t found;
    const search_handle search = _findfirst(mask, &found);
    if (search == no_search || take(found, name) || search_next(search, name))
        return search;
    search_close(search);
    return no_search;
}

bool search_next(search_handle search, listing_name &name)
{
    _finddata_t found;
    while (_findnext(search, &found) == 0) {
        if (take(found, name))
            return true;
    }
    return false;
}

void search_close(search_handle search)
{
    _findclose(search);
}
