// The toolkit's tests run where applications run: in the main that the frame calls. Its vector lacks the program's
// name and the final null that GoogleTest wants, so the process's own is used.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "wi/wi.h"

int main(int, char **)
{
    // A test starts this program once more to look at the box in which a program error ends.
    if (__argc > 1 && std::strcmp(__argv[1], "--end-with-error") == 0)
        wi_label(nullptr, "");
    testing::InitGoogleTest(&__argc, __argv);
    std::exit(RUN_ALL_TESTS());
}
