// Pictures of plots as a person would see them: rendered by another program, pixel by pixel.
#include "told.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr int per_inch = 200;

std::string style_file;

std::string contents(const std::filesystem::path &file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class picture {
public:
    // The style script's plot, rendered.
    explicit picture(const std::string &script)
    {
        const std::string place = testing::TempDir() + "picture_test";
        style_file = place + ".style";
        std::ofstream(style_file) << script;
        spsm_process = [](sp_context *c) { s_process(c, style_file.c_str()); };
        const own_context context;
        sp_configure(context);
        EXPECT_STREQ(sp_err_get(context), " ");
        svg = sp_plot_svg(context);
        std::ofstream(place + ".svg") << svg;
        const std::string command = "rsvg-convert -d 200 -p 200 '" + place + ".svg' | pngtopnm";
        std::FILE *pipe = popen(command.c_str(), "r");
        EXPECT_EQ(std::fscanf(pipe, "P6 %d %d 255", &width, &height), 2) << "Debian packages: librsvg2-bin netpbm";
        std::fgetc(pipe);
        pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
        EXPECT_EQ(std::fread(pixels.data(), 1, pixels.size(), pipe), pixels.size());
        pclose(pipe);
    }

    // Pixels of about a colour within a rectangle of inches.
    int count(double x0, double y0, double x1, double y1, std::uint32_t color) const
    {
        const auto pixel = [](double inches) { return static_cast<int>(std::lround(inches * per_inch)); };
        int n = 0;
        for (int x = pixel(x0); x < pixel(x1); ++x)
            for (int y = pixel(y0); y < pixel(y1); ++y)
                n += at(x, y, color) ? 1 : 0;
        return n;
    }

    // How often a row of pixels changes from white to something else.
    int strokes(double x0, double x1, double y) const
    {
        int n = 0;
        for (int x = static_cast<int>(x0 * per_inch); x < static_cast<int>(x1 * per_inch); ++x)
            n +=
                at(x - 1, static_cast<int>(y * per_inch), 0xffffff) && !at(x, static_cast<int>(y * per_inch), 0xffffff);
        return n;
    }

    std::string svg;
    int width = 0;
    int height = 0;

private:
    bool at(int x, int y, std::uint32_t color) const
    {
        int distance = 0;
        for (unsigned i = 0; i < 3; ++i) {
            const auto byte = (static_cast<std::size_t>(height - 1 - y) * static_cast<std::size_t>(width) +
                               static_cast<std::size_t>(x)) *
                                  3 +
                              i;
            distance += std::abs(static_cast<int>(pixels.at(byte)) - static_cast<int>(color >> (16 - 8 * i) & 0xFFU));
        }
        return distance < 120;
    }

    std::vector<unsigned char> pixels;
};

std::string lines_of(int count, const std::string &setting)
{
    std::string script = "NUMBER_OF_CURVES=" + std::to_string(count) +
                         "\nYAXIS_1_LIMIT0=0\nYAXIS_1_LIMIT1=" + std::to_string(count + 1) + "\nX=SEQ(0,10)\n";
    for (int i = 1; i <= count; ++i) {
        const std::string n = std::to_string(i);
        script += "CURVE_" + n + "_XDATA=X\nCURVE_" + n + "_YDATA=X*0+" + n + "\nCURVE_" + n + setting +
                  std::to_string(i - 1) + "\n";
    }
    return script;
}

TEST(Picture, ShowsTheColorsThicknessesAndLineTypes)
{
    const picture colors(lines_of(16, "_COLOR="));
    const picture thick(lines_of(10, "_LINETHICKNESS="));
    const picture types(lines_of(10, "_LINETYPE="));
    // Strokes on 5.6 inches: of each type the sum of its strokes and gaps.
    constexpr double periods[] = {100, 0.12, 0.22, 0.18, 0.06, 0.24, 0.3, 0.36, 0.34, 0.4};
    constexpr int strokes[] = {1, 1, 1, 2, 1, 3, 3, 4, 2, 3};
    for (int i = 0; i < 16; ++i) {
        const double y = 1 + 4.0 * (i + 1) / 17;
        EXPECT_GT(colors.count(4.35, y - 0.01, 4.4, y + 0.01, vg_color(i)), 9) << i;
    }
    for (int i = 0; i < 10; ++i) {
        const double y = 1 + 4.0 * (i + 1) / 11;
        EXPECT_NEAR(thick.count(4.37, y - 0.1, 4.375, y + 0.1, 0), 2 + i, 1.1) << i;
        const int seen = std::max(types.strokes(1.2, 6.8, y + 0.0025), types.strokes(1.2, 6.8, y - 0.0025));
        EXPECT_NEAR(seen, strokes[i] * std::floor(5.6 / periods[i]), strokes[i] + 1) << i;
    }
}

TEST(Picture, ShowsPointsWithinTheGraph)
{
    const picture p("NUMBER_OF_CURVES=4\nXAXIS_1_LIMIT0=0\nXAXIS_1_LIMIT1=6\nYAXIS_1_LIMIT0=0\nYAXIS_1_LIMIT1=4\n"
                    "CURVE_1_TYPE=spot\nCURVE_1_COLOR=red\nCURVE_1_XDATA=SEQ(1,2,3)\nCURVE_1_YDATA=SEQ(1,1,1)\n"
                    "CURVE_1_VALIDDATA=SEQ(1,0)\n"
                    "CURVE_2_TYPE=xscat\nCURVE_2_XDATA=SEQ(1,5)\nCURVE_2_YDATA=SEQ(2,2)\nCURVE_2_SCATLEN=1\n"
                    "CURVE_3_TYPE=breakpoints\nCURVE_3_XDATA=SEQ(2.5,7)\nCURVE_3_YDATA=0\nCURVE_3_COLOR=blue\n"
                    "CURVE_4_XDATA=SEQ(-100,100)\nCURVE_4_YDATA=SEQ(-98,102)\nCURVE_4_COLOR=green");
    const auto at = [&](double x, double y, std::uint32_t color) {
        return p.count(1 + x - 0.02, 1 + y - 0.02, 1 + x + 0.02, 1 + y + 0.02, color) > 2;
    };
    EXPECT_TRUE(at(1, 1, 0xff0000) && !at(2, 1, 0xff0000) && at(3, 1, 0xff0000)); // the second is not valid
    EXPECT_TRUE(at(0.6, 2, 0) && at(1.4, 2, 0) && !at(1.6, 2, 0) && at(4.6, 2, 0));
    EXPECT_TRUE(at(2.5, 0.3, 0x0000ff) && at(2.5, 3.8, 0x0000ff));
    EXPECT_TRUE(at(0.5, 2.5, 0x008000) && at(1.8, 3.8, 0x008000));
    EXPECT_EQ(p.count(2.5, 5.02, 8, 6, 0x008000) + p.count(0, 0, 0.97, 3.3, 0x008000), 0); // nothing beyond the graph
    EXPECT_EQ(p.count(7.02, 1.5, 8, 4.5, 0x0000ff), 0);
    for (const double x : {0.5, 1.0, 1.5, 5.5}) // labels and tics, between them nothing
        EXPECT_TRUE(p.count(1 + x - 0.1, 0.84, 1 + x + 0.1, 0.95, 0) > 5 && at(x, 0.07, 0) && !at(x + 0.05, 0.07, 0))
            << x;
    EXPECT_EQ(p.count(1.1, 0.84, 1.4, 0.95, 0), 0);
}

TEST(Picture, ShowsLabelsTurned)
{
    const picture p(
        "NUMBER_OF_GRAPHS=0\nLABEL_1_STRING=\"WWWWWWWW\"\nLABEL_1_XPOS=4\nLABEL_1_YPOS=3\nLABEL_1_HEIGHT=0.2\n"
        "LABEL_1_ROTATION=90\nLABEL_1_COLOR=purple\nLABEL_60_STRING=12\nLABEL_60_XPOS=1\nLABEL_60_YPOS=1");
    EXPECT_GT(p.count(3.8, 3, 4, 5, 0x800080), 2000); // reads upward, letters lie to the left
    EXPECT_EQ(p.count(4.01, 0, 8, 6, 0x800080) + p.count(3, 0, 4.01, 2.98, 0x800080), 0);
    EXPECT_GT(p.count(1, 1, 1.2, 1.08, 0), 10);
    EXPECT_EQ(p.count(1.4, 0, 3.5, 6, 0xffffff), 420 * 1200); // no axes
}

TEST(Picture, StaysSmallAndWholeWithManyPoints)
{
    const picture p(
        "N=200000\nT=RAMP(0,0.00005,N)\nCURVE_1_XDATA=T\nCURVE_1_YDATA=SIN(T*1e5)*(1+T)\nCURVE_1_COLOR=red\n"
        "YAXIS_1_LIMIT0=-11\nYAXIS_1_LIMIT1=11");
    EXPECT_LT(p.svg.size(), 60000U);
    for (int t = 1; t < 10; ++t) { // the whole wave in each column, and nothing beyond
        const double x = 1.03 + t * 0.6;
        EXPECT_NEAR(p.count(x, 1.1, x + 0.005, 4.9, 0xff0000), 800.0 * (1 + t) / 11, 12) << t;
    }
}

TEST(Picture, ExamplesOfTheGuideHaveNoFaults)
{
    const std::filesystem::path guide = PLOT_GUIDE;
    const std::string told = contents(guide);
    int examples = 0;
    for (const auto &entry : std::filesystem::directory_iterator(guide.parent_path() / "plot")) {
        if (entry.path().extension() != ".style")
            continue;
        ++examples;
        const picture p(contents(entry.path()));
        EXPECT_GT(p.count(1.2, 0.9, 6, 1.3, 0), 100) << entry.path();
        EXPECT_NE(told.find(entry.path().filename().string()), std::string::npos) << entry.path();
    }
    EXPECT_GT(examples, 3);
    for (const auto fields : {sp_page_fields(), sp_axis_fields(), sp_curve_fields(), sp_label_fields()})
        for (const sp_field &field : fields)
            EXPECT_TRUE(field.word == nullptr || told.find(field.word) != std::string::npos) << field.word;
}

} // namespace
