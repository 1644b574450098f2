// Lines of numbers, as subcommands read them.
#pragma once

#include "dovfile/dovfile.h"

#include <algorithm>
#include <cstdio>

// Lines of numbers from a file or standard input. Blank lines and those that begin with # are skipped.
struct line_reader {
    explicit line_reader(const char *file_name) : name(file_name != nullptr ? file_name : "standard input")
    {
        file = file_name != nullptr ? std::fopen(file_name, "rb") : stdin;
        if (file == nullptr || file_name == nullptr || std::fseek(file, 0, SEEK_END) != 0)
            return;
        size = std::ftell(file);
        std::rewind(file);
    }
    line_reader(const line_reader &) = delete;
    line_reader &operator=(const line_reader &) = delete;
    ~line_reader()
    {
        if (file != nullptr && file != stdin)
            std::fclose(file);
    }

    // The numbers of the next line; none at the end, and when good is false.
    std::vector<double> next()
    {
        std::vector<double> numbers;
        while (numbers.empty() && good && read_line()) {
            if (line.starts_with('#'))
                continue;
            split(numbers);
        }
        return numbers;
    }

    const char *name;
    std::FILE *file;
    std::int64_t size = 0;
    std::int64_t at = 0;
    int number = 0;
    bool good = true;

private:
    bool read_line()
    {
        line.clear();
        for (int c = 0; (c = std::getc(file)) != EOF && c != '\n';)
            line += static_cast<char>(c);
        at += static_cast<std::int64_t>(line.size()) + 1;
        ++number;
        return !line.empty() || (std::feof(file) == 0 && std::ferror(file) == 0);
    }

    void split(std::vector<double> &numbers)
    {
        constexpr std::string_view between = ", \t\r;";
        const std::string_view text = line;
        for (std::size_t end = 0; good;) {
            const std::size_t begin = text.find_first_not_of(between, end);
            if (begin == text.npos)
                break;
            end = std::min(text.find_first_of(between, begin), text.size());
            good = parse_number(text.substr(begin, end - begin), numbers.emplace_back());
        }
    }

    std::string line;
};
