#include "dovsys/rddir.h"
#include "dovsys/comutil.h"
#include "dovsys/internal.h"
#include "dovsys/jmalloc.h"

#include <algorithm>
#include <cstring>

namespace {

bool first_call = true;
search_handle search = no_search;
listing_name directory{};
listing_name result{};

void close_search()
{
    if (search != no_search)
        search_close(search);
    search = no_search;
}

// False when directory and name do not fit the result.
bool put_result(const listing_name &name)
{
    const std::string_view front(directory.data());
    const std::string_view back(name.data());
    if (front.size() + back.size() >= result.size())
        return false;
    front.copy(result.data(), front.size());
    result[front.size() + back.copy(result.data() + front.size(), back.size())] = '\0';
    return true;
}

// Fills the directory part for the results.
bool use_working_directory()
{
    if (!current_directory(directory))
        return false;
    const std::string_view path(directory.data());
    directory[path.size() + 1] = '\0';
    directory[path.size()] = dir_separator_for(path);
    return true;
}

// Starts the search and gives its first name.
bool start_listing(const char *mask, listing_name &name)
{
    close_search();
    if (mask == nullptr || std::strlen(mask) >= directory.size())
        return false;
    listing_name pattern;
    splitit(mask, directory.data(), pattern.data());
    search = search_first(mask, directory.data(), pattern.data(), name);
    if (search == no_search || (directory[0] == '\0' && !use_working_directory()))
        return false;
    first_call = false;
    return true;
}

} // namespace

const char *rddir_init(const char *filemask)
{
    first_call = true;
    return filemask;
}

const char *rddir(const char *filemask)
{
    listing_name name;
    bool found = first_call ? start_listing(filemask, name) : search != no_search && search_next(search, name);
    while (found && !put_result(name))
        found = search_next(search, name);
    if (!found)
        close_search();
    return found ? result.data() : nullptr;
}

void rddir_free(const char *charptrhandle)
{
    if (charptrhandle != nullptr && search == static_cast<search_handle>(*charptrhandle))
        close_search();
}

void splitit(const char *fname, char *path, char *name)
{
    const jmalloc_ptr<char> copy(c_mkstr(fname));
    const std::string_view text(copy.get());
    const auto last = std::find_if(text.rbegin(), text.rend(), is_dir_separator);
    const std::size_t split = text.size() - static_cast<std::size_t>(last - text.rbegin());
    path[text.copy(path, split)] = '\0';
    name[text.substr(split).copy(name, text.npos)] = '\0';
    c_ridedgews(path);
    c_ridedgews(name);
}

void rddir_reset()
{
    close_search();
    first_call = true;
    directory = {};
    result = {};
}
