// Word splitting: both ways agree, nothing of the text is lost, and what c_words_new() leaves behind is one copy of
// each word.

#include "fuzz.h"

#include "dovsys/dovsys.h"
#include "support/allocator_watch.h"

namespace {

bool is_kept(char c)
{
    return c != ' ' && c != '\t' && c != '\n';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text = text_of(data, data + size);
    const allocator_watch watch;
    char **words = c_words_new(text.c_str());
    std::string copy = text;
    char **split = c_words(copy.data());
    const int count = c_listlen(words);
    require(count == c_listlen(split));
    std::string joined;
    for (int i = 0; i < count; ++i) {
        require(c_iseq(words[i], split[i]) == 1 && *words[i] != '\0');
        joined += words[i];
    }
    require(std::count_if(joined.begin(), joined.end(), is_kept) == std::count_if(text.begin(), text.end(), is_kept));
    c_freelist(words);
    c_freelist(split);
    require(watch.live() == static_cast<std::size_t>(count));
    return 0;
}
