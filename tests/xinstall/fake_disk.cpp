#include "fake_disk.h"
#include "text.h"

#include "xinstall/misc_files.h"
#include "xinstall/popmsg.h"

#include <algorithm>
#include <utility>

namespace {

struct stream {
    std::string name, text;
    bool writing = false, failed = false;
};

fake_disk *disk;
const misc_files system_files = misc_io;
std::vector<std::string> messages;

bool fails()
{
    return ++disk->operations == disk->fail_at;
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
    if (writing)
        disk->files[path].clear();
    return reinterpret_cast<std::FILE *>(new stream{path, replaced(disk->files[path], "\r\n", "\n"), writing});
}

std::size_t read_file(void *buf, std::size_t /*size*/, std::size_t n, std::FILE *file)
{
    of(file)->failed = fails();
    n = of(file)->failed ? 0 : of(file)->text.copy(static_cast<char *>(buf), std::min<std::size_t>(n, 4096));
    of(file)->text.erase(0, n);
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

int run_command(const char *command)
{
    const std::string line = command;
    disk->commands.push_back(line);
    if (fails())
        return 1;
    const std::size_t quote = line.find('"') + 1;
    const std::string path = plain_path(line.substr(quote, line.rfind('"') - quote));
    const std::string source = line.substr(5, quote - 7); // of a copy
    if (line.starts_with("del "))
        disk->files.erase(path);
    else if (line.starts_with("mkdir ") && has_place(path))
        disk->dirs.insert(path);
    else if (line.starts_with("copy ") && has_place(path) && disk->files.count(source))
        disk->files[path] = disk->files[source];
    else if (line.starts_with("\"") && disk->files.count(path))
        disk->files["ran"] = disk->files[path];
    return 0;
}

} // namespace

fake_disk::fake_disk()
{
    disk = this;
    messages.clear();
    misc_io = {open_file, read_file, write_file, file_error, close_file, run_command};
}

fake_disk::~fake_disk()
{
    disk = nullptr;
    misc_io = system_files;
}

std::vector<std::string> take_messages()
{
    return std::exchange(messages, {});
}

void popmsg(const char *s)
{
    messages.emplace_back(s);
}
