#include "dovsys/comutil.h"
#include "dovsys/dirutil.h"
#include "dovsys/internal.h"

#include <algorithm>
#include <climits>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A path with the system's own separators; without text when it is null or longer than the system takes.
struct native_path {
    explicit native_path(const char *path)
    {
        const std::string_view given(path != nullptr ? path : "");
        if (given.size() < text.size())
            std::replace_copy(given.begin(), given.end(), text.begin(), '\\', '/');
    }
    std::array<char, PATH_MAX> text{};
};

bool has_type(const char *path, unsigned type)
{
    struct stat status;
    return stat(native_path(path).text.data(), &status) == 0 && (status.st_mode & S_IFMT) == type;
}

// By the rules of the other system: *.* is everything, and *.c is not. A star at the end may stand for nothing, and so
// may a period before it when the name has none there.
bool mask_matches(std::string_view pattern, const char *name)
{
    listing_name mask{};
    if (pattern.size() >= mask.size())
        return false;
    pattern.copy(mask.data(), pattern.size());
    if (c_iswild(mask.data(), name) != 0)
        return true;
    const std::size_t last = pattern.find_last_not_of('*');
    if (last + 1 == pattern.size())
        return false;
    const std::string_view bare = pattern.substr(0, last + 1); // npos + 1 is 0
    return mask_matches(bare, name) || (bare.ends_with('.') && mask_matches(bare.substr(0, last), name));
}

// Of the one listing in progress.
listing_name search_pattern;

DIR *stream_of(search_handle search)
{
    return reinterpret_cast<DIR *>(search); // NOLINT(performance-no-int-to-ptr): made from one below
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
    return mkdir(native_path(path).text.data(), 0777);
}

bool is_dir_separator(char c)
{
    return c == '\\' || c == '/';
}

char dir_separator_for(std::string_view path)
{
    return path.find('\\') != path.npos && path.find('/') == path.npos ? '\\' : '/';
}

bool current_directory(listing_name &directory)
{
    return getcwd(directory.data(), directory.size() - 1) != nullptr;
}

search_handle search_first(const char * /*mask*/, const char *directory, const char *pattern, listing_name &name)
{
    DIR *stream = opendir(*directory != '\0' ? native_path(directory).text.data() : ".");
    if (stream == nullptr)
        return no_search;
    c_strncpy(search_pattern.data(), pattern, static_cast<int>(search_pattern.size()));
    const auto search = reinterpret_cast<search_handle>(stream);
    if (search_next(search, name))
        return search;
    search_close(search);
    return no_search;
}

bool search_next(search_handle search, listing_name &name)
{
    while (const dirent *entry = readdir(stream_of(search))) {
        if (mask_matches(search_pattern.data(), entry->d_name)) {
            c_strncpy(name.data(), entry->d_name, static_cast<int>(name.size()));
            return true;
        }
    }
    return false;
}

void search_close(search_handle search)
{
    closedir(stream_of(search));
}
