#include "wi/wifilter.h"

#include "dovsys/dovsys.h"

#include <algorithm>

namespace {

// The zero byte that closes the list is the literal's own.
constexpr char default_filter[] = "DOV Files\0*.iq;*.rea;*.pks;*.spl;*.dop;*.gat;*.img;*.vec\0"
                                  "All Files (*.*)\0*.*\0";
static_assert(sizeof default_filter == 78);

std::string_view extension_of(std::string_view mask)
{
    const auto period = mask.rfind('.');
    if (period == mask.npos)
        return {};
    const std::string_view extension = mask.substr(period + 1);
    return extension.starts_with('*') ? std::string_view{} : extension;
}

} // namespace

wi_file_pattern filestringparser(std::string_view path)
{
    const auto backslash = path.rfind('\\');
    const bool only_drive = backslash == path.npos && path.rfind(':') == 1;
    const std::size_t mask_at = backslash != path.npos ? backslash + 1 : only_drive ? 2 : 0;
    const std::size_t directory_end = backslash != path.npos ? backslash : mask_at;
    const std::string_view mask = path.substr(mask_at);
    return {std::string(path.substr(0, directory_end)), std::string(mask), std::string(extension_of(mask))};
}

std::string wi_file_filter(const wi_file_pattern &pattern)
{
    std::string filter;
    if (!pattern.extension.empty()) {
        std::string upper = pattern.extension;
        std::transform(upper.begin(), upper.end(), upper.begin(), toupperx);
        filter = upper + " Files (*." + upper + ")" + '\0' + pattern.mask + '\0';
    }
    return filter.append(default_filter, sizeof default_filter);
}
