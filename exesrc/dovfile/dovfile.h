// What the subcommands of the tool share.
#pragma once

#include "fileio/fileio.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Exit status.
constexpr int status_good = 0;
constexpr int status_bad_file = 1;
constexpr int status_bad_usage = 2;

using arguments = std::span<const char *const>;

// A subcommand. Adding one means a module and a line in the table in commands.cpp.
struct command {
    const char *name;
    const char *usage; // its arguments
    const char *help;
    int (*run)(const command &self, arguments args);
};

// The program: the name of a subcommand and its arguments; gives the exit status.
int run_dovfile(arguments args);

int run_info(const command &self, arguments args);
int run_annotate(const command &self, arguments args);
int run_dump(const command &self, arguments args);
int run_create(const command &self, arguments args);
int run_set(const command &self, arguments args);
int run_unset(const command &self, arguments args);
int run_convert(const command &self, arguments args);
int run_check(const command &self, arguments args);
int run_fit(const command &self, arguments args);
int run_eval(const command &self, arguments args);

// ---- command line --------------------------------------------------------------------------------------------------

// An option, --name or --name VALUE or --name=VALUE.
struct option {
    std::string_view name;
    bool takes_value = false;
    bool given = false;
    const char *value = nullptr;
};

// Sorts the arguments into options and the rest, in order; false when one is wrong, which is then reported.
bool parse_options(const command &self, arguments args, std::span<option> options, std::vector<const char *> &rest);

// The whole text as a number; false for anything else. Points in every locale; "nan", "inf" and "-inf" are numbers.
bool parse_number(std::string_view text, double &value);
bool parse_number(std::string_view text, std::int32_t &value);

// Report on standard error and give the exit status.
int usage_error(const command &self, std::string_view what);
int file_error(const char *file, int code); // FILE: error CODE: its meaning
int file_error(const char *file, std::string_view what);

// ---- output --------------------------------------------------------------------------------------------------------

// Writes to standard output in large parts. When that fails, finish() reports it.
void put(std::string_view text);
int finish(int status); // what is left; the status, or that of a failure

// Shows on a terminal how far long work has come.
void show_progress(std::int64_t done, std::int64_t all);

// ---- files and values ----------------------------------------------------------------------------------------------

struct file_closer {
    void operator()(_dovfiletype *p) const { dovfileclose(p); }
};
using file_handle = std::unique_ptr<_dovfiletype, file_closer>;

// Opens a file of a known type, mode "R" or "U"; null when that fails, which is then reported.
file_handle open_file(const char *name, const char *mode, const dov_type *&type);

const char *machine_name(int machine); // "Sun", ...

// Puts a finished file in the place of another, which may exist; false when that fails.
bool replace_file(const std::string &finished, const char *name);

enum class text_style { plain, json };

// Values in this machine's format as text. Texts lose their padding.
void append_number(std::string &out, double value, text_style style);
void append_field(std::string &out, const void *record, const dov_field &field, text_style style);
