#include "dovfile/dovfile.h"
#include "fileio/file_bytes.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const test_folder &folder()
{
    static const test_folder made("dovfile_test");
    return made;
}

struct outcome {
    int status;
    std::string out;
    std::string err;
};

// Words of a command, of which those with an @ are files in the folder.
outcome dovfile(const std::string &words)
{
    std::vector<std::string> args;
    for (std::size_t begin = 0; begin < words.size();) {
        const std::size_t end = std::min(words.find(' ', begin), words.size());
        std::string word = words.substr(begin, end - begin);
        args.push_back(word[0] == '@' ? folder()(word.substr(1)) : word);
        begin = end + 1;
    }
    std::vector<const char *> pointers;
    for (const std::string &arg : args)
        pointers.push_back(arg.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int status = run_dovfile(pointers);
    outcome result = {status, testing::internal::GetCapturedStdout(), testing::internal::GetCapturedStderr()};
    for (std::size_t at = 0; (at = result.err.find(folder()(""), at)) != std::string::npos;)
        result.err.erase(at, folder()("").size());
    return result;
}

// What a command prints that goes well.
std::string output(const std::string &words)
{
    const outcome result = dovfile(words);
    EXPECT_EQ(result.err, "") << words;
    EXPECT_EQ(result.status, 0) << words;
    return result.out;
}

TEST(Dovfile, MakesShowsAndChangesAnIqFile)
{
    write_bytes(folder()("iq.csv"), "# I, Q\n1,-2\r\n\n 0.5 ,3\nnan,-inf\n0.1\t1e-3");
    output("create iq @a.iq --t0 10 --prf=4 --tbias 0.25 --xlam 2 --text caf\xe9 @iq.csv");
    output("set @a.iq n=7 x=1.5 word=hello d:s=12 big=3000000000 tbias=-0.5");
    EXPECT_EQ(output("info --json @a.iq"),
              "{\"type\":101,\"machine\":4,\"version\":1,\"reservesize\":1024,\"headsize\":144,\"elementsize\":8,"
              "\"nelements\":4,\"header\":{\"version\":1,\"pad\":0,\"text\":\"caf\\u00e9\",\"t0\":10,\"prf\":4,"
              "\"tbias\":-0.5,\"xlam\":2},\"keywords\":[{\"name\":\"n\",\"type\":1,\"value\":7},"
              "{\"name\":\"x\",\"type\":2,\"value\":1.5},{\"name\":\"word\",\"type\":3,\"value\":\"hello\"},"
              "{\"name\":\"d\",\"type\":3,\"value\":\"12\"},{\"name\":\"big\",\"type\":2,\"value\":3000000000}]}\n");
    output("unset @a.iq WORD d none");
    EXPECT_NE(
        output("info @a.iq").find("prf 4\n  tbias -0.5\n  xlam 2\nkeywords\n  n (integer) 7\n  x (real) 1.5\n  big"),
        std::string::npos);
    const std::string last = "[10.75, 0.10000000149011612, 0.0010000000474974513]\n";
    EXPECT_EQ(output("dump --json @a.iq"), "[10, 1, -2]\n[10.25, 0.5, 3]\n[10.5, \"nan\", \"-inf\"]\n" + last);
    EXPECT_EQ(output("dump --json --from 10.6 @a.iq"), last);
    EXPECT_EQ(output("dump --csv --from=10.25 --to 10.5 @a.iq"), "10.25,0.5,3\n10.5,nan,-inf\n");
    EXPECT_EQ(output("dump --count 1 --to 99 @a.iq"), "10 1 -2\n");
    EXPECT_EQ(output("dump --count 0 @a.iq") + output("dump --from 11 @a.iq") + output("dump --to 9 @a.iq"), "");
}

TEST(Dovfile, MakesTheOtherTypesFromTheirFields)
{
    using row = std::tuple<const char *, const char *, const char *>; // options, lines, dump
    for (const auto &[options, lines, dump] :
         {row{"rea @x", "1,100,0.5,0.25,1,0\n2,101,0.5,0.25,0,-7\n", "1,100,0.5,0.25,1,0\n2,101,0.5,0.25,0,-7\n"},
          row{"pks @x --prf 2 --hz2 9", "1,2,3,4\n5,6,7,8\n", "0,1,2,3,4\n0.5,5,6,7,8\n"},
          row{"dop @x --scale 0.5", "1,2\n-3,32767\n", "0,1,2\n1,-3,32767\n"},
          row{"gat @x", "1,2,3,4,5,6\n", "1,2,3,4,5,6\n"}, row{"gat @x --dattype 2", "1,2,3,4,5,6\n", "1,2,3,4,5,6\n"},
          row{"img @x", "1,2,3\n4,5,6\n", "1,2,3\n4,5,6\n"},
          row{"vec @x --nvec 2", "1,0.1\n", "1,0.10000000000000001\n"}, row{"vec @x --nvec 2", "", ""}}) {
        write_bytes(folder()("in.csv"), lines);
        output(std::string("create ") + options + " @in.csv");
        EXPECT_EQ(output("dump --csv @x"), dump);
        for (const char *machine : {"vax", "mips", "sun", "alpha"}) {
            output(std::string("convert @x @y --machine ") + machine);
            EXPECT_EQ(output("dump --csv @y"), dump) << machine;
            output("convert @y @y --machine pc"); // in its own place
            EXPECT_TRUE(read_bytes(folder()("y")) == read_bytes(folder()("x"))) << options << machine;
        }
        EXPECT_EQ(output("check @x").find("BAD"), std::string::npos);
    }
}

TEST(Dovfile, AnnotatesEveryByte)
{
    write_bytes(folder()("sun.iq"), iq_file(3) + "tail");
    const std::string text = output("annotate @sun.iq");
    for (const char *line : {"\n4           00000028          reservesize   int32 big-endian            40\n",
                             "\n31          3ff8000000000000  value         IEEE double big-endian      1.5\n",
                             "\n39          7800              name          text                        \"x\"\n",
                             "\n41          00 x 19           free          bytes\n",
                             "\n208         c0000000          q[0]          IEEE single big-endian      -2\n",
                             "\n220         7461696c          not declared  bytes\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
    // Whatever the length, no byte is left out or named twice.
    std::string bytes = iq_file(1);
    for (std::size_t size = bytes.size(); size-- > 1;) {
        std::filesystem::resize_file(folder()("sun.iq"), size);
        const outcome cut = dovfile("annotate @sun.iq");
        EXPECT_EQ(cut.status, 1);
        EXPECT_EQ(cut.err.rfind("dovfile: sun.iq: error -6: ", 0), 0U) << cut.err;
        const std::size_t last = cut.out.rfind('\n', cut.out.size() - 2) + 1; // 0 when there is no other line
        const std::size_t offset = std::stoul(cut.out.substr(last));
        const std::string range = cut.out.substr(last + 12, cut.out.find(' ', last + 12) - last - 12);
        const std::size_t times =
            cut.out.find(" x ", last) == last + 14 ? std::stoul(cut.out.substr(last + 17)) : range.size() / 2;
        EXPECT_EQ(offset + times, size) << cut.out.substr(last);
    }
}

TEST(Dovfile, ChecksEveryRule)
{
    using row = std::tuple<std::size_t, const char *, const char *>; // what is put where, what is bad
    for (const auto &[offset, hex, bad] :
         {row{0, "09", "0: machine 9 "}, row{1, "02", "1: version 2 "}, row{2, "68", "2: filetype 104 "},
          row{4, "ffffffff", "4: reservesize -1 "}, row{8, "91000000", "8: headsize of iq is 144"},
          row{12, "00000000", "12: elementsize 0 "}, row{12, "04000000", "12: elementsize of this type header is 8"},
          row{16, "03000000", "204: the elements end at 228, the file has 220"},
          row{16, "ffffffff", "16: nelements -1 "}, row{21, "80", "21: the keyword list ends in a zero byte"},
          row{21, "01", "21: this keyword is well-formed"}, row{27, "58", "29: its name is not taken"},
          row{59, "01", "59: what is free is zero"}, row{60, "02000000", "60: version 2 "},
          row{171, "20", "68: text has its NUL"}, row{172, "000000000000f87f", "172: t0 nan is finite"},
          row{180, "0000000000000080", "180: prf -0 is above 0"}}) {
        std::string bytes = iq_file(4);
        bytes.replace(offset, std::string(hex).size() / 2, from_hex(hex));
        write_bytes(folder()("bad.iq"), bytes);
        const outcome result = dovfile("check @bad.iq");
        EXPECT_EQ(result.status, 1) << bad;
        EXPECT_NE(result.out.find(std::string(": BAD  ") + bad), std::string::npos) << bad << "\n" << result.out;
    }
    write_bytes(folder()("in.csv"), "2,0,0,0,0,0\n2,0,0,0,0,0\n");
    output("create rea @bad.rea @in.csv");
    EXPECT_NE(dovfile("check @bad.rea").out.find("BAD  1220: the time of element 1 "), std::string::npos);
}

TEST(Dovfile, FitsSplinesAndEvaluatesThem)
{
    std::string squares = "-1,7\n0.001,nan\n";
    for (int i = 0; i <= 80; ++i)
        squares += std::to_string(i * 0.125) + "," + std::to_string(i * i * 0.015625) + "\n";
    write_bytes(folder()("squares.csv"), squares);
    write_bytes(folder()("breaks"), "# time ncont\n0 2\n4\n9 0\n10\n");
    const std::string said = output("fit @squares.csv -o @squares.spl --breaks @breaks --ncont 1 --xunits s");
    EXPECT_TRUE(said.starts_with("points used: 81 of 83\nbreakpoints: 4\nRMS residual: ")) << said;
    EXPECT_NE(output("info --json @squares.spl").find("\"xunits\":\"s\""), std::string::npos);
    std::string times;
    std::istringstream dump(output("dump --csv @squares.spl"));
    for (std::string line; std::getline(dump, line);)
        times += line.substr(0, line.find(',', line.find(',') + 1)) + " ";
    EXPECT_EQ(times, "0,2 4,1 9,0 10,1 ");
    for (const auto &[words, value] : {std::pair{"eval @squares.spl 3", 9.0},
                                       {"eval --deriv 2 @squares.spl -3", 2},
                                       {"eval @squares.spl --deriv 1 11", 22}})
        EXPECT_NEAR(std::stod(output(words)), value, 1e-6) << words;
    using row = std::tuple<const char *, int, const char *>;
    for (const auto &[words, status, message] :
         {row{"fit @squares.csv -o @z --ncoe 11 --nbreaks 5", 1, "squares.csv: NCOE is too Large."},
          row{"fit @squares.csv -o @z --nbreaks 2000000000", 1, "(Singular matrix)"},
          row{"fit @squares.csv -o @none/z --nbreaks 2", 1, "z: error -4: "}, row{"fit @none -o @z", 1, "none: cannot"},
          row{"fit @squares.spl -o @z", 1, "squares.spl: line 1"}, row{"fit @squares.csv", 2, "-o"},
          row{"fit @squares.csv -o @z --nbreaks 1", 2, "2 or more"},
          row{"eval @squares.csv 1", 1, "squares.csv: error"}, row{"eval @squares.spl x", 2, "not a number: x"},
          row{"eval --deriv -1 @squares.spl 1", 2, "whole"}}) {
        const outcome result = dovfile(words);
        EXPECT_EQ(result.status, status) << words;
        EXPECT_NE(result.err.find(message), std::string::npos) << words << "\n" << result.err;
    }
}

TEST(Dovfile, SaysWhatIsWrong)
{
    write_bytes(folder()("good.iq"), iq_file(4));
    write_bytes(folder()("short.iq"), iq_file(4).substr(0, 100));
    write_bytes(folder()("in.csv"), "1,2\n3\n");
    write_bytes(folder()("no.csv"), "1,2\n3,4x\n");
    write_bytes(folder()("big.csv"), "1,40000\n");
    using row = std::tuple<const char *, int, const char *>;
    for (const auto &[words, status, message] : {row{"info @none", 1, "none: error -4: "},
                                                 row{"info @short.iq", 1, "short.iq: error -6: "},
                                                 row{"dump @short.iq", 1, "short.iq: error -6: "},
                                                 row{"annotate @none", 1, "none: error -4: "},
                                                 row{"convert @short.iq @y --machine sun", 1, "short.iq: error -6: "},
                                                 row{"convert @good.iq @none/y --machine sun", 1, "y: error -4: "},
                                                 row{"create iq @z.iq @in.csv", 1, "in.csv: line 2: "},
                                                 row{"create iq @z.iq @no.csv", 1, "no.csv: line 2: "},
                                                 row{"create dop @z.iq @big.csv", 1, "big.csv: line 1: "},
                                                 row{"create iq @none/z.iq @in.csv", 1, "z.iq: error -4: "},
                                                 row{"create iq @z.iq @none", 1, "none: cannot be opened"},
                                                 row{"set @good.iq prf=0", 1, "prf cannot be 0"},
                                                 row{"set @good.iq t0=x", 1, "t0 cannot be x"},
                                                 row{"set @good.iq e=", 1, "e cannot be set: "},
                                                 row{"unset @good.iq text", 1, "text cannot be removed"},
                                                 row{"set @none a=1", 1, "none: error -4: "},
                                                 row{"", 2, "usage: dovfile COMMAND"},
                                                 row{"nothing", 2, "usage: dovfile COMMAND"},
                                                 row{"info", 2, "usage: dovfile info"},
                                                 row{"info --yaml @good.iq", 2, "unknown option --yaml"},
                                                 row{"dump --json --csv @good.iq", 2, "either"},
                                                 row{"dump --count -1 @good.iq", 2, "numbers"},
                                                 row{"dump --from", 2, "--from needs a value"},
                                                 row{"create iq @z.iq --t0 x", 2, "does not fit"},
                                                 row{"create wav @z.iq", 2, "which type?"},
                                                 row{"set @good.iq novalue", 2, "not NAME=VALUE"},
                                                 row{"unset @good.iq", 2, "nothing to remove"},
                                                 row{"convert @good.iq @y --machine cray", 2, "a machine"},
                                                 row{"check", 2, "which files?"}}) {
        const outcome result = dovfile(words);
        EXPECT_EQ(result.status, status) << words;
        EXPECT_NE(result.err.find(message), std::string::npos) << words << "\n" << result.err;
        EXPECT_FALSE(std::filesystem::exists(folder()("z.iq")) || std::filesystem::exists(folder()("z.iq.new")))
            << words;
    }
    EXPECT_EQ(read_bytes(folder()("good.iq")).size(), iq_file(4).size());
    EXPECT_EQ(dovfile("help").status, 0);
}

} // namespace
