// What the toolkit adds to the window system: a form with labelled string fields is built, shown and resized.
//   gui_bench N RESIZES   N windows of controls (N / 2 fields), then RESIZES sizes of the window
//   gui_bench lookup      windows found in a table of 20 and of 20000
//   gui_bench record      actions recorded with the values of 480 fields, and as many bytes written as one record has
//   gui_bench record      actions recorded with the values of 480 fields, and the same bytes written once each
// Prints tab-separated lines: case, "ours", n, metric, value. Of a resize the mean over the sizes is printed.
#include <windows.h>

#include "dovsys/dovsys.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "wi/wi.h"

namespace {

double now_ms()
{
    LARGE_INTEGER frequency, ticks;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&ticks);
    return 1e3 * static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void print(const char *bench_case, int n, const char *metric, double value)
{
    std::printf("%s\tours\t%d\t%s\t%.6g\n", bench_case, n, metric, value);
    std::fflush(stdout);
}

void drain()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    GdiFlush();
}

wi_obj *build(int controls)
{
    const int fields = controls / 2;
    const int columns = (controls <= 200 ? 10 : controls <= 1000 ? 20 : 50) / 2;
    const int rows = (fields + columns - 1) / columns;
    wi_obj *form = wi_mk_form(nullptr, columns, rows);
    SetWindowPos(form->shell->handle, nullptr, 20, 20, 900, 700, SWP_NOZORDER | SWP_NOACTIVATE);
    for (int i = 0; i < fields; ++i) {
        const int column = i % columns, row = i / columns;
        wi_obj *area = wi_form_parent(form, column, row, column + 1, row + 1);
        wi_obj *field = wi_mk_strfld(area, ("label " + std::to_string(i)).c_str(), 0.5);
        wi_strfld_putstr(field, ("value " + std::to_string(i)).c_str());
    }
    return form;
}

void measure_gui(int controls, int resizes, bool report)
{
    double start = now_ms();
    wi_obj *form = build(controls);
    const double created = now_ms() - start;

    start = now_ms();
    wi_on(form);
    drain();
    const double shown = now_ms() - start;

    const HWND window = form->shell->handle;
    start = now_ms();
    for (int k = 0; k < resizes; ++k) {
        SetWindowPos(window, nullptr, 0, 0, 700 + 13 * ((k * 7 + 3) % 20), 500 + 11 * ((k * 3 + 1) % 20),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        UpdateWindow(window);
        drain();
    }
    const double resized = (now_ms() - start) / resizes;
    wi_off(form);
    if (!report)
        return;
    print("gui-build", controls, "ms-create", created);
    print("gui-build", controls, "ms-show", shown);
    print("gui-build", controls, "ms-resize-move-norepaint", resized);
}

// Handles as a platform hands them out, spread over the range.
HWND handle(int i)
{
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(0x10020 + i * 6));
}

void measure_lookup(int windows)
{
    constexpr int rounds = 5000000;
    static wi_obj owner;
    static int registered;
    while (registered < windows)
        setwiobject(handle(registered++), &owner);
    unsigned found = 0, at = 1;
    const double start = now_ms();
    for (int i = 0; i < rounds; ++i) {
        at = at * 1664525 + 1013904223;
        found += getwiobject(handle(static_cast<int>(at >> 8) % windows)) != nullptr;
    }
    const double elapsed = now_ms() - start;
    if (found == rounds)
        print("getwiobject", windows, "ns", elapsed * 1e6 / rounds);
}

// The mean over many calls, in microseconds.
template <class Function>
double us_each(int times, Function function)
{
    const double start = now_ms();
    for (int i = 0; i < times; ++i)
        function();
    return (now_ms() - start) * 1e3 / times;
}

void write_bytes(const char *name, const std::string &bytes)
{
    std::FILE *file = std::fopen(name, "ab");
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

std::size_t size_of(const char *name)
{
    std::FILE *file = std::fopen(name, "rb");
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    std::fclose(file);
    return static_cast<std::size_t>(size);
}

void measure_record()
{
    constexpr int fields = 480, times = 200;
    wi_journal_init("bench", "gui_bench.jrl", nullptr);
    build(2 * fields);
    wi_obj *button = wi_mk_button(wi_form_parent(wi_mk_form(nullptr, 1, 1), 0, 0, 1, 1), "Go", 0, nullptr, 0);
    wi_journal_write(button, 0);
    const double recorded = us_each(times, [button] { wi_journal_write(button, 0); });
    const std::string bytes(size_of("gui_bench.jrl") / (times + 1), 'x');
    const double written = us_each(times, [&bytes] { write_bytes("gui_bench.raw", bytes); });
    std::remove("gui_bench.jrl");
    std::remove("gui_bench.raw");
    print("journal-record", fields, "us-a-record", recorded);
    print("journal-record", fields, "us-its-bytes-written", written);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 1 && std::strcmp(argv[1], "lookup") == 0) {
        measure_lookup(20);
        measure_lookup(20000);
        std::exit(0);
    }
    if (argc == 1 && std::strcmp(argv[1], "record") == 0) {
        measure_record();
        std::exit(0);
    }
    if (argc != 2)
        std::exit(2);
    measure_gui(20, 1, false); // loads fonts and libraries
    measure_gui(std::atoi(argv[1]), std::max(1, std::atoi(argv[2])), true);
    std::exit(0);
}
