#include "wi/wijournal.h"
#include "wi/wijournalfile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using kind = wi_journal_kind;
constexpr kind objects[] = {kind::plain, kind::with_value, kind::with_mouse};
constexpr const char *name = "journalfile_test.jrl";

std::string i4(std::initializer_list<long long> numbers)
{
    std::string bytes;
    for (const long long number : numbers)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string content()
{
    std::ifstream in(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void store(const std::string &bytes)
{
    std::ofstream(name, std::ios::binary) << bytes;
}

// What there is in a file: one letter per record, for the damage behind them "!", for that of the stamp "?".
std::string read(std::int32_t most = 3)
{
    wi_journal_file file;
    std::string_view stamp;
    if (!wi_journal_open(name, file) || !wi_journal_read_stamp(file, stamp))
        return "?";
    std::string found;
    for (wi_journal_record record; wi_journal_next(file, objects, most, record);)
        found += static_cast<char>('a' + record.action);
    return found + (file.at_end() ? "" : "!");
}

struct JournalFile : testing::Test {
    ~JournalFile() override { std::filesystem::remove(name); }
};

const std::string stamp = i4({4}) + "demo";
const std::string values = i4({2, 1, 3}) + "x\ny";
const std::string first = values + i4({0, 0, 0, 1});
const std::string second = i4({1, 2, 10, 13, -26, 0, 0, 1, 0, 2}); // mouse at (13, -26), right button held
const std::string third = i4({1, 1, 2, 4}) + "\r\n\x1a\n" + i4({3});

TEST_F(JournalFile, HoldsRecordsAsLaidDown)
{
    wi_journal_record records[3] = {{{{1, "x\ny"}}, 0, 0, {}, "", 1},
                                    {{}, 2, 10, wi_journal_mouse_state{13, -26, {0, 0, 1}}, "", 2},
                                    {{}, 1, 2, {}, "\r\n\x1a\n", 3}};
    std::string bytes;
    wi_journal_put_stamp(bytes, "demo");
    for (const wi_journal_record &record : records)
        wi_journal_put_record(bytes, record);
    ASSERT_EQ(bytes, stamp + first + second + third);
    EXPECT_EQ(wi_journal_mirror_text(records[0]), "2\n1\nx\ny\n0\n0\n0\n\n1\n\nEND OF RECORD\n\n");
    EXPECT_EQ(wi_journal_mirror_text(records[1]), "1\n2\n10\n'13\n-26\n0\n0\n1\n0\n\n2\n\nEND OF RECORD\n\n");
    EXPECT_EQ(wi_journal_text_mode(third), i4({1, 1, 2, 4}) + "\r\r\n\x1a\r\n" + i4({3}));
    ASSERT_TRUE(wi_journal_append(name, true, wi_journal_text_mode(bytes)));
    wi_journal_file file;
    std::string_view read_stamp;
    ASSERT_TRUE(wi_journal_open(name, file) && wi_journal_read_stamp(file, read_stamp));
    EXPECT_EQ(read_stamp, "demo");
    std::string again;
    for (wi_journal_record record; wi_journal_next(file, objects, 3, record);)
        wi_journal_put_record(again, record);
    EXPECT_EQ(again, first + second + third);
}

TEST_F(JournalFile, ServesUpToTheLastSoundRecord)
{
    const std::string whole = stamp + first + second + third;
    const std::size_t ends[] = {stamp.size(), stamp.size() + first.size(), whole.size() - third.size(), whole.size()};
    for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
        store(wi_journal_text_mode(whole.substr(0, cut)));
        const auto sound = static_cast<std::size_t>(std::upper_bound(ends, std::end(ends), cut) - ends);
        const std::string records = std::string("akc").substr(0, sound > 0 ? sound - 1 : 0);
        EXPECT_EQ(read(), sound == 0 ? "?" : records + (ends[sound - 1] == cut ? "" : "!")) << cut;
    }
    const std::string long_value = i4({1, 1, 5, 1000}) + std::string(1000, 'v') + i4({1});
    const struct {
        std::string bytes, found;
    } rows[] = {
        {i4({-1}) + first, "a"}, // no stamp
        {i4({0x7fffffff}), "?"},
        {i4({0, 0, 0, 0, 0, 1}), "!"}, // a value count of 0
        {i4({0, -5, 0, 0, 0, 1}), "!"},
        {i4({0, 0x7fffffff, 1, 0}), "!"},
        {i4({0, 2, 1, -7, 0, 0, 0, 1}), "a"}, // a negative length is an empty value
        {i4({0, 2, 1, 0x7fffffff, 0, 0, 0, 1}), "!"},
        {i4({0, 2, 0, 1}) + "x" + i4({0, 0, 0, 1}), "!"}, // the value of an object that has none
        {i4({0, 2, 0, 0, 0, 0, 0, 1}), "a"},
        {i4({0, 2, -1, 0, 0, 0, 0, 1}), "!"},
        {i4({0, 2, 3, 1}) + "x" + i4({3, 2, 0, 1}), "c"}, // objects that are not registered
        {i4({0, 1, 4, 0, 0, 1}), "!"},
        {i4({0, 1, -2147483648LL, 0, 0, 1}), "!"},
        {i4({0, 1, 0, 0, 1}) + "x" + i4({1}), "!"},
        {i4({0}) + long_value, "f"},
        {i4({0}) + first + second + values + i4({0, 0, 0, 7}), "ak!"}, // the last four bytes lie
        {i4({0}) + first + first, "a!"},
    };
    for (const auto &row : rows) {
        store(wi_journal_text_mode(row.bytes));
        EXPECT_EQ(read(), row.found) << &row - rows;
    }
    store(stamp + first); // with bare line feeds
    EXPECT_EQ(read(), "a");
    wi_journal_file file;
    wi_journal_record record;
    store(long_value);
    ASSERT_TRUE(wi_journal_open(name, file) && wi_journal_next(file, objects, 3, record));
    EXPECT_EQ(record.own_value, std::string(399, 'v'));
}

TEST_F(JournalFile, LosesNoEarlierRecordWhenTheDiskIsFull)
{
    static const wi_hlp_files system = wi_hlp_io;
    static int failing;
    wi_hlp_io.open = [](auto n, auto mode) { return failing == 1 ? nullptr : system.open(n, mode); };
    wi_hlp_io.write = [](auto p, auto a, auto b, auto f) { return system.write(p, a, failing == 2 ? b / 2 : b, f); };
    wi_hlp_io.close = [](auto f) { return system.close(f) | (failing == 3 ? -1 : 0); };
    const struct {
        bool anew;
        int failing; // none, opening, writing, closing
        const char *content;
    } rows[] = {{true, 0, "more"}, {false, 1, "more"}, {false, 2, "more"}, {false, 3, "more"}, {true, 1, "more"},
                {true, 2, ""},     {true, 3, ""},      {false, 2, ""},     {false, 0, "more"}, {false, 0, "moremore"}};
    for (const auto &row : rows) {
        failing = row.failing;
        EXPECT_EQ(wi_journal_append(name, row.anew, "more"), failing == 0);
        EXPECT_EQ(content(), row.content) << &row - rows;
    }
    wi_hlp_io = system;
}

TEST_F(JournalFile, IsListedAsFarAsAPageGoes)
{
    const std::optional<std::string> labels[] = {"Go", std::nullopt, ""};
    store(wi_journal_text_mode(stamp + first + second + third + "x"));
    wi_journal_file file;
    std::string_view found;
    ASSERT_TRUE(wi_journal_open(name, file) && wi_journal_read_stamp(file, found));
    const wi_journal_listing listing = wi_journal_list(file, objects, labels);
    EXPECT_EQ(listing.text, "Entry\tDescription\n-------------------------\n0   \tGo\n1   \t\n");
    EXPECT_TRUE(!listing.sound && file.read == 3);
    std::string list(wi_journal_list_limit - 13, 'x');
    EXPECT_EQ(wi_journal_list_add(list, 123456, "label"), "123456\tlabel\n");
    EXPECT_EQ(wi_journal_list_add(list, 0, ""), "");
    EXPECT_EQ(list.size(), wi_journal_list_limit);
}

TEST(JournalTexts, AreWrappedJoinedAndQuoted)
{
    const std::string fifty(50, 'x'), most(1989, 'y');
    const auto wrapped = [](const std::string &text) {
        const wi_journal_wrapped w = wi_journal_wrap(text);
        return w.text + "|" + std::to_string(w.lines);
    };
    EXPECT_EQ(wrapped(fifty + " a b"), fifty + "\na b|2");
    EXPECT_EQ(wrapped(fifty.substr(1) + " a b"), fifty.substr(1) + " a\nb|2");
    EXPECT_EQ(wrapped("a\n" + fifty.substr(1) + " b\n"), "a\n" + fifty.substr(1) + " b\n|3");
    EXPECT_EQ(wi_journal_add_message("", "a"), "a");
    EXPECT_EQ(wi_journal_add_message(most, "12345678"), most + "\n\n12345678");
    EXPECT_EQ(wi_journal_add_message(most, "123456789"), "123456789");
    EXPECT_EQ(wi_journal_copy_command("c:/a.jrl", "c:\\My & b\\tmp.jrl"), "copy c:\\a.jrl \"c:\\My & b\\tmp.jrl\"");
}

} // namespace
