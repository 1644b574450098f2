// The console tool, run as a process.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#define popen _popen
#define pclose _pclose
constexpr const char *pipe_mode = "wb";
#else
constexpr const char *pipe_mode = "w";
#endif

namespace {

namespace fs = std::filesystem;

std::string read(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Without the carriage returns of Windows' text files.
std::string text(std::string bytes)
{
    std::erase(bytes, '\r');
    return bytes;
}

// The program lies beside the test.
struct Tool : testing::Test {
    Tool() { fs::create_directories(dir); }
    ~Tool() override { fs::remove_all(dir); }

    // The command line; on Windows its interpreter takes one pair of quotes off.
    std::string command(const std::string &arguments) const
    {
        const fs::path program = self().parent_path() / "varnix";
#ifdef _WIN32
        return "\"\"" + program.string() + ".exe\" " + arguments + "\"";
#else
        return "'" + program.string() + "' " + arguments;
#endif
    }

    // Answers on standard output and error, in the order in which they came, and the exit status.
    std::pair<std::string, int> run(const std::string &arguments, const std::string &input)
    {
        std::ofstream(dir / "in", std::ios::binary) << input;
        const int status = std::system(command(arguments + " <" + at("in") + " >" + at("out") + " 2>&1").c_str());
#ifdef _WIN32
        return {read(dir / "out"), status};
#else
        return {read(dir / "out"), WEXITSTATUS(status)};
#endif
    }

    std::string at(const char *name) const
    {
        return (dir / name).string();
    }

    static fs::path self()
    {
#ifdef _WIN32
        wchar_t name[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, name, MAX_PATH);
        return name;
#else
        return fs::read_symlink("/proc/self/exe");
#endif
    }

    const fs::path dir = "varnix_test_files";
};

TEST_F(Tool, AnswersEveryLineWithJson)
{
    using row = std::pair<std::string, std::string>;
    const std::string parser = R"({"kind":"ERROR","value":"Syntax error (parser)."})";
    const row rows[] = {
        {"1.5*3", R"({"kind":"SCALER","value":4.5})"},
        {"SEQ(1, 0.1, 1E999, -1E999, 1E999-1E999)",
         R"({"kind":"ARRAY","value":[1,0.10000000000000001,"inf","-inf","nan"]})"},
        {"RAMP(1,1,0)", R"({"kind":"ARRAY","value":[]})"},
        {"\"\xc3\xa4\\\t\x7f'\"", "{\"kind\":\"STRING\",\"value\":\"\\u00c3\\u00a4\\\\\\u0009\x7f'\"}"},
        {"#\xff", R"({"kind":"ENAME","value":"\u00ff"})"},
        {"", R"({"kind":"NULL"})"},
        {" ", R"({"kind":"NULL"})"},
        {"1\r", parser},
        {std::string("1\0", 2), parser},
        {":vars", parser},
        {"#X = 1", parser},
        {" -x_1 = 7 ; = 8", R"({"assigned":"x_1"})"},
        {"X_1", R"({"kind":"SCALER","value":7})"},
        {"- x = 7", R"({"kind":"ERROR","value":"Syntax error (in a number)."})"},
        {"1x = 7", parser},
        {"$% = 1", R"({"assigned":"$%"})"},
        {"$%", parser},
        {"Y = 1\r", parser},
        {"Y", R"({"kind":"ERROR","value":"Bad Value"})"},
        {"C = 1/0", R"({"kind":"ERROR","value":"Divide By Zero Error."})"},
        {"C = 1", R"({"kind":"ERROR","value":"Cannot redefine variable provided by program."})"},
        {"Y = ;", R"({"ignored":true})"},
        {"\"=\"", R"({"kind":"STRING","value":"="})"},
        {std::string(1000000, '(') + std::string(1000000, ')'), R"({"kind":"NULL"})"},
        {"2", R"({"kind":"SCALER","value":2})"}, // without a line feed
    };
    std::string input;
    std::string expected;
    for (const auto &[line, answer] : rows) {
        input.append(input.empty() ? "" : "\n").append(line);
        expected.append(answer).append("\n");
    }
    EXPECT_EQ(run("--json", input), (std::pair{expected, 0}));
    EXPECT_EQ(run("--json -e 1 -e 1!", ""), (std::pair{R"({"kind":"SCALER","value":1})"
                                                       "\n" +
                                                           parser + "\n",
                                                       0}));
}

TEST_F(Tool, AnswersEachLineAtOnceToAPipe)
{
    std::FILE *pipe = popen(command("--json >" + at("out")).c_str(), pipe_mode);
    std::fputs("1+1\n", pipe);
    std::fflush(pipe);
    for (int i = 0; i < 1000 && read(dir / "out").empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(read(dir / "out"), "{\"kind\":\"SCALER\",\"value\":2}\n");
    pclose(pipe);
}

TEST_F(Tool, ReadsFormulasFilesAndInputAndTellsWhatFailed)
{
    std::ofstream(dir / "a", std::ios::binary) << "X = 3\r\nX*X\r\n\r\n\t 1/0\nX\x7f\n:foo";
    const auto [out, status] = run("-e X=2 -e X+1 " + at("a") + " " + at("none") + " " + at("b"), "");
    const std::string said = text(out);
#ifndef _WIN32
    EXPECT_EQ(said.substr(0, 4), "3\n9\n");
#endif
    const std::string a = "varnix: " + at("a") + ", line ";
    for (const std::string &part : {"9\n" + a + "4: Divide By Zero Error.\n" + a +
                                        "5: Syntax error (parser).\n    X?\n     ^\n" + a + "6: Commands are",
                                    "varnix: " + at("none") + ": No such file"})
        EXPECT_NE(said.find(part), std::string::npos) << said;
    EXPECT_EQ(status, 1);
    const std::string cut =
        "    " + std::string(59, ' ') + "(" + std::string(40, ' ') + "\n    " + std::string(59, ' ') + "^\n";
    EXPECT_EQ(text(run("", std::string(5000, ' ') + "(" + std::string(5000, ' ')).first),
              "varnix: line 1: Syntax error (parser).\n" + cut);
    EXPECT_EQ(text(run("", "\"\xc3\xa4\" !").first),
              "varnix: line 1: Syntax error (parser).\n    \"\xc3\xa4\" !\n        ^\n");
    EXPECT_EQ(text(run("", "X=1\n:reset\nX\n-1E999-1E999\n0*(1E999)\n\n:quit\n5").first), "#X\n-inf\nnan\n");
    for (const auto &[arguments, expected] : {std::pair{"--jason", 2}, {"-e", 2}, {"--help", 0}, {"-- -e", 1}}) {
        const auto [usage, ended] = run(arguments, "");
        EXPECT_EQ(ended, expected) << arguments;
        EXPECT_EQ(usage.rfind("usage: varnix", 0) == 0, expected != 1) << usage;
    }
}

#ifdef __linux__
TEST_F(Tool, AsksOnATerminal)
{
    const std::string inner = command("");
    const std::string outer = "printf 'X=4\\nX*X\\n:quit\\n' | script -qec \"" + inner + "\" /dev/null >" + at("out");
    ASSERT_EQ(std::system(outer.c_str()), 0);
    const std::string said = read(dir / "out");
    EXPECT_NE(said.find("varnix> "), std::string::npos) << said;
    EXPECT_NE(said.find("16\r\n"), std::string::npos) << said;
}
#endif

// Each example of the guide is a session; each line of the table of answers goes to one session, in order.
TEST_F(Tool, DoesWhatTheGuideShows)
{
    std::ifstream guide(VARNIX_GUIDE);
    std::string input, expected, lines, answers;
    int examples = 0;
    bool inside = false;
    for (std::string line; std::getline(guide, line);) {
        const std::size_t middle = line.find("` | `{");
        if (middle != std::string::npos && line.starts_with("| `")) {
            lines += line.substr(3, middle - 3) + "\n";
            answers += line.substr(middle + 5, line.rfind('`') - middle - 5) + "\n";
        }
        if (inside && line == "```") {
            inside = false;
            EXPECT_EQ(text(run("", input).first), expected);
            ++examples;
        } else if (line == "```varnix") {
            inside = true;
            input = expected = "";
        } else if (inside) {
            const bool typed = line.starts_with("> ");
            (typed ? input : expected) += line.substr(typed ? 2 : 0) + "\n";
        }
    }
    EXPECT_GE(examples, 10);
    EXPECT_NE(read(VARNIX_GUIDE).find(text(run("--functions", "").first)), std::string::npos);
    EXPECT_EQ(run("--json", lines).first, answers);
}

TEST_F(Tool, FindsTics)
{
    const std::string bad =
        R"({"kind":"ERROR","value":"Three numbers are expected: both limits and the number of labels."})";
    const auto [answers, status] = run("--json --tics", "0.5 -0.5 4\r\n3 nan 5\n1e12\t1000000000001 7\n1 2\n1 2 3x\n");
    EXPECT_EQ(answers,
              R"({"inctype":2,"incval":-0.20000000000000001,"inctens":-1,"incsign":1,"nlabs":5,)"
              R"("labvals":[0.40000000000000002,0.20000000000000001,0,-0.20000000000000001,-0.40000000000000002],)"
              R"("labels":["0.4","0.2","0.0","-0.2","-0.4"],"end0":"          0.5","end1":"         -0.5",)"
              R"("nospan":0,"axiserr":0,"errstr":""})"
              "\n"
              R"({"inctype":1,"incval":0,"inctens":0,"incsign":0,"nlabs":1,"labvals":[3],"labels":["              3"],)"
              R"("end0":"            3","end1":"            3","nospan":1,"axiserr":0,"errstr":""})"
              "\n"
              R"({"inctype":1,"incval":0,"inctens":0,"incsign":0,"nlabs":1,"labvals":[1000000000000.5],)"
              R"("labels":["          1E+12"],"end0":"        1E+12","end1":"        1E+12","nospan":1,"axiserr":1,)"
              R"("errstr":"Floating point problems.  Unable to get rawinc in cal_tic."})"
              "\n" +
                  bad + "\n" + bad + "\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(text(run("--tics", "0 10 5").first), "increment 2: 0 2 4 6 8 10\n");
}

TEST_F(Tool, ConfiguresAndPlots)
{
    std::ofstream(dir / "style", std::ios::binary) << "NUMBER_OF_XAXES=2\r\nCURVE_1_YDATA=SEQ(1,2)\r\nXAXIS_2_SLAVE="
                                                      "7\r\nXAXIS_1_LABEL=\"\xe9\"\r\nLABEL_60_STRING=1.5\r\n";
    const std::string fault = "Invalid slave of an XAXIS specified.\n";
    const auto [answer, status] = run("--json --config " + at("style"), "");
    EXPECT_EQ(status, 1);
    for (
        const char *part :
        {R"({"xsize":8,"ysize":6,"xorg":[1,1,1,1,1,1,1,1,1,1],)",
         R"("nxaxes":2,"nyaxes":1,"ncurves":1,"ngraphs":1,"xaxes":[{"f0":0,"f1":1,"label":"\u00e9",)",
         R"("yval":{"kind":"ARRAY","value":[1,2]},"zval":null,)",
         R"({"val":{"kind":"SCALER","value":1.5},"icolor":1,"ithick":0,"xpos":0,"ypos":0,"rot":0,"height":0.070000000298023224}],)",
         R"("errstr":"Invalid slave of an XAXIS specified.\u000a"})"})
        EXPECT_NE(answer.find(part), std::string::npos) << part << "\n" << answer;
    const std::string listing = text(run("--config " + at("style"), "").first);
    EXPECT_TRUE(listing.starts_with("page\n  xsize      8\n") && listing.ends_with("0.07\n" + fault)) << listing;
    const auto [said, plot_status] = run("--plot " + at("style") + " -o " + at("svg"), "");
    EXPECT_EQ(text(said), fault);
    EXPECT_EQ(plot_status, 1);
    EXPECT_TRUE(read(dir / "svg").ends_with("</svg>\n"));
    for (const std::string &wrong :
         {"--plot " + at("style"), "-o " + at("svg"), "--tics " + at("style"), std::string("--tics --config x"),
          "--json --plot x -o " + at("svg"), std::string("--config")})
        EXPECT_EQ(run(wrong, "").second, 2) << wrong;
    for (const std::string &missing : {"--config " + at("none"), "--plot " + at("style") + " -o " + at("none/svg")})
        EXPECT_NE(run(missing, "").first.find("No such file or directory"), std::string::npos) << missing;
}

} // namespace
