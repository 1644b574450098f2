#include "dovfile/dovfile.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

namespace {

constexpr command commands[] = {
    {"info", "[--json] FILE", "what a file is: header, type header, keywords", run_info},
    {"annotate", "FILE", "every byte range with its name, form and value", run_annotate},
    {"dump", "[--json|--csv] [--from T0] [--to T1] [--count N] FILE", "the elements, one a line", run_dump},
    {"create", "TYPE OUT [--FIELD VALUE]... [CSV]", "make a file of type iq, rea, pks, dop, spl, gat, img or vec",
     run_create},
    {"set", "FILE NAME=VALUE...", "set keywords; NAME:s=VALUE sets a string", run_set},
    {"unset", "FILE NAME...", "remove keywords", run_unset},
    {"convert", "IN OUT --machine vax|mips|sun|pc|alpha", "rewrite a file in another machine's format", run_convert},
    {"check", "FILE...", "every structural rule, one a line", run_check},
    {"fit",
     "DATA -o OUT.spl [--ncoe K] [--breaks FILE | --nbreaks N] [--ncont C] [--type T] [--xunits T] [--yunits T] "
     "[--text T]",
     "fit a spline to lines x,y; breakpoints are spread evenly, or lines \"time ncont\"", run_fit},
    {"eval", "FILE.spl [--deriv D] [X...]", "values of a spline at X, or at the numbers of standard input", run_eval},
};

int help(std::FILE *stream)
{
    std::fputs("usage: dovfile COMMAND ...\n\n", stream);
    for (const command &c : commands)
        std::fprintf(stream, "  dovfile %s %s\n      %s\n", c.name, c.usage, c.help);
    std::fputs("\nFIELDs are the type header's, as `info` shows them; elements come from CSV or standard input.\n"
               "Status: 0 good, 1 bad file, 2 bad usage.\n",
               stream);
    return stream == stdout ? status_good : status_bad_usage;
}

} // namespace

int run_dovfile(arguments args)
{
    const char *name = args.empty() ? "" : args.front();
    if (std::strcmp(name, "--help") == 0 || std::strcmp(name, "help") == 0)
        return help(stdout);
    const auto *found = std::find_if(std::begin(commands), std::end(commands),
                                     [&](const command &c) { return std::strcmp(c.name, name) == 0; });
    if (found == std::end(commands))
        return help(stderr);
    try {
        return finish(found->run(*found, args.subspan(1)));
    } catch (const std::bad_alloc &) {
        std::fputs("dovfile: error -3: out of memory\n", stderr);
        return status_bad_file;
    }
}
