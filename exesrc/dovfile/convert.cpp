// dovfile convert: the same file in another machine's format.

#include "dovfile/dovfile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace {

constexpr std::int64_t block_bytes = 1 << 20;

int machine_of(std::string_view name)
{
    constexpr std::array<std::string_view, 5> names = {"vax", "mips", "sun", "pc", "alpha"};
    const auto found = std::find(names.begin(), names.end(), name);
    return found != names.end() ? static_cast<int>(found - names.begin()) + 1 : 0;
}

// Type header and reserved area as they are, then the elements.
int copy_contents(_dovfiletype *in, _dovfiletype *out)
{
    const _dovfile &from = in->commonstuff;
    int code = dovfileputhead(out, dov_head(in));
    if (from.rsize > 0)
        std::memcpy(out->commonstuff.rspace, from.rspace, static_cast<std::size_t>(from.rsize));
    const auto at_once = static_cast<std::int32_t>(std::max<std::int64_t>(block_bytes / from.elemsize, 1));
    std::vector<char> block;
    for (std::int32_t i = 0, n = 0; i < from.nelements && code == dov_ok; i += n) {
        n = std::min(at_once, from.nelements - i);
        block.resize(static_cast<std::size_t>(n) * static_cast<std::size_t>(from.elemsize));
        code = dovfilereadblock(in, block.data(), n);
        if (code == dov_ok)
            code = dovfilewriteblock(out, block.data(), n);
        show_progress(i + n, from.nelements);
    }
    return code;
}

} // namespace

int run_convert(const command &self, arguments args)
{
    std::array options = {option{"machine", true}};
    std::vector<const char *> files;
    if (!parse_options(self, args, options, files))
        return status_bad_usage;
    const int machine = options[0].given ? machine_of(options[0].value) : 0;
    if (files.size() != 2 || machine == 0)
        return usage_error(self, "two files and a machine, please");
    const dov_type *type = nullptr;
    file_handle in = open_file(files[0], "R", type);
    if (in == nullptr)
        return status_bad_file;
    const std::string beside = std::string(files[1]) + ".new";
    file_handle out(dov_create(*type, beside.c_str(), dov_head(in.get()), machine, in->commonstuff.rsize));
    if (out == nullptr)
        return file_error(files[1], type->state->error);
    int code = copy_contents(in.get(), out.get());
    const int closed = dovfileclose(out.release());
    in.reset(); // it may be the file that is replaced
    if (code == dov_ok)
        code = closed;
    if (code == dov_ok && !replace_file(beside, files[1]))
        code = dov_cannot_open;
    if (code == dov_ok)
        return status_good;
    std::remove(beside.c_str());
    return file_error(files[1], code);
}
