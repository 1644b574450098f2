// What tests need of the process around them.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#ifdef _WIN32
#include <io.h>
constexpr int status_minus_one = -1;
#else
#include <unistd.h>
constexpr int status_minus_one = 255;
#endif

// Sets an environment variable, or removes it when value is null.
inline void set_environment(const char *name, const char *value)
{
#ifdef _WIN32
    _putenv_s(name, value != nullptr ? value : "");
#else
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
#endif
}

// The statement must end the process with the status and a message on standard output or error that matches the
// pattern; death tests look at standard error only.
#define EXPECT_ENDS(statement, status, pattern)                                                                        \
    EXPECT_EXIT((dup2(2, 1), statement), testing::ExitedWithCode(status), pattern)
