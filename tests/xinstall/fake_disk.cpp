#include "fake_disk.h"

#include "xinstall/misc_files.h"
#include "xinstall/popmsg.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace {

struct stream {
    std::string name, text;
    std::size_t at = 0;
    bool writing = false;
    bool failed = false;
};

fake_disk *disk;
const misc_files system_files = misc_io;
std::vector<std::string> messages_without_disk;

bool fails()
{
    return ++disk->operations == disk->fail_at;
}

std::string replaced(std::string s, std::string_view from, std::string_view to)
{
    for (std::size_t i = 0; (i = s.find(from, i)) != std::string::npos; i += to.size())
        s.replace(i, from.size(), to);
    return s;
}

std::string plain_path(const std::string &path)
{
    return path.substr(0, 2) + replaced(path.substr(std::min<std::size_t>(2, path.size())), "\\\\", "\\");
}

bool has_place(const std::string &path)
{
    const std::size_t slash = path.rfind('\\');
    return slash == std::string::npos || disk->dirs.count(path.substr(0, slash));
}

stream *of(std::FILE *file)
{
    return reinterpret_cast<stream *>(file);
}

std::FILE *open_file(const char *name, const char *mode)
{
    const std::string path = plain_path(name);
    const bool writing = mode[0] == 'w';
    if (fails() || !(writing ? has_place(path) : disk->files.count(path)))
        return nullptr;
    auto *file = new stream{path, {}, 0, writing, false};
    if (writing)
        disk->files[path].clear();
    else
        file->text = replaced(disk->files[path], "\r\n", "\n");
    return reinterpret_cast<std::FILE *>(file);
}

std::size_t read_file(void *buf, std::size_t /*size*/, std::size_t n, std::FILE *file)
{
    of(file)->failed = fails();
    n = of(file)->failed ? 0 : std::min({n, of(file)->text.size() - of(file)->at, std::size_t{4096}});
    std::memcpy(buf, of(file)->text.data() + of(file)->at, n);
    of(file)->at += n;
    return n;
}

std::size_t write_file(const void *buf, std::size_t /*size*/, std::size_t n, std::FILE *file)
{
    n = fails() ? n / 2 : n;
    of(file)->text.append(static_cast<const char *>(buf), n);
    return n;
}

int close_file(std::FILE *file)
{
    const bool failed = fails();
    if (of(file)->writing && !failed)
        disk->files[of(file)->name] = replaced(of(file)->text, "\n", "\r\n");
    delete of(file);
    return failed ? EOF : 0;
}

int file_error(std::FILE *file)
{
    return of(file)->failed;
}

// What the command says between its first and last quote.
std::string quoted(const std::string &command)
{
    const std::size_t first = command.find('"') + 1;
    return plain_path(command.substr(first, command.rfind('"') - first));
}

int run_command(const char *command)
{
    const std::string line = command;
    disk->commands.push_back(line);
    if (fails())
        return 1;
    const std::string path = quoted(line);
    if (line.starts_with("del "))
        disk->files.erase(path);
    else if (line.starts_with("mkdir ") && has_place(path))
        disk->dirs.insert(path);
    else if (line.starts_with("copy ") && has_place(path) && disk->files.count(line.substr(5, line.find(" \"") - 5)))
        disk->files[path] = disk->files[line.substr(5, line.find(" \"") - 5)];
    else if (line.starts_with("\"") && disk->files.count(path))
        disk->files["ran"] = disk->files[path];
    return 0;
}

} // namespace

fake_disk::fake_disk()
{
    disk = this;
    misc_io = {open_file, read_file, write_file, file_error, close_file, run_command};
}

fake_disk::~fake_disk()
{
    disk = nullptr;
    misc_io = system_files;
}

std::vector<std::string> take_messages()
{
    return std::exchange(disk ? disk->messages : messages_without_disk, {});
}

void popmsg(const char *s)
{
    (disk ? disk->messages : messages_without_disk).emplace_back(s);
}
