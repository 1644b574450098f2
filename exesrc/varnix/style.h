// A plot configuration from a style script.
#pragma once

#include "wi/sp.h"

#include <string>

class style {
public:
    explicit style(const std::string &script);
    ~style();
    style(const style &) = delete;
    style &operator=(const style &) = delete;

    // Prints on standard error why the script could not be read, or the error text. False when there was anything.
    bool report() const;

    sp_context *const context;

private:
    static void process(sp_context *context);

    std::string file;
    int read_error = 0;
};
