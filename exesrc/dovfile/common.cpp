#include "dovfile/dovfile.h"

#include "dovsys/dovsys.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>

#ifdef _WIN32
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

namespace {

constexpr std::size_t large_part = 1 << 16;
constexpr std::chrono::milliseconds progress_step(300);

std::string output;
bool output_failed = false;

void write_output()
{
    if (std::fwrite(output.data(), 1, output.size(), stdout) != output.size())
        output_failed = true;
    output.clear();
}

template <typename T>
bool parse_whole(std::string_view text, T &value)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    T parsed{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size() || text.empty())
        return false;
    value = parsed;
    return true;
}

template <typename T>
T load(const void *from)
{
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

// The option that an argument gives, and where its value begins.
option *find_option(std::span<option> options, std::string_view given, std::string_view &value)
{
    const std::size_t equals = given.find('=');
    const std::string_view name = given.substr(2, equals == given.npos ? given.npos : equals - 2);
    value = equals == given.npos ? std::string_view() : given.substr(equals + 1);
    for (option &o : options) {
        if (o.name == name)
            return &o;
    }
    return nullptr;
}

} // namespace

bool parse_options(const command &self, arguments args, std::span<option> options, std::vector<const char *> &rest)
{
    const auto wrong = [&](const std::string &what) {
        usage_error(self, what);
        return false;
    };
    bool only_rest = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view given(args[i]);
        std::string_view value;
        if (only_rest || !given.starts_with("--")) {
            rest.push_back(args[i]);
            continue;
        }
        if (given == "--") {
            only_rest = true;
            continue;
        }
        option *o = find_option(options, given, value);
        if (o == nullptr || (!o->takes_value && value.data() != nullptr))
            return wrong("unknown option " + std::string(given));
        o->given = true;
        if (value.data() != nullptr)
            o->value = value.data();
        else if (o->takes_value && ++i == args.size())
            return wrong(std::string(given) + " needs a value");
        else if (o->takes_value)
            o->value = args[i];
    }
    return true;
}

bool parse_number(std::string_view text, double &value)
{
    return parse_whole(text, value);
}

bool parse_number(std::string_view text, std::int32_t &value)
{
    return parse_whole(text, value);
}

int usage_error(const command &self, std::string_view what)
{
    const std::string text(what);
    std::fprintf(stderr, "dovfile: %s\nusage: dovfile %s %s\n", text.c_str(), self.name, self.usage);
    return status_bad_usage;
}

int file_error(const char *file, int code)
{
    return file_error(file, "error " + std::to_string(code) + ": " + dovfileerrortext(code));
}

int file_error(const char *file, std::string_view what)
{
    const std::string text(what);
    std::fprintf(stderr, "dovfile: %s: %s\n", file, text.c_str());
    return status_bad_file;
}

void put(std::string_view text)
{
    output += text;
    if (output.size() >= large_part)
        write_output();
}

int finish(int status)
{
    write_output();
    if (std::fflush(stdout) == 0 && !output_failed)
        return status;
    std::fputs("dovfile: cannot write to standard output\n", stderr);
    return status_bad_file;
}

void show_progress(std::int64_t done, std::int64_t all)
{
    using clock = std::chrono::steady_clock;
    static const bool terminal = isatty(fileno(stderr)) != 0;
    static clock::time_point next = clock::now() + progress_step;
    static bool shown = false;
    if (!terminal || (done < all && clock::now() < next))
        return;
    if (done < all)
        std::fprintf(stderr, "\r%3d %% ",
                     static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(all)));
    else if (shown)
        std::fputs("\r       \r", stderr);
    shown = done < all;
    next = clock::now() + progress_step;
    std::fflush(stderr);
}

file_handle open_file(const char *name, const char *mode, const dov_type *&type)
{
    int code = 0;
    file_handle p(dov_open_any(name, mode, &code));
    if (p == nullptr)
        file_error(name, code);
    else
        type = dov_type_of(p->commonstuff.kw.filetype);
    return p;
}

// Where a name that is taken cannot be renamed to, it is removed first.
bool replace_file(const std::string &finished, const char *name)
{
    if (std::rename(finished.c_str(), name) == 0)
        return true;
    std::remove(name);
    return std::rename(finished.c_str(), name) == 0;
}

const char *machine_name(int machine)
{
    constexpr std::array<const char *, 6> names = {"unknown", "VAX", "MIPS", "Sun", "PC", "Alpha VMS"};
    return names[machine >= 1 && machine <= 5 ? static_cast<std::size_t>(machine) : 0];
}

void append_number(std::string &out, double value, text_style style)
{
    const std::size_t begin = out.size();
    json_number(out, value);
    if (style == text_style::plain && out[begin] == '"') {
        out.pop_back();
        out.erase(begin, 1);
    }
}

void append_field(std::string &out, const void *record, const dov_field &field, text_style style)
{
    const char *bytes = static_cast<const char *>(record) + field.offset;
    switch (field.form) {
    case dov_form::raw: {
        std::uint64_t value = 0;
        std::memcpy(&value, bytes, static_cast<std::size_t>(field.size));
        json_integer(out, static_cast<std::int64_t>(value));
        break;
    }
    case dov_form::i2:
        json_integer(out, load<std::int16_t>(bytes));
        break;
    case dov_form::i4:
        json_integer(out, load<std::int32_t>(bytes));
        break;
    case dov_form::f4:
        append_number(out, static_cast<double>(load<float>(bytes)), style);
        break;
    case dov_form::f8:
        append_number(out, load<double>(bytes), style);
        break;
    case dov_form::text: {
        const std::string_view all(bytes, static_cast<std::size_t>(field.size));
        const std::string_view text = all.substr(0, all.find('\0'));
        const std::string_view trimmed = text.substr(0, text.find_last_not_of(' ') + 1);
        if (style == text_style::json)
            json_string(out, trimmed);
        else
            out += trimmed;
        break;
    }
    }
}
