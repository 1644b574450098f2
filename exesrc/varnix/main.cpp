// The console tool: evaluates formulas and scripts.
//
//     varnix [--json] [-e FORMULA]... [FILE...]
//     varnix [--json] --config SCRIPT | --tics
//     varnix --plot SCRIPT -o OUT.svg
//     varnix --functions
//
// Without formulas and files, standard input: on a terminal with a prompt, else line by line. With --json, each line is
// answered by one line of JSON and nothing else is printed on standard output; errors are answers there.
//
// --functions prints all built-in functions as a table, which the guide contains. --config prints the plot
// configuration that a style script makes, --plot draws it; --tics answers lines of two limits and a number of labels
// with the tics of such axes.
//
// Exit status: 0; 1 when a line failed, a file could not be read or the answers could not be written; 2 for bad usage.

#include "console.h"
#include "plotting.h"
#include "session.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

namespace {

constexpr const char *usage = "usage: varnix [--json] [-e FORMULA]... [FILE...]\n"
                              "       varnix [--json] --config SCRIPT\n"
                              "       varnix [--json] --tics\n"
                              "       varnix --plot SCRIPT -o OUT.svg\n"
                              "       varnix --functions\n";

struct options {
    bool json = false;
    bool help = false;
    std::vector<std::string> formulas;
    std::vector<std::string> files;
    std::optional<std::string> config;
    std::optional<std::string> plot;
    std::optional<std::string> picture;
    bool tics = false;
    bool functions = false;

    bool are_of_plots() const { return config || plot || tics; }
    bool are_consistent() const
    {
        return config.has_value() + plot.has_value() + tics + functions + !(formulas.empty() && files.empty()) <= 1 &&
               plot.has_value() == picture.has_value() && !(json && (plot || functions));
    }
};

// Nothing for bad usage.
std::optional<options> options_of(int argc, char **argv)
{
    options o;
    bool names_only = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (names_only || arg.empty() || arg[0] != '-')
            o.files.push_back(arg);
        else if (arg == "--")
            names_only = true;
        else if (arg == "--json")
            o.json = true;
        else if (arg == "--help")
            o.help = true;
        else if (arg == "-e" && i + 1 < argc)
            o.formulas.emplace_back(argv[++i]);
        else if (arg == "--config" && i + 1 < argc)
            o.config = argv[++i];
        else if (arg == "--plot" && i + 1 < argc)
            o.plot = argv[++i];
        else if (arg == "-o" && i + 1 < argc)
            o.picture = argv[++i];
        else if (arg == "--tics")
            o.tics = true;
        else if (arg == "--functions")
            o.functions = true;
        else
            return std::nullopt;
    }
    return o.are_consistent() ? std::optional(o) : std::nullopt;
}

class runner {
public:
    explicit runner(bool as_json) : json(as_json), flushed(!is_regular_file(stdin)) {}

    void line(const std::string &text, const std::string &where, int number)
    {
        if (json) {
            const std::string answer = work.json_answer(text) + '\n';
            std::fwrite(answer.data(), 1, answer.size(), stdout);
        } else {
            work.text_line(text, where, number);
        }
        if (flushed)
            std::fflush(stdout);
    }

    void lines(std::FILE *stream, const std::string &where)
    {
        std::string text;
        for (int number = 1; !work.ended() && read_line(stream, text); ++number)
            line(text, where, number);
    }

    void prompt()
    {
        std::puts("Formulas, or NAME = FORMULA. :help tells more, :quit ends.");
        std::string text;
        for (int number = 1; !work.ended() && ask_line("varnix> ", text); ++number)
            line(text, "line ", number);
    }

    void file(const std::string &name)
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(std::fopen(name.c_str(), "rb"), std::fclose);
        if (stream)
            lines(stream.get(), name + ", line ");
        if (!stream || std::ferror(stream.get()) != 0) {
            std::fprintf(stderr, "varnix: %s: %s\n", name.c_str(), std::strerror(errno));
            unread = true;
        }
    }

    bool ended() const { return work.ended(); }
    bool failed() const { return unread || (!json && work.failed()); }

private:
    session work;
    bool json;
    bool flushed;
    bool unread = false;
};

bool is_written()
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return true;
    std::fprintf(stderr, "varnix: standard output: %s\n", std::strerror(errno));
    return false;
}

bool list_functions()
{
    std::puts("| function | what it gives | example | result |\n|---|---|---|---|");
    for (const sp_function_row &row : sp_function_table()) {
        const std::string_view help = row.help;
        const std::size_t blanks = help.find("  ");
        std::printf("| `%.*s` | %s | `%s` | `%s` |\n", static_cast<int>(blanks), row.help, row.help + blanks + 2,
                    row.example, row.gives);
    }
    return is_written();
}

bool run_plots(const options &o)
{
    const int status = o.config ? print_config(*o.config, o.json)
                       : o.plot ? write_plot(*o.plot, *o.picture)
                                : print_tics(o.json);
    return is_written() && status == 0;
}

bool run(const options &o)
{
    const bool reads_input = o.formulas.empty() && o.files.empty();
    const bool asks = reads_input && !o.json && is_terminal(stdin) && is_terminal(stdout);
    if (!asks)
        make_binary(stdin);
    if (o.json)
        make_binary(stdout);
    if (o.are_of_plots())
        return run_plots(o);
    runner r(o.json);
    for (std::size_t i = 0; i < o.formulas.size() && !r.ended(); ++i)
        r.line(o.formulas[i], "formula ", static_cast<int>(i) + 1);
    for (std::size_t i = 0; i < o.files.size() && !r.ended(); ++i)
        r.file(o.files[i]);
    if (asks)
        r.prompt();
    else if (reads_input)
        r.lines(stdin, "line ");
    return is_written() && !r.failed();
}

} // namespace

int main(int argc, char **argv)
{
    const std::optional<options> o = options_of(argc, argv);
    if (!o || o->help) {
        std::fputs(usage, o ? stdout : stderr);
        return o ? 0 : 2;
    }
    return (o->functions ? list_functions() : run(*o)) ? 0 : 1;
}
