#include "told.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>

namespace {

std::string style_script; // of the style manager

struct Config : testing::Test {
    Config()
    {
        spsm_process = [](sp_context *c) { s_process_text(c, style_script); };
    }
    ~Config() override { spsm_process = nullptr; }

    // Configures by the script, and tells what differs from the defaults.
    std::string changes(const std::string &script)
    {
        style_script = script;
        sp_configure(context);
        return changes_now();
    }

    std::string changes_now()
    {
        const own_context plain;
        const sp_config &c = context->config;
        const sp_config &d = plain->config;
        std::string all = difference("", &c, &d, sp_page_fields());
        for (int i = 0; i < sp_most_axes; ++i) {
            all += difference("X" + std::to_string(i), &c.xaxes[i], &d.xaxes[i], sp_axis_fields());
            all += difference("Y" + std::to_string(i), &c.yaxes[i], &d.yaxes[i], sp_axis_fields());
        }
        for (int i = 0; i < sp_most_curves; ++i)
            all += difference("C" + std::to_string(i), &c.curves[i], &d.curves[i], sp_curve_fields());
        for (int i = 0; i < sp_most_labels; ++i)
            all += difference("L" + std::to_string(i), &c.labels[i], &d.labels[i], sp_label_fields());
        return all.substr(0, all.size() - (all.empty() ? 0 : 1));
    }

    static std::string difference(const std::string &record, const void *now, const void *before,
                                  std::span<const sp_field> fields)
    {
        std::string all;
        for (const sp_field &field : fields)
            for (int i = 0;
                 field.kind != sp_field_kind::hook && i < (field.kind == sp_field_kind::text ? 1 : field.count); ++i)
                if (const std::string value = told(now, field, i); value != told(before, field, i))
                    all += record + "." + field.name + (i > 0 ? std::to_string(i) : "") + "=" + value + " ";
        return all;
    }

    static std::string told(const void *record, const sp_field &field, int i)
    {
        using kind = sp_field_kind;
        if (field.kind == kind::text)
            return static_cast<const char *>(record) + field.offset;
        if (field.kind == kind::real)
            return number(sp_field_value<double>(record, field, i));
        if (field.kind == kind::length)
            return number(static_cast<double>(sp_field_value<float>(record, field, i)));
        if (field.kind < kind::text)
            return std::to_string(sp_field_value<std::int32_t>(record, field, i));
        const auto *value = sp_field_value<const sp_value *>(record, field);
        return value != nullptr ? ::told(*value) : "none";
    }

    const own_context context;
};

using row = std::tuple<const char *, const char *>; // script, changes

TEST_F(Config, ReadsEveryVariable)
{
    for (
        const auto &[script, expected] : {
            row{"", ""},
            row{"XWINDOW_SIZE=9\nYWINDOW_SIZE=5\nXAXIS_LENGTH=4\nYAXIS_LENGTH=3\nXORIGIN=2\nYORIGIN=0.5",
                ".xsize=9 .ysize=5 .xorg=2 .yorg=0.5 .xlen=4 .ylen=3"},
            row{"NUMBER_OF_GRAPHS=2\nXORIGIN=3\nGRAPH_1_XORIGIN=2\nGRAPH_2_XLENGTH=5\nGRAPH_2_YLENGTH=6\n"
                "GRAPH_2_YORIGIN=7\nGRAPH_3_XORIGIN=9",
                ".xorg=2 .yorg1=7 .xlen1=5 .ylen1=6 .ngraphs=2"},
            row{"NUMBER_OF_GRAPHS=11\nNUMBER_OF_CURVES=100\nNUMBER_OF_XAXES=21\nNUMBER_OF_YAXES=1e300",
                ".nxaxes=20 .nyaxes=20 .ncurves=40 .ngraphs=10"},
            row{"NUMBER_OF_GRAPHS=-1\nNUMBER_OF_CURVES=#X\nNUMBER_OF_XAXES=2.5\nNUMBER_OF_YAXES=\" 3x\"",
                ".nxaxes=3 .nyaxes=3 .ncurves=0 .ngraphs=0"},
            row{"LABEL_2_STRING=\"A\"+1.5\nLABEL_2_XPOS=1\nLABEL_2_YPOS=2\nLABEL_2_HEIGHT=3\nLABEL_2_ROTATION=4\n"
                "LABEL_2_COLOR=5\nLABEL_2_LINETHICKNESS=6\nLABEL_60_STRING=7\nLABEL_61_STRING=8\nLABEL_3_XPOS=9",
                "L1.val='A1.5' L1.icolor=5 L1.ithick=6 L1.xpos=1 L1.ypos=2 L1.rot=4 L1.height=3 L59.val=7"},
            row{"CURVE_1_TYPE=SPOT\nCURVE_1_XDATA=SEQ(3,1)\nCURVE_1_YDATA=SEQ(8,4)\nCURVE_1_ZDATA=1\n"
                "CURVE_1_VALIDDATA=\"V\"\nCURVE_1_SPLTYPE=0.1\nCURVE_1_SPLXUNITS=#M\n"
                "CURVE_1_SPLYUNITS=\"1234567890123456789012345678901234567890\"\nCURVE_1_SPLINTGR=-2.5\n"
                "CURVE_1_SPLXFACT=2\nCURVE_1_SPLYFACT=\"3e1\"\nCURVE_1_SCATLEN=9",
                "X0.f0=1 X0.f1=3 Y0.f0=4 Y0.f1=8 C0.type=4 C0.xval=[3 1] C0.yval=[8 4] C0.zval=1 C0.vval='V' "
                "C0.spl_intgr=-3 C0.spl_type=0.1 C0.spl_xunits=M C0.spl_yunits=12345678901234567890123456789012345678 "
                "C0.spl_xfact=2 C0.spl_yfact=30"},
            row{"NUMBER_OF_XAXES=3\nCURVE_1_XAXIS=3\nCURVE_1_YAXIS=21\nCURVE_1_XDATA=5\nCURVE_2_COLOR=3",
                ".nxaxes=3 C0.xval=5 C0.iyaxis=20 C0.ixaxis=2"},
            row{"XAXIS_1_LIMIT0=2\nXAXIS_1_LIMIT1=3\nXAXIS_1_LABEL=1.5\nXAXIS_1_COLOR=red\nXAXIS_1_LINETHICKNESS=bold\n"
                "XAXIS_1_GRAPH=4\nXAXIS_1_BOTTOM_VISIBLE=no\nXAXIS_1_TOP_VISIBLE=0\nXAXIS_1_BOTTOM_TICS=\"\"\n"
                "XAXIS_1_TOP_TICS=SEQ(0,1)\nXAXIS_1_LIMIT_LABELS=x\nXAXIS_1_BOTTOM_TIC_LABELS=no\n"
                "XAXIS_1_TOP_TIC_LABELS=True",
                "X0.f0=2 X0.f1=3 X0.label=1.5 X0.icolor=2 X0.ithick=2 X0.igraph=3 X0.vis_bot=0 X0.vis_top=0 "
                "X0.tic_top=0 X0.tic_bot=0 X0.limlabs=0 X0.lab_top=1 X0.lab_bot=0"},
            row{"NUMBER_OF_YAXES=2\nYAXIS_2_LIMIT0=2\nYAXIS_2_LIMIT1=3\nYAXIS_2_LABEL=\"Y\"\nYAXIS_2_COLOR=5\n"
                "YAXIS_2_LINETHICKNESS=1\nYAXIS_2_GRAPH=0\nYAXIS_2_LEFT_VISIBLE=no\nYAXIS_2_RIGHT_VISIBLE=no\n"
                "YAXIS_2_LEFT_TICS=no\nYAXIS_2_RIGHT_TICS=no\nYAXIS_2_RIGHT_LIMIT_LABELS=no\n"
                "YAXIS_2_LEFT_TIC_LABELS=no\nYAXIS_2_RIGHT_TIC_LABELS=\"yes\"\nYAXIS_2_SLAVE=1\nYAXIS_2_LIMIT_LABELS=1",
                ".nyaxes=2 Y1.f0=2 Y1.f1=3 Y1.label=Y Y1.icolor=5 Y1.ithick=1 Y1.igraph=-1 Y1.islave=0 Y1.vis_bot=0 "
                "Y1.vis_top=0 Y1.tic_top=0 Y1.tic_bot=0 Y1.limlabs=0 Y1.lab_top=1 Y1.lab_bot=0"},
            row{"GRAPH_TYPE=amp_phase",
                ".ysize=7 .yorg=4.25 .ylen=1.5 .ylen1=3 .nxaxes=2 .nyaxes=2 .ncurves=2 .ngraphs=2 X0.tic_bot=0 "
                "X0.lab_bot=0 X1.igraph=1 X1.islave=0 X1.tic_top=0 X1.limlabs=0 Y1.igraph=1 C1.iyaxis=1 C1.ixaxis=1"},
            row{"GRAPH_TYPE=\"AMP_PHASE\"\nGRAPH_3_XORIGIN=1", ""},
            row{"GRAPH_TYPE=AMP_PHASE\nNUMBER_OF_GRAPHS=1\nGRAPH_1_YLENGTH=9\nXAXIS_2_SLAVE=0",
                ".ysize=7 .yorg=4.25 .ylen=9 .ylen1=3 .nxaxes=2 .nyaxes=2 .ncurves=2 X0.tic_bot=0 X0.lab_bot=0 "
                "X1.igraph=1 X1.tic_top=0 X1.limlabs=0 Y1.igraph=1 C1.iyaxis=1 C1.ixaxis=1"},
        })
        EXPECT_EQ(changes(script) + sp_err_get(context), std::string(expected) + " ") << script;
}

TEST_F(Config, KnowsWordsAndBoundsCodes)
{
    std::istringstream table( // a value and its codes as colour, thickness, line type, curve type
        "foreground 1 0 0 0 background 0 0 0 0 White 0 0 0 0 black 1 0 0 0 red 2 0 0 0 blue 3 0 0 0 "
        "green 4 0 0 0 YELLOW 5 0 0 0 purple 6 0 0 0 brown 7 0 0 0 pink 8 0 0 0 orange 9 0 0 0 "
        "cyan 10 0 0 0 magenta 11 0 0 0 turquoise 12 0 0 0 salmon 13 0 0 0 gray 14 0 0 0 normal 1 0 0 0 "
        "\"Bold\" 1 2 0 0 superbold 1 3 0 0 ultrabold 1 5 0 0 solid 1 0 0 0 dash 1 0 1 0 longdash 1 0 2 0 "
        "dotdash 1 0 3 0 dot 1 0 4 0 dotdotdash 1 0 5 0 dashdashdot 1 0 6 0 dashdashdotdot 1 0 7 0 "
        "dashlongdash 1 0 8 0 dotdashlongdash 1 0 9 0 line 1 0 0 0 xscat 1 0 0 1 yscat 1 0 0 2 "
        "breakpoints 1 0 0 3 spot 1 0 0 4 nonsense 1 0 0 0 3.5 4 4 4 4 4.4999 4 4 4 4 4.5 5 5 5 0 "
        "12 12 9 0 0 20 1 9 0 0 -1 0 0 0 0 -2 1 0 0 0 1e300 1 9 0 0 SEQ(2,9) 2 2 2 2 \"7\" 1 0 0 0");
    std::string v;
    std::array<int, 4> codes;
    while (table >> v >> codes[0] >> codes[1] >> codes[2] >> codes[3]) {
        changes("CURVE_1_COLOR=" + v + "\nCURVE_1_LINETHICKNESS=" + v + "\nCURVE_1_LINETYPE=" + v +
                "\nCURVE_1_TYPE=" + v);
        const sp_curve &c = context->config.curves[0];
        EXPECT_EQ((std::array{c.icolor, c.ithick, c.linetype, c.type}), codes) << v;
    }
    std::int32_t code = 6;
    sp_var_putval(context, "N", sp_mk_scaler(std::numeric_limits<double>::quiet_NaN()), sp_user);
    sp_var_putval(context, "E", sp_mk_error("x"), sp_user);
    EXPECT_EQ(s_get_color(context, "unknown", &code) + s_get_yesno(context, "E", &code), 1);
    EXPECT_EQ(code, 6);
    s_get_thick(context, "N", &code);
    EXPECT_EQ(code, 0);
    s_get_color(context, "N", &code);
    EXPECT_EQ(code, 1);
    char *text = c_mkstr("before");
    EXPECT_EQ(s_get_string(context, "E", &text) + s_get_string(context, "unknown", &text), 1);
    EXPECT_STREQ(text, "before");
    EXPECT_EQ(s_get_string(context, "PI", &text), 1);
    EXPECT_STREQ(text, "3.141592654");
    jfree(text);
}

TEST_F(Config, GathersRanges)
{
    using range =
        std::tuple<const char *, double, double, double>; // script, limits of Y axis 1, scatter length of curve 1
    const double huge = std::numeric_limits<double>::max();
    for (const auto &[script, f0, f1, scatter] :
         {range{"CURVE_1_YDATA=SEQ(3,-1,2)", -1, 3, 0},
          range{"NUMBER_OF_CURVES=2\nCURVE_1_YDATA=SEQ(3,-1,2)\nCURVE_2_YDATA=7.5", -1, 7.5, 0},
          range{"CURVE_1_YDATA=SEQ(3,-1)\nYAXIS_1_LIMIT0=1", 1, 3, 0}, range{"YAXIS_1_LIMIT0=5", 5, 1, 0},
          range{"CURVE_1_YDATA=SEQ(3,-1)\nYAXIS_1_LIMIT1=-4", -1, -4, 0}, range{"CURVE_1_YDATA=2.385", 2, 3, 0},
          range{"CURVE_1_YDATA=0.3", 0.2, 0.4, 0}, range{"CURVE_1_YDATA=0", -1, 1, 0},
          range{"CURVE_1_YDATA=1e-310", -1, 1, 0}, range{"CURVE_1_YDATA=1.7e308", 1e308, huge, 0},
          range{"CURVE_1_YDATA=5\nYAXIS_1_LIMIT0=0", 0, 5, 0}, range{"CURVE_1_YDATA=5\nYAXIS_1_LIMIT0=5", 5, 6, 0},
          range{"YAXIS_1_LIMIT0=4\nYAXIS_1_LIMIT1=4", 4, 4, 0},
          range{"CURVE_1_TYPE=yscat\nYAXIS_1_LIMIT1=50", 0, 50, 0.5},
          range{"CURVE_1_TYPE=xscat\nXAXIS_1_LIMIT1=-3", 0, 1, -0.03},
          range{"CURVE_1_TYPE=yscat\nCURVE_1_SCATLEN=3", 0, 1, 3},
          range{"CURVE_1_TYPE=yscat\nCURVE_1_YAXIS=20", 0, 1, 0.01}}) {
        changes(script);
        const sp_config &c = context->config;
        EXPECT_EQ((std::tuple{c.yaxes[0].f0, c.yaxes[0].f1, c.curves[0].dscat}), (std::tuple{f0, f1, scatter}))
            << script;
    }
}

TEST_F(Config, CollectsErrors)
{
    using faults = std::tuple<std::string, const char *>;
    const std::string blanks(200, ' ');
    for (const auto &[script, errors] :
         {faults{"X = 1/0", "Error (line 1): Divide By Zero Error.\n"},
          faults{"; PI = 1\n\n  PI = 2 ; x\r\n-TWOPI = 3\n",
                 "Error (line 3): Cannot redefine variable provided by program.\n"
                 "Error (line 4): Cannot redefine variable provided by program.\n"},
          faults{"#PI = 1\nPI =\nPI\n= 1/0", "Error (line 4): Divide By Zero Error.\n"},
          faults{"A = \";\" + \n" + blanks + "PI = 1\nB = 1 " + blanks + "/0\n",
                 "Error (line 1): Syntax error: Operations out of order.\n"},
          faults{"NUMBER_OF_XAXES=3\nXAXIS_1_SLAVE=3\nXAXIS_2_SLAVE=1", "XAXIS cannot be slave of another slave.\n"},
          faults{"XAXIS_1_SLAVE=1", "XAXIS cannot be slave of another slave.\n"},
          faults{"XAXIS_1_SLAVE=2\nYAXIS_1_SLAVE=1e300",
                 "Invalid slave of an XAXIS specified.\nInvalid slave of an YAXIS specified.\n"},
          faults{"NUMBER_OF_YAXES=2\nYAXIS_1_SLAVE=2\nYAXIS_2_SLAVE=1", "YAXIS cannot be slave of another slave.\n"},
          faults{"XAXIS_1_SLAVE=-1e300", " "}}) {
        changes(script);
        EXPECT_EQ(sp_err_get(context), std::string(errors)) << script;
    }
    changes("NUMBER_OF_XAXES=3\nXAXIS_1_SLAVE=3\nXAXIS_2_SLAVE=1\nX=1/0");
    EXPECT_EQ(changes_now(), ".nxaxes=3 X0.islave=2");
    EXPECT_EQ(::told(*sp_var_getval(context, "X")), "!Bad Value");
    changes("");
    EXPECT_EQ(sp_var_isvar(context, "X"), 0);
}

TEST_F(Config, IsRunFromAFileOverTheProgramsVariables)
{
    const std::string file = testing::TempDir() + "config_test.style";
    std::ofstream(file, std::ios::binary) << "CURVE_1_YDATA = DATA*2\r\nCURVE_1_COLOR = blue\n"
                                          << std::string(5000, 'x') << "=1\nX=1/0";
    sp_var_putval(context, "DATA", sp_mk_scaler(4), sp_program);
    context->config.curves[0].usr_config = [](sp_context *c, int i) { c->config.curves[i].dscat = 5; };
    context->spsm = const_cast<char *>(file.c_str());
    spsm_process = [](sp_context *c) { EXPECT_EQ(s_process(c, static_cast<const char *>(c->spsm)), 1); };
    sp_configure(context);
    EXPECT_EQ(changes_now(), "Y0.f0=7 Y0.f1=9 C0.yval=8 C0.icolor=3 C0.dscat=5");
    EXPECT_STREQ(sp_err_get(context), "Error (line 4): Divide By Zero Error.\n");
    std::remove(file.c_str());
    EXPECT_EQ(s_process(context, file.c_str()) + s_process(context, testing::TempDir().c_str()), 0);
    EXPECT_EQ(s_docommand(context, "#one \"two three\"\tfour") + s_docommand(context, std::string(199, '#').c_str()),
              3);
}

} // namespace
