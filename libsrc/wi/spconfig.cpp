#include "wi/spconfig.h"

#include "dovsys/dovsys.h"
#include "vgph/vgtics.h"
#include "wi/spcontext.h"
#include "wi/spfields.h"
#include "wi/spget.h"
#include "wi/spnumber.h"
#include "wi/spscript.h"
#include "wi/spvar.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>
#include <memory>
#include <utility>

namespace {

constexpr std::size_t longest_line = 180;
constexpr std::size_t longest_command = 198;

sp_pltaxis default_axis()
{
    sp_pltaxis axis = {};
    axis.f1 = 1;
    axis.icolor = 1;
    axis.islave = -1;
    axis.vis_bot = axis.vis_top = axis.tic_top = axis.tic_bot = axis.limlabs = axis.lab_bot = 1;
    return axis;
}

sp_curve default_curve(const sp_curve &before)
{
    sp_curve curve = {};
    curve.icolor = 1;
    curve.spl_xfact = curve.spl_yfact = 1;
    curve.usr_config = before.usr_config;
    curve.usr_draw = before.usr_draw;
    return curve;
}

sp_label default_label()
{
    sp_label label = {};
    label.icolor = 1;
    label.height = 0.07F;
    return label;
}

std::string variable(const char *record, int index, const char *word)
{
    return std::string(record) + "_" + s_dv(index + 1) + "_" + word;
}

void read_index(sp_context *context, const char *name, std::int32_t *target)
{
    if (s_get_int(context, name, target) != 0 && *target > std::numeric_limits<std::int32_t>::min())
        --*target;
}

void read_label(sp_context *context, const char *name, sp_value **target)
{
    if (sp_value *val = sp_var_getval(context, name); val->type != sp_null)
        *target = val;
}

void read_value(sp_context *context, const char *name, sp_value **target)
{
    sp_value *val = nullptr;
    read_label(context, name, &val);
    *target = sp_cpval(val); // null for null
}

template <auto Read, class T>
void read_into(sp_context *context, const char *name, void *target, const sp_field & /*field*/, int i)
{
    Read(context, name, static_cast<T *>(target) + i);
}

void read_text(sp_context *context, const char *name, void *target, const sp_field &field, int /*i*/)
{
    s_get_fstring(context, name, static_cast<char *>(target), field.count);
}

// In the order of the kinds. No variable sets a hook.
constexpr void (*readers[])(sp_context *context, const char *name, void *target, const sp_field &field, int i) = {
    read_into<s_get_double, double>,          read_into<s_get_float, float>,
    read_into<s_get_int, std::int32_t>,       read_into<read_index, std::int32_t>,
    read_into<s_get_yesno, std::int32_t>,     read_into<s_get_thick, std::int32_t>,
    read_into<s_get_color, std::int32_t>,     read_into<s_get_linetype, std::int32_t>,
    read_into<s_get_curvetype, std::int32_t>, read_text,
    read_into<read_value, sp_value *>,        read_into<read_label, sp_value *>,
};
static_assert(std::size(readers) == static_cast<std::size_t>(sp_field_kind::hook));

// Element i of a field from the variable that sets it.
void read_field(sp_context *context, const std::string &name, void *record, const sp_field &field, int i = 0)
{
    void *const target = static_cast<char *>(record) + field.offset;
    readers[static_cast<std::size_t>(field.kind)](context, name.c_str(), target, field, i);
}

void read_record(sp_context *context, const char *prefix, int index, void *record, std::span<const sp_field> fields)
{
    const bool is_y = *prefix == 'Y';
    for (const sp_field &field : fields)
        if (const char *word = is_y && field.yword != nullptr ? field.yword : field.word)
            read_field(context, variable(prefix, index, word), record, field);
}

void read_count(sp_context *context, const char *name, int most, std::int32_t &count)
{
    s_get_int(context, name, &count);
    count = std::clamp(count, 0, most);
}

void read_page(sp_context *context)
{
    sp_config &c = context->config;
    for (const sp_field &field : sp_page_fields())
        if (field.word != nullptr)
            read_field(context, field.word, &c, field);
    for (const sp_field &field : sp_page_fields())
        for (int i = 0; i < c.ngraphs && field.yword != nullptr; ++i)
            read_field(context, variable("GRAPH", i, field.yword), &c, field, i);
}

void read_labels(sp_context *context)
{
    for (int i = 0; i < sp_most_labels; ++i)
        if (sp_var_getval(context, variable("LABEL", i, "STRING").c_str())->type != sp_null)
            read_record(context, "LABEL", i, &context->config.labels[i], sp_label_fields());
}

constexpr double infinity = std::numeric_limits<double>::infinity();

struct data_range {
    double low = infinity;
    double high = -infinity;

    void add(double value)
    {
        if (!std::isfinite(value))
            return;
        low = std::min(low, value);
        high = std::max(high, value);
    }
    bool is_empty() const { return low > high; }
};

struct data_ranges {
    data_range x[sp_most_axes];
    data_range y[sp_most_axes];
};

bool is_axis(int index)
{
    return index >= 0 && index < sp_most_axes;
}

void gather(const sp_curve &curve, data_ranges &ranges)
{
    if (!is_axis(curve.ixaxis) || !is_axis(curve.iyaxis))
        return;
    for (double (*const extreme)(const sp_value *) : {s_min, s_max}) {
        ranges.x[curve.ixaxis].add(extreme(curve.xval));
        ranges.y[curve.iyaxis].add(extreme(curve.yval));
    }
}

void read_curves(sp_context *context, data_ranges &ranges)
{
    for (int i = 0; i < context->config.ncurves; ++i) {
        sp_curve &curve = context->config.curves[i];
        read_record(context, "CURVE", i, &curve, sp_curve_fields());
        if (curve.usr_config != nullptr)
            curve.usr_config(context, i);
        gather(curve, ranges);
    }
}

// The round values next to a value, with one digit before zeros, as 4 and 6 for 5 or 2 and 3 for 2.385.
std::pair<double, double> round_span(double value)
{
    double frac = 0;
    double mult = 0;
    int tens = 0;
    constexpr int least_tens = -300;
    if (getfm(value, &frac, &mult, &tens) != 0 || tens < least_tens)
        return {-1, 1};
    constexpr double rounding = 1e-9;
    const auto times = [=](double digit) { // as it is written, so without the errors of powers
        constexpr double largest = std::numeric_limits<double>::max();
        const std::string text = std::to_string(static_cast<int>(digit)) + "e" + std::to_string(tens);
        return std::clamp(sp_read_number(text), -largest, largest);
    };
    return {times(std::ceil(frac - rounding) - 1), times(std::floor(frac + rounding) + 1)};
}

void read_axis(sp_context *context, const char *prefix, int index, const data_range &data, sp_pltaxis &axis)
{
    if (!data.is_empty()) {
        axis.f0 = data.low;
        axis.f1 = data.high;
    }
    read_record(context, prefix, index, &axis, sp_axis_fields());
    if (axis.f0 != axis.f1)
        return;
    const auto [low, high] = round_span(axis.f0);
    const auto is_given = [&](const char *word) {
        return sp_var_getval(context, variable(prefix, index, word).c_str())->type != sp_null;
    };
    if (!is_given("LIMIT0"))
        axis.f0 = low;
    if (!is_given("LIMIT1"))
        axis.f1 = high;
}

void read_scatter_length(sp_context *context, int index)
{
    sp_config &c = context->config;
    sp_curve &curve = c.curves[index];
    const bool is_x = curve.type == sp_xscat;
    if (!is_x && curve.type != sp_yscat)
        return;
    const int number = is_x ? curve.ixaxis : curve.iyaxis;
    if (is_axis(number)) {
        const sp_pltaxis &axis = is_x ? c.xaxes[number] : c.yaxes[number];
        curve.dscat = (axis.f1 - axis.f0) / 100;
    }
    s_get_double(context, variable("CURVE", index, "SCATLEN").c_str(), &curve.dscat);
}

void check_slaves(sp_context *context, const char *name, std::span<sp_pltaxis> axes)
{
    for (sp_pltaxis &axis : axes) {
        if (axis.islave < 0)
            continue;
        std::string fault;
        if (axis.islave >= static_cast<int>(axes.size()))
            fault = std::string("Invalid slave of an ") + name + " specified.";
        else if (axes[static_cast<std::size_t>(axis.islave)].islave >= 0)
            fault = name + std::string(" cannot be slave of another slave.");
        if (fault.empty())
            continue;
        sp_err_add(context, fault.c_str());
        axis.islave = -1;
    }
}

std::span<sp_pltaxis> first_axes(sp_pltaxis *axes, int count)
{
    return {axes, static_cast<std::size_t>(count)};
}

// Only a name that stands without quotes in the script is one: a STRING becomes the name STRING.
bool is_preset(sp_context *context, const char *name)
{
    const sp_value *type = sp_var_getval(context, "GRAPH_TYPE");
    return type->type == sp_ename && c_iseqx(type->ename, name) != 0;
}

void preset_axis(sp_pltaxis &axis, int graph, int tic_top, int tic_bot, int lab_bot, int limlabs)
{
    axis.igraph = graph;
    axis.tic_top = tic_top;
    axis.tic_bot = tic_bot;
    axis.lab_top = 0;
    axis.lab_bot = lab_bot;
    axis.limlabs = limlabs;
}

void process_line(sp_context *context, std::string_view line, int number)
{
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    sp_script_line(context, line.substr(0, longest_line), number);
}

} // namespace

void (*spsm_process)(sp_context *context) = nullptr;

void sp_config_free(sp_context *context)
{
    for (sp_curve &curve : context->config.curves)
        for (sp_value **value : {&curve.xval, &curve.yval, &curve.zval, &curve.vval})
            sp_free_value(std::exchange(*value, nullptr));
}

void sp_config_default(sp_context *context)
{
    sp_config_free(context);
    sp_config &c = context->config;
    c.xsize = 8;
    c.ysize = 6;
    for (int i = 0; i < sp_most_graphs; ++i) {
        c.xorg[i] = c.yorg[i] = 1;
        c.xlen[i] = 6;
        c.ylen[i] = 4;
        c.xg0[i] = c.xg1[i] = c.yg0[i] = c.yg1[i] = 0;
    }
    c.nxaxes = c.nyaxes = c.ncurves = c.ngraphs = 1;
    std::fill(std::begin(c.xaxes), std::end(c.xaxes), default_axis());
    std::fill(std::begin(c.yaxes), std::end(c.yaxes), default_axis());
    std::transform(std::begin(c.curves), std::end(c.curves), std::begin(c.curves), default_curve);
    std::fill(std::begin(c.labels), std::end(c.labels), default_label());
}

void sp_c_ap(sp_context *context)
{
    sp_config &c = context->config;
    c.xsize = 8;
    c.ysize = 7;
    c.ngraphs = c.nxaxes = c.nyaxes = c.ncurves = 2;
    c.xorg[0] = c.xorg[1] = c.yorg[1] = 1;
    c.yorg[0] = 4.25F;
    c.xlen[0] = c.xlen[1] = 6;
    c.ylen[0] = 1.5F;
    c.ylen[1] = 3;
    preset_axis(c.xaxes[0], 0, 1, 0, 0, 1);
    preset_axis(c.xaxes[1], 1, 0, 1, 1, 0);
    c.xaxes[1].islave = 0;
    c.yaxes[0].igraph = 0;
    c.yaxes[1].igraph = 1;
    for (int i = 0; i < 2; ++i)
        c.curves[i].ixaxis = c.curves[i].iyaxis = i;
}

void sp_configure(sp_context *context)
{
    sp_var_flush(context);
    sp_err_flush(context);
    if (spsm_process != nullptr)
        spsm_process(context);
    sp_config_default(context);
    if (is_preset(context, "AMP_PHASE"))
        sp_c_ap(context);
    sp_config &c = context->config;
    read_count(context, "NUMBER_OF_GRAPHS", sp_most_graphs, c.ngraphs);
    read_count(context, "NUMBER_OF_CURVES", sp_most_curves, c.ncurves);
    read_count(context, "NUMBER_OF_XAXES", sp_most_axes, c.nxaxes);
    read_count(context, "NUMBER_OF_YAXES", sp_most_axes, c.nyaxes);
    read_page(context);
    read_labels(context);
    data_ranges ranges;
    read_curves(context, ranges);
    for (int i = 0; i < c.nxaxes; ++i)
        read_axis(context, "XAXIS", i, ranges.x[i], c.xaxes[i]);
    for (int i = 0; i < c.nyaxes; ++i)
        read_axis(context, "YAXIS", i, ranges.y[i], c.yaxes[i]);
    for (int i = 0; i < c.ncurves; ++i)
        read_scatter_length(context, i);
    check_slaves(context, "XAXIS", first_axes(c.xaxes, c.nxaxes));
    check_slaves(context, "YAXIS", first_axes(c.yaxes, c.nyaxes));
}

void s_process_text(sp_context *context, std::string_view script)
{
    for (int number = 1; !script.empty(); ++number) {
        const std::size_t end = std::min(script.find('\n'), script.size());
        process_line(context, script.substr(0, end), number);
        script.remove_prefix(std::min(end + 1, script.size()));
    }
}

int s_process(sp_context *context, const char *file)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(std::fopen(file, "rt"), std::fclose);
    if (!stream)
        return 0;
    std::string line;
    int c = std::getc(stream.get());
    for (int number = 1; c != EOF; ++number, c = std::getc(stream.get())) {
        line.clear();
        for (; c != EOF && c != '\n'; c = std::getc(stream.get()))
            if (line.size() <= longest_line) // one more for a carriage return
                line += static_cast<char>(c);
        process_line(context, line, number);
    }
    return std::ferror(stream.get()) == 0 ? 1 : 0;
}

int s_docommand(sp_context * /*context*/, const char *line)
{
    std::string text = line != nullptr ? line : "";
    if (text.size() > longest_command)
        return 0;
    char **words = c_words(text.data());
    const int count = c_listlen(words);
    c_freelist(words);
    return count;
}

std::string s_dv(int n)
{
    return std::to_string(n);
}
