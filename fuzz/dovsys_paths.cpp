// Masks of directory listings and the splitting of paths, in a directory with a few odd names.

#include "fuzz.h"

#include "dovsys/dovsys.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {

bool enter_directory()
{
    const auto place = std::filesystem::temp_directory_path() / "dovsys_fuzz_directory";
    std::filesystem::create_directories(place / "sub.d");
    std::filesystem::current_path(place);
    for (const char *name : {"a.jrl", "plain", "data[1].iq", "*", "?", "sub.d/in.jrl"})
        std::ofstream(name) << name;
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool entered = enter_directory();
    require(entered);
    const std::string mask = text_of(data, data + size);
    std::string path = mask;
    std::string name = mask;
    splitit(mask.c_str(), path.data(), name.data());
    require(std::strlen(path.c_str()) + std::strlen(name.c_str()) <= mask.size());

    rddir_init(mask.c_str());
    for (int i = 0; i < 20; ++i) {
        const char *file = rddir(mask.c_str());
        if (file == nullptr)
            break;
        require(std::strlen(file) < 260 && std::string_view(file).starts_with(path.c_str()));
    }
    rddir_free(mask.c_str());
    return 0;
}
