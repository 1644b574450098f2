// A keyword list: the first three bytes say what is done with the list in the rest. The walk stays within the list, and
// a value that was put is there.

#include "fuzz.h"

#include "fileio/keywrdlst.h"

#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 3)
        return 0;
    const int operation = data[0] % 5;
    const int argument = data[1];
    const std::string name(data[2] % 70U, 'n');
    std::vector<char> list(data + 3, data + size);
    const int n = static_cast<int>(list.size());
    const int items = kwl_nitems(list.data(), n);
    require(items >= 0 && items <= n);
    char found[kwl_name_size];
    kwl_value value;
    int type = 0;
    for (int i = 0; i < items; ++i) {
        const int outcome = kwl_read(list.data(), n, i, found, &type, &value);
        require(outcome == 0 || (outcome == 1 && std::strlen(found) < sizeof found));
    }
    require(kwl_read(list.data(), n, items, found, &type, &value) == -1);
    const bool is_new = name.size() < 64 && kwl_find(list.data(), n, name.c_str()) < 0;
    std::int32_t integer = 0;
    double real = 0;
    switch (operation) {
    case 0:
        require(kwl_delete(list.data(), n, argument) == (argument < items ? 1 : 0));
        require(argument >= items || kwl_nitems(list.data(), n) <= items);
        break;
    case 1:
        if (kwl_put_int(list.data(), n, name.c_str(), argument) == 1 && is_new)
            require(kwl_get_int(list.data(), n, name.c_str(), &integer) == 1 && integer == argument);
        break;
    case 2:
        if (kwl_put_dbl(list.data(), n, name.c_str(), argument) == 1 && is_new)
            require(kwl_get_dbl(list.data(), n, name.c_str(), &real) == 1 && real == argument);
        break;
    case 3:
        kwl_put_str(list.data(), n, name.c_str(), std::string(static_cast<std::size_t>(argument), 's').c_str());
        break;
    default:
        kwl_convert(
            list.data(), n, [](void *v) { *static_cast<std::int32_t *>(v) ^= -1; },
            [](void *v) { *static_cast<std::int64_t *>(v) ^= -1; });
        require(kwl_nitems(list.data(), n) == items);
    }
    return 0;
}
