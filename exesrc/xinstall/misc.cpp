#include "misc.h"

#include "misc_files.h"
#include "popmsg.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t progname_limit = 40;
constexpr std::size_t edit_limit = 100000; // files and results are below it
constexpr std::size_t joined_limit = 500;
constexpr int word_limit = 2;
constexpr std::size_t word_size = 200;

std::string progname;

#ifdef _WIN32
// The interpreter takes the first and the last quote off a command that starts with one, unless there is nothing but
// a harmless name between them; so a path with "&" or "(" would lose its own. It may take these. COPYCMD keeps it from
// asking, where nobody sees the question, whether a file of an earlier installation may be overwritten.
int run_command(const char *command)
{
    _putenv("COPYCMD=/Y");
    return std::system(command[0] == '"' ? ('"' + std::string(command) + '"').c_str() : command);
}
#else
constexpr auto run_command = std::system;
#endif

void say(std::string_view before, const std::string &name, std::string_view after)
{
    popmsg(std::string(before).append(name).append(after).c_str());
}

int command(std::string_view verb, const std::string &path)
{
    return misc_io.system(std::string(verb).append("\"").append(path).append("\"").c_str());
}

// Checked before any path reaches a command: a quote would end the argument early, a colon beyond the drive's names a
// stream of a file, and not every system refuses the others.
bool can_be_path(std::string_view path)
{
    for (std::size_t i = 0; i < path.size(); i++) {
        const char c = path[i];
        if (static_cast<unsigned char>(c) < ' ' || std::strchr("\"<>|?*", c) || (c == ':' && i != 1))
            return false;
    }
    return true;
}

bool can_write_to(const std::string &dir)
{
    std::FILE *probe = can_be_path(dir) ? misc_io.open((dir + "\\test.tmp").c_str(), "w") : nullptr;
    if (probe)
        misc_io.close(probe);
    return probe != nullptr;
}

void replace_all(const std::string &file, const char *from, const std::string &to)
{
    while (chstr(file.c_str(), from, to.c_str())) {
    }
}

// Reads at most `edit_limit` bytes; false when the file could not be read to its end or to the limit.
bool read_text(std::FILE *file, char *buf, std::size_t &n)
{
    n = 0;
    while (n < edit_limit) {
        const std::size_t got = misc_io.read(buf + n, 1, edit_limit - n, file);
        if (got == 0)
            break;
        n += got;
    }
    return !misc_io.error(file);
}

bool write_text(std::FILE *file, std::string_view before, std::string_view to, std::string_view after)
{
    bool done = true;
    for (const std::string_view part : {before, to, after})
        done = done && misc_io.write(part.data(), 1, part.size(), file) == part.size();
    return misc_io.close(file) == 0 && done;
}

} // namespace

misc_files misc_io = {std::fopen, std::fread, std::fwrite, std::ferror, std::fclose, run_command};

void set_progname(const char *ss)
{
    progname = std::string(ss).substr(0, progname_limit);
}

int batch_install(const char *dest)
{
    std::string destdir = dest;
    if (!destdir.empty() && destdir.back() == '\\')
        destdir.pop_back();
    const std::string program_bat = progname + ".env";
    const std::string install_bat = progname + "_install.bat";
    if (!can_write_to(destdir)) {
        say("Unable to write to directory ", destdir, "!  Check permissions or if directory exists!");
        return 0;
    }
    command("del ", destdir + "\\test.tmp");

    const std::string product = destdir + '\\' + progname;
    const std::string program_batch = product + '\\' + program_bat;
    const std::string install_batch = product + '\\' + install_bat;
    command("mkdir ", product);
    command("copy " + program_bat + ' ', program_batch);
    command("copy " + install_bat + ' ', install_batch);
    for (const std::string &file : {install_batch, program_batch}) {
        replace_all(file, "default_location", destdir);
        replace_all(file, "program_name", progname);
    }
    command("", install_batch);
    command("del ", install_batch);
    return 1;
}

int chstr(const char *infile, const char *ss_from, const char *ss_to)
{
    std::FILE *file = misc_io.open(infile, "r");
    if (!file) {
        say("Unable to open file ", infile, " for reading!");
        return 0;
    }
    const auto buf = std::make_unique_for_overwrite<char[]>(edit_limit);
    std::size_t nbufi = 0;
    const bool whole = read_text(file, buf.get(), nbufi);
    misc_io.close(file);
    if (!whole) {
        say("Unable to read file ", infile, "!");
        return 0;
    }
    const std::string_view bufi(buf.get(), nbufi);
    const std::string_view from = ss_from;
    const std::string_view to = ss_to;
    if (nbufi >= edit_limit || nbufi + to.size() >= edit_limit + from.size()) {
        popmsg("Not enough space in buffer to edit!");
        return 0;
    }
    const std::size_t i = bufi.find(from);
    if (i >= nbufi)
        return 0;
    file = misc_io.open(infile, "w");
    if (!file) {
        say("Unable to open file ", infile, " for writing!");
        return 0;
    }
    if (!write_text(file, bufi.substr(0, i), to, bufi.substr(i + from.size()))) {
        say("Unable to write file ", infile, "!  It is incomplete!");
        return 0;
    }
    return 1;
}

int parse_args(char **argv, int argc, char **pargv)
{
    std::string joined;
    for (int i = 1; i <= argc && joined.size() + std::strlen(argv[i]) <= joined_limit; i++)
        joined += argv[i];

    int words = 0;
    bool quoted = false;
    bool in_word = false;
    std::size_t n = 0; // characters in the current word
    for (const char c : joined) {
        const bool blank = !quoted && (c == ' ' || c == '\t');
        if (!blank && !in_word) {
            if (words == word_limit)
                break;
            n = 0;
            pargv[words++][0] = '\0';
        }
        in_word = !blank;
        if (c == '"') {
            quoted = !quoted;
        } else if (!blank && n + 1 < word_size) {
            pargv[words - 1][n++] = c;
            pargv[words - 1][n] = '\0';
        }
    }
    return words;
}
