#include "fileio/fileio.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

// A list in a buffer of some bytes, which begin as given.
struct list {
    explicit list(std::string begin, std::size_t size = 60) : bytes(std::move(begin)) { bytes.resize(size, '\0'); }
    int size() const { return static_cast<int>(bytes.size()); }
    std::string bytes;
};

std::string listing(const list &l)
{
    std::string text;
    std::array<char, kwl_name_size> name;
    kwl_value value;
    int type = 0;
    for (int i = 0, outcome = 0; outcome >= 0; ++i) {
        outcome = kwl_read(l.bytes.data(), l.size(), i, name.data(), &type, &value);
        text += outcome < 0 ? "." : std::string(name.data()) + (outcome == 0 ? "?" : "");
        if (type == kwl_integer)
            text += "=" + std::to_string(value.ival);
        else if (type == kwl_real)
            text += "=" + std::to_string(value.dval);
        else if (type == kwl_string)
            text += "='" + std::string(value.sval) + "'";
        text += outcome < 0 ? "" : " ";
    }
    return text;
}

TEST(KeywordList, IsWrittenByteForByte)
{
    list l("");
    EXPECT_EQ(kwl_put_int(l.bytes.data(), l.size(), "abc", 5), 1);
    EXPECT_EQ(kwl_put_str(l.bytes.data(), l.size(), "s", "xy"), 1);
    EXPECT_EQ(kwl_put_dbl(l.bytes.data(), l.size(), "Real", 2.5), 1);
    const std::string bytes("\x0a\1\5\0\0\0abc\0\x08\3\3xy\0s\0\x0f\2\0\0\0\0\0\0\4\100Real\0", 33);
    EXPECT_EQ(l.bytes.substr(0, 33), bytes);
    EXPECT_EQ(l.bytes.find_first_not_of('\0', 33), std::string::npos);
    EXPECT_EQ(listing(l), "abc=5 s='xy' Real=2.500000 .");
    EXPECT_EQ(kwl_find(l.bytes.data(), l.size(), "REAL"), 2);
    EXPECT_EQ(kwl_find(l.bytes.data(), l.size(), nullptr), -1);
    EXPECT_EQ(kwl_put_dbl(l.bytes.data(), l.size(), "ABC", -1), 1);
    EXPECT_EQ(listing(l), "s='xy' Real=2.500000 ABC=-1.000000 .");
    EXPECT_EQ(kwl_delete(l.bytes.data(), l.size(), 1), 1);
    EXPECT_EQ(kwl_delete(l.bytes.data(), l.size(), 2), 0);
    EXPECT_EQ(listing(l), "s='xy' ABC=-1.000000 .");
    EXPECT_EQ(l.bytes.find_first_not_of('\0', 22), std::string::npos);
    std::int32_t integer = 7;
    double real = 7;
    char string[kwl_string_size] = "7";
    EXPECT_EQ(kwl_get_int(l.bytes.data(), l.size(), "ABC", &integer), 0); // another type
    EXPECT_EQ(kwl_get_dbl(l.bytes.data(), l.size(), "absent", &real), 0);
    EXPECT_EQ(kwl_get_str(l.bytes.data(), l.size(), "S", string), 1);
    EXPECT_EQ(std::to_string(integer) + std::to_string(real) + string, "77.000000xy");
    kwl_init(l.bytes.data(), l.size());
    EXPECT_EQ(listing(l), ".");
}

TEST(KeywordList, HasLimits)
{
    list l("", 20);
    const auto put = [&](const char *name, const char *value) {
        return kwl_put_str(l.bytes.data(), l.size(), name, value);
    };
    EXPECT_EQ(put("", "x") + put(nullptr, "x") + put("x", "") + put("x", nullptr), 0);
    EXPECT_EQ(put("x", "12345678901234"), 0); // 20 bytes leave no room for the end
    EXPECT_EQ(put("x", "1234567890123"), 1);
    EXPECT_EQ(put("x", "12345678901234"), 0);
    EXPECT_EQ(listing(l), ".") << "the former value is gone";
    EXPECT_EQ(kwl_put_int(nullptr, 20, "x", 1) + kwl_nitems(nullptr, 20) + kwl_put_int(l.bytes.data(), 0, "x", 1), 0);

    list wide("", 600);
    const std::string name(70, 'n');
    EXPECT_EQ(kwl_put_int(wide.bytes.data(), wide.size(), name.c_str(), 1), 1);
    EXPECT_EQ(wide.bytes[0], 71); // 64 bytes of the name are written
    EXPECT_EQ(listing(wide), std::string(63, 'n') + "=1 .");
    EXPECT_EQ(kwl_put_str(wide.bytes.data(), wide.size(), "long", std::string(300, 's').c_str()), 1);
    EXPECT_EQ(static_cast<unsigned char>(wide.bytes[71]), 189); // 180 of the string
    EXPECT_EQ(listing(wide), std::string(63, 'n') + "=1 .") << "an item of more than 127 bytes ends the list";
    EXPECT_EQ(kwl_put_int(wide.bytes.data(), wide.size(), "next", 1), 0);
    EXPECT_EQ(static_cast<unsigned char>(wide.bytes[71]), 189);

    storeint(l.bytes.data(), 3, 300);
    storeint(l.bytes.data(), 4, -300);
    EXPECT_EQ(recallint(l.bytes.data(), 3) * 10 + recallint(l.bytes.data(), 4), -10);
}

TEST(KeywordList, SurvivesWhatIsMalformed)
{
    using row = std::tuple<std::string, std::string, int>; // bytes, listing, items
    for (const auto &[bytes, expected, items] :
         {row{{"\1\7\1\0\0\0\0", 7}, "? =0 .", 2},              // length 1; an empty name
          row{{"\6\1\1\0\0\0\7\1\1\0\0\0\0", 13}, "? =1 .", 2}, // no byte for a name
          row{{"\x0a\2\0\0\0\0\0\0\0\0", 10}, "? .", 1},        // a real without a name
          row{{"\7\3\0x\0y\0", 7}, "? .", 1},                   // a string of no byte
          row{"\7\3\xffxxyy", "? .", 1},                        // of a negative number of bytes
          row{"\7\3\4xxyy", "? .", 1},                          // one that leaves no name
          row{"\7\3\3xxyy", "='xx' .", 1},                      // a name without its NUL: its last byte is one
          row{"\7\4\1xxyy", "? .", 1},                          // type 4
          row{"\x3b\1abcde", "e=1684234849 .", 1},              // the last that fits
          row{"\x3c\1abcd", "? .", 1},                          // one byte later
          row{"\x7f\1abcd", "? .", 1},                          // beyond the buffer
          row{"\x80\1abcd", ".", 0}}) {
        list l(bytes);
        EXPECT_EQ(listing(l), expected);
        EXPECT_EQ(kwl_nitems(l.bytes.data(), l.size()), items);
        // Everything is kept within the buffer, which the sanitizer watches.
        std::string copy = l.bytes;
        const auto count = [](void *value) { ++*static_cast<unsigned char *>(value); };
        kwl_convert(copy.data(), l.size(), count, count);
        kwl_put_int(copy.data(), l.size(), "new", 1);
        for (int i = items; i-- > 0;)
            EXPECT_EQ(kwl_delete(copy.data(), l.size(), i), 1);
        EXPECT_EQ(kwl_nitems(copy.data(), l.size()) <= 1, true);
    }
    list l(std::string("\x0a\1\5\0\0\0abc\0\1\x0d\2\0\0\0\0\0\0\4\100R\0\0", 24));
    const auto last = [](void *value) { static_cast<char *>(value)[3] = 1; };
    kwl_convert(l.bytes.data(), l.size(), last, [](void *value) { static_cast<char *>(value)[7] = -64; });
    EXPECT_EQ(listing(l), "abc=16777221 ? R=-2.500000 .");
}

} // namespace
