#include "plotting.h"
#include "style.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

int write_plot(const std::string &script, const std::string &file)
{
    const style plot(script);
    const bool is_well = plot.report();
    const std::string svg = sp_plot_svg(plot.context);
    std::FILE *stream = std::fopen(file.c_str(), "wb");
    const bool written = stream != nullptr && std::fwrite(svg.data(), 1, svg.size(), stream) == svg.size();
    if ((stream != nullptr && std::fclose(stream) != 0) || !written) {
        std::fprintf(stderr, "varnix: %s: %s\n", file.c_str(), std::strerror(errno));
        return 1;
    }
    return is_well ? 0 : 1;
}
