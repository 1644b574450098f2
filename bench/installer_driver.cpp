// Drives xinstall.exe from outside, for bench/ours. The installer has no clock of its own in it.
//   installer_driver drive LOCATION      waits for the installer, which somebody else starts in a moment, installs
//                                        to LOCATION through its window, and acknowledges
//   installer_driver commands LOCATION   runs only the commands that the installation is told to run
// Prints "ready", then "painted T", T in microseconds since 1970, then "installed T", T in milliseconds.
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr DWORD patience_ms = 20000;

// Microseconds since 1970, the clock of the shell that starts the installer.
std::uint64_t now_us()
{
    FILETIME ft;
    GetSystemTimePreciseAsFileTime(&ft);
    const std::uint64_t ticks = (static_cast<std::uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
    return (ticks - 116444736000000000ull) / 10;
}

void say(const char *what, double value)
{
    std::printf("%s %.3f\n", what, value);
    std::fflush(stdout);
}

[[noreturn]] void give_up(const char *what)
{
    std::fprintf(stderr, "installer_driver: %s\n", what);
    std::exit(1);
}

// Looks every millisecond until found() is true.
template <class Found>
void wait_for(const char *what, Found found)
{
    for (const ULONGLONG end = GetTickCount64() + patience_ms; !found(); Sleep(1))
        if (GetTickCount64() > end)
            give_up(what);
}

struct Control {
    const char *class_name, *text; // a null text stands for any
    HWND window;
};

BOOL CALLBACK match(HWND window, LPARAM param)
{
    Control &wanted = *reinterpret_cast<Control *>(param);
    std::array<char, 64> name{}, text{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    if (lstrcmpiA(name.data(), wanted.class_name) != 0)
        return TRUE;
    SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    if (wanted.text != nullptr && std::strcmp(text.data(), wanted.text) != 0)
        return TRUE;
    wanted.window = window;
    return FALSE;
}

HWND control(HWND top, const char *class_name, const char *text)
{
    Control wanted{class_name, text, nullptr};
    EnumChildWindows(top, match, reinterpret_cast<LPARAM>(&wanted));
    if (wanted.window == nullptr)
        give_up("a control is missing");
    return wanted.window;
}

BOOL CALLBACK is_painted(HWND window, LPARAM)
{
    return GetUpdateRect(window, nullptr, FALSE) == 0;
}

// First paint is over when the installer waits for input for the first time, with its window visible and nothing left
// to paint in it or in any control.
void wait_for_paint(HWND top, HANDLE process)
{
    WaitForInputIdle(process, patience_ms);
    wait_for("the window is not painted",
             [&] { return IsWindowVisible(top) && is_painted(top, 0) && EnumChildWindows(top, is_painted, 0); });
}

void drive(const char *location)
{
    HWND top = nullptr;
    wait_for("no installer", [&] { return (top = FindWindowA(nullptr, " ")) != nullptr; });
    DWORD id = 0;
    GetWindowThreadProcessId(top, &id);
    const HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, id);
    wait_for_paint(top, process);
    say("painted", static_cast<double>(now_us()));

    SendMessageA(control(top, "edit", nullptr), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(location));
    const HWND ok = control(top, "button", "OK");
    HWND message = nullptr;
    const std::uint64_t start = now_us();
    SendMessageA(ok, BM_CLICK, 0, 0); // comes back when the installation is done
    wait_for("no pop-up", [&] {
        message = FindWindowA(nullptr, "Message");
        return message != nullptr && IsWindowVisible(message);
    });
    say("installed", static_cast<double>(now_us() - start) / 1e3);

    PostMessageA(control(message, "button", "ACKNOWLEDGE"), BM_CLICK, 0, 0);
    if (WaitForSingleObject(process, patience_ms) != WAIT_OBJECT_0)
        give_up("the installer does not end");
}

void commands(const std::string &location)
{
    const std::string place = location + "\\TANSY_DEMO", quote = "\"";
    const std::string batch = quote + place + "\\TANSY_DEMO_install.bat\"";
    const std::array<std::string, 6> all = {"del \"" + location + "\\test.tmp\"",
                                            "mkdir \"" + place + quote,
                                            "copy TANSY_DEMO.env \"" + place + "\\TANSY_DEMO.env\"",
                                            "copy TANSY_DEMO_install.bat " + batch,
                                            batch,
                                            "del " + batch};
    const std::uint64_t start = now_us();
    if (std::FILE *probe = std::fopen((location + "\\test.tmp").c_str(), "w"))
        std::fclose(probe);
    for (const std::string &command : all)
        std::system(command.c_str());
    say("installed", static_cast<double>(now_us() - start) / 1e3);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string_view mode = argc == 3 ? argv[1] : "";
    if (mode != "drive" && mode != "commands")
        give_up("usage: installer_driver drive|commands LOCATION");
    say("ready", 0);
    if (mode == "drive")
        drive(argv[2]);
    else
        commands(argv[2]);
    return 0;
}
