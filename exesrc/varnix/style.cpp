#include "style.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

style::style(const std::string &script) : context(sp_init_context(nullptr, "varnix", nullptr)), file(script)
{
    context->spsm = this;
    spsm_process = process;
    sp_configure(context);
}

style::~style()
{
    sp_free_context(context);
}

void style::process(sp_context *context)
{
    auto *self = static_cast<style *>(context->spsm);
    errno = 0;
    if (s_process(context, self->file.c_str()) == 0)
        self->read_error = errno != 0 ? errno : EIO;
}

bool style::report() const
{
    std::fflush(stdout); // both may go to one terminal or file
    if (read_error != 0)
        std::fprintf(stderr, "varnix: %s: %s\n", file.c_str(), std::strerror(read_error));
    if (context->errstr != nullptr)
        std::fputs(context->errstr, stderr);
    return read_error == 0 && context->errstr == nullptr;
}
