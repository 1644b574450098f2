#include "installer_process.h"

namespace {

constexpr UINT deadline = 30000; // milliseconds

template <class Condition>
bool wait_until(Condition condition)
{
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < deadline; Sleep(3))
        if (condition())
            return true;
    return false;
}

LRESULT send(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, deadline, &result);
    return static_cast<LRESULT>(result);
}

// For the visible window of a process that has buttons: the pop-up or the other one.
struct window_search {
    DWORD process;
    bool popup;
    HWND found;
};

std::wstring title_of(HWND window)
{
    std::wstring title(200, L'\0');
    title.resize(static_cast<std::size_t>(GetWindowTextW(window, title.data(), 200)));
    return title;
}

BOOL CALLBACK look_at(HWND window, LPARAM param)
{
    auto *search = reinterpret_cast<window_search *>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const bool popup = title_of(window) == L"Message";
    if (process == search->process && IsWindowVisible(window) && popup == search->popup &&
        FindWindowExW(window, nullptr, L"Button", nullptr))
        search->found = window;
    return !search->found;
}

} // namespace

installer_process::installer_process(const std::filesystem::path &dir, const std::wstring &arguments)
{
    std::wstring program(MAX_PATH, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
    program = program.substr(0, program.rfind(L'\\') + 1) + L"xinstall.exe";
    std::wstring line = L'"' + program + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES; // none: what the commands print is not the test's
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, dir.c_str(),
                       &startup, &process))
        wait_until([this] { return (window = main_window()) && !prompt().empty(); });
}

installer_process::~installer_process()
{
    if (!process.hProcess)
        return;
    TerminateProcess(process.hProcess, 99);
    WaitForSingleObject(process.hProcess, deadline);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void installer_process::set_location(const std::wstring &location) const
{
    send(child(window, L"Edit"), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(location.c_str()));
}

void installer_process::type_location(const std::wstring &location) const
{
    HWND field = child(window, L"Edit");
    send(field, EM_SETSEL, 0, -1);
    for (const wchar_t c : location)
        PostMessageW(field, WM_CHAR, c, 1);
    wait_until([&] { return text_of(field).size() >= location.size(); });
}

void installer_process::press(const wchar_t *caption) const
{
    HWND pressed = button(caption);
    send(GetParent(pressed), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(pressed), BN_CLICKED),
         reinterpret_cast<LPARAM>(pressed));
}

void installer_process::click(const wchar_t *caption) const
{
    PostMessageW(button(caption), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(button(caption), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}

void installer_process::click_to_end(const wchar_t *caption) const
{
    wait_until([&] {
        click(caption);
        return WaitForSingleObject(process.hProcess, 1000) == WAIT_OBJECT_0;
    });
}

bool installer_process::wait_for_message() const
{
    return wait_until([this] { return has_message(); });
}

std::wstring installer_process::message() const
{
    return has_message() ? text_of(child(popup(), L"Static")) : L"(no message)";
}

int installer_process::message_height() const
{
    RECT rect = {};
    GetWindowRect(popup(), &rect);
    return static_cast<int>(rect.bottom - rect.top);
}

bool installer_process::has_focus(HWND control) const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    return wait_until([&] { return GetGUIThreadInfo(thread, &info) && info.hwndFocus == control; });
}

int installer_process::exit_status() const
{
    DWORD status = STILL_ACTIVE;
    WaitForSingleObject(process.hProcess, deadline);
    GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}

HWND installer_process::main_window() const
{
    window_search search = {process.dwProcessId, false, nullptr};
    EnumWindows(look_at, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND installer_process::popup() const
{
    window_search search = {process.dwProcessId, true, nullptr};
    EnumWindows(look_at, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND installer_process::button(const wchar_t *caption) const
{
    HWND in_window = child(window, L"Button", caption);
    return in_window ? in_window : child(popup(), L"Button", caption);
}

HWND installer_process::child(HWND parent, const wchar_t *class_name, const std::wstring &start_of_text)
{
    HWND found = nullptr;
    while ((found = FindWindowExW(parent, found, class_name, nullptr)) && !text_of(found).starts_with(start_of_text)) {
    }
    return found;
}

std::wstring installer_process::text_of(HWND window)
{
    std::wstring text(3000, L'\0');
    text.resize(static_cast<std::size_t>(
        send(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}
