// Style scripts of any bytes: each makes a configuration within its bounds and a picture that is valid text.
#include "varnix.h"

#include "sp/told.h"

namespace {

std::string script;

bool is_within(int value, int low, int high)
{
    return value >= low && value <= high;
}

void check(const sp_config &c)
{
    require(is_within(c.ngraphs, 0, sp_most_graphs) && is_within(c.ncurves, 0, sp_most_curves));
    require(is_within(c.nxaxes, 0, sp_most_axes) && is_within(c.nyaxes, 0, sp_most_axes));
    for (const sp_curve &curve : c.curves)
        require(is_within(curve.icolor, 0, 15) && is_within(curve.ithick, 0, 9) && is_within(curve.linetype, 0, 9) &&
                is_within(curve.type, 0, 4));
    for (int i = 0; i < c.nxaxes; ++i)
        require(c.xaxes[i].islave < c.nxaxes && c.xaxes[i].islave != i);
    for (int i = 0; i < c.nyaxes; ++i)
        require(c.yaxes[i].islave < c.nyaxes && c.yaxes[i].islave != i);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    script.assign(data, data + size);
    if (!is_tame(script))
        return 0;
    spsm_process = [](sp_context *context) { s_process_text(context, script); };
    const own_context context;
    for (int round = 0; round < 2; ++round)
        sp_configure(context);
    check(context->config);
    const std::string svg = sp_plot_svg(context);
    require(std::count(svg.begin(), svg.end(), '<') == std::count(svg.begin(), svg.end(), '>'));
    require(
        std::all_of(svg.begin(), svg.end(), [](char c) { return c == '\n' || static_cast<unsigned char>(c) >= ' '; }));
    for (const char *word : {"nan", "inf"})
        require(svg.find(std::string(" ") + word) == std::string::npos || script.find(word) != std::string::npos);
    return 0;
}
