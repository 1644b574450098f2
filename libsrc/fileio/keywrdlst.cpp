#include "fileio/keywrdlst.h"

#include "dovsys/dovsys.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace {

constexpr int longest_name = 64;    // bytes of a name that is written
constexpr int longest_string = 180; // and of a string
constexpr int value_at = 2;

struct item {
    int offset;
    int length;
};

// Item indx as it lies in the list, whatever it contains; one of length 0 at the end of the list.
item locate(const char *buf, int nbuf, int indx)
{
    int offset = 0;
    for (int i = 0; buf != nullptr && offset < nbuf; ++i) {
        const int length = recallint(buf, offset);
        if (length <= 0)
            break;
        if (i == indx)
            return {offset, length};
        offset += length;
    }
    return {offset, 0};
}

// Copies a field with the end that it may lack.
bool copy_field(char *target, int size, const char *source, int n)
{
    if (n < 1)
        return false;
    n = std::min(n, size);
    bytcpy(target, source, n);
    target[n - 1] = '\0';
    return true;
}

// The value of a whole item of n bytes, and where its name begins; 0 when it is malformed.
int read_value(const char *bytes, int n, kwl_value &value)
{
    switch (recallint(bytes, 1)) {
    case kwl_integer:
        if (n < value_at + 4)
            return 0;
        std::memcpy(&value.ival, bytes + value_at, 4);
        return value_at + 4;
    case kwl_real:
        if (n < value_at + 8)
            return 0;
        std::memcpy(&value.dval, bytes + value_at, 8);
        return value_at + 8;
    case kwl_string: {
        const int size = n > 3 ? recallint(bytes, 2) : 0;
        const int name_at = 3 + size;
        return name_at < n && copy_field(value.sval, kwl_string_size, bytes + 3, size) ? name_at : 0;
    }
    default:
        return 0;
    }
}

// The value of a name, when it has that type.
int get(const char *buf, int nbuf, const char *name, int type, kwl_value &value)
{
    std::array<char, kwl_name_size> found;
    int found_type = 0;
    const int indx = kwl_find(buf, nbuf, name);
    return indx >= 0 && kwl_read(buf, nbuf, indx, found.data(), &found_type, &value) == 1 && found_type == type ? 1 : 0;
}

std::string_view cut(const char *text, int most)
{
    return std::string_view(text != nullptr ? text : "").substr(0, static_cast<std::size_t>(most));
}

// Puts an item whose value field has these bytes.
int put(char *buf, int nbuf, std::string_view name, int type, std::string_view field)
{
    std::array<char, longest_name + 1> wanted{};
    name.copy(wanted.data(), longest_name);
    const int former = kwl_find(buf, nbuf, wanted.data());
    if (former >= 0)
        kwl_delete(buf, nbuf, former);
    const int end = locate(buf, nbuf, -1).offset;
    const int length = value_at + static_cast<int>(field.size() + name.size()) + 1;
    if (buf == nullptr || end >= nbuf || recallint(buf, end) != 0 || nbuf - end <= length)
        return 0;
    char *out = buf + end;
    storeint(out, 0, length);
    storeint(out, 1, type);
    out += value_at;
    out += field.copy(out, field.size());
    out += name.copy(out, name.size());
    out[0] = '\0';
    out[1] = '\0';
    return 1;
}

template <typename T>
int put_number(char *buf, int nbuf, const char *name, int type, T value)
{
    std::array<char, sizeof(T)> field;
    std::memcpy(field.data(), &value, sizeof value);
    const std::string_view given = cut(name, longest_name);
    return given.empty() ? 0 : put(buf, nbuf, given, type, {field.data(), field.size()});
}

template <typename T>
void convert_value(char *place, void (*cvt)(void *))
{
    T value;
    std::memcpy(&value, place, sizeof value);
    cvt(&value);
    std::memcpy(place, &value, sizeof value);
}

} // namespace

int recallint(const char *buf, int offset)
{
    return static_cast<signed char>(buf[offset]);
}

void storeint(char *buf, int offset, int value)
{
    buf[offset] = static_cast<char>(std::clamp(value, 0, 255));
}

void bytcpy(char *target, const char *source, int n)
{
    xmove(target, source, n);
}

void kwl_init(char *buf, int nbuf)
{
    if (buf != nullptr && nbuf > 0)
        std::memset(buf, 0, static_cast<std::size_t>(nbuf));
}

int kwl_read_at(const char *buf, int nbuf, int offset, char *name, int *type, kwl_value *value)
{
    *name = '\0';
    *type = 0;
    const int length = buf != nullptr && offset < nbuf ? recallint(buf, offset) : 0;
    if (length <= 0)
        return -1;
    if (length == 1 || length > nbuf - 1 - offset)
        return 0;
    const char *bytes = buf + offset;
    const int name_at = read_value(bytes, length, *value);
    if (name_at == 0 || !copy_field(name, kwl_name_size, bytes + name_at, length - name_at))
        return 0;
    *type = recallint(bytes, 1);
    return 1;
}

int kwl_read(const char *buf, int nbuf, int indx, char *name, int *type, kwl_value *value)
{
    return kwl_read_at(buf, nbuf, locate(buf, nbuf, indx).offset, name, type, value);
}

int kwl_tell(const char *buf, int nbuf, int indx, char *name, int *type)
{
    kwl_value value;
    return kwl_read(buf, nbuf, indx, name, type, &value);
}

int kwl_find(const char *buf, int nbuf, const char *name)
{
    std::array<char, kwl_name_size> found;
    kwl_value value;
    int type = 0;
    for (int i = 0, offset = 0;; ++i, offset += recallint(buf, offset)) {
        const int outcome = kwl_read_at(buf, nbuf, offset, found.data(), &type, &value);
        if (outcome < 0)
            return -1;
        if (outcome == 1 && c_iseqx(found.data(), name) != 0)
            return i;
    }
}

int kwl_nitems(const char *buf, int nbuf)
{
    int n = 0;
    for (int offset = 0; buf != nullptr && offset < nbuf && recallint(buf, offset) > 0;
         offset += recallint(buf, offset))
        ++n;
    return n;
}

int kwl_delete(char *buf, int nbuf, int indx)
{
    const item it = locate(buf, nbuf, indx);
    if (it.length == 0)
        return 0;
    if (it.length >= nbuf - it.offset) {
        buf[it.offset] = '\0';
        return 1;
    }
    const int rest = nbuf - it.offset - it.length;
    bytcpy(buf + it.offset, buf + it.offset + it.length, rest);
    kwl_init(buf + it.offset + rest, it.length);
    return 1;
}

int kwl_get_str(const char *buf, int nbuf, const char *name, char *sval)
{
    kwl_value value;
    if (get(buf, nbuf, name, kwl_string, value) == 0)
        return 0;
    c_strncpy(sval, value.sval, kwl_string_size);
    return 1;
}

int kwl_get_dbl(const char *buf, int nbuf, const char *name, double *dval)
{
    kwl_value value;
    if (get(buf, nbuf, name, kwl_real, value) == 0)
        return 0;
    *dval = value.dval;
    return 1;
}

int kwl_get_int(const char *buf, int nbuf, const char *name, std::int32_t *ival)
{
    kwl_value value;
    if (get(buf, nbuf, name, kwl_integer, value) == 0)
        return 0;
    *ival = value.ival;
    return 1;
}

int kwl_put_str(char *buf, int nbuf, const char *name, const char *sval)
{
    const std::string_view given = cut(name, longest_name);
    const std::string_view value = cut(sval, longest_string);
    if (given.empty() || value.empty())
        return 0;
    std::array<char, longest_string + 2> field{}; // its length, the string and a NUL
    storeint(field.data(), 0, static_cast<int>(value.size()) + 1);
    value.copy(field.data() + 1, value.size());
    return put(buf, nbuf, given, kwl_string, {field.data(), value.size() + 2});
}

int kwl_put_dbl(char *buf, int nbuf, const char *name, double dval)
{
    return put_number(buf, nbuf, name, kwl_real, dval);
}

int kwl_put_int(char *buf, int nbuf, const char *name, std::int32_t ival)
{
    return put_number(buf, nbuf, name, kwl_integer, ival);
}

void kwl_convert(char *buf, int nbuf, void (*cvt4)(void *), void (*cvt8)(void *))
{
    for (int offset = 0; buf != nullptr && offset < nbuf;) {
        const int length = recallint(buf, offset);
        if (length <= 0 || length > nbuf - offset)
            return;
        const int type = length > 1 ? recallint(buf, offset + 1) : 0;
        if (type == kwl_integer && length >= value_at + 4)
            convert_value<std::int32_t>(buf + offset + value_at, cvt4);
        else if (type == kwl_real && length >= value_at + 8)
            convert_value<std::int64_t>(buf + offset + value_at, cvt8); // not a double, which would be one too soon
        offset += length;
    }
}
