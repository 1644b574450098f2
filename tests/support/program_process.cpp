#include "program_process.h"

namespace {

struct window_search {
    DWORD process;
    std::wstring title;
    HWND found;
};

BOOL CALLBACK look_at(HWND window, LPARAM param)
{
    auto *search = reinterpret_cast<window_search *>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t title[200] = L"";
    GetWindowTextW(window, title, 200);
    if (process == search->process && IsWindowVisible(window) && title == search->title)
        search->found = window;
    return !search->found;
}

} // namespace

program_process::program_process(const std::wstring &program, const std::filesystem::path &dir,
                                 const std::wstring &arguments)
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path = path.substr(0, path.rfind(L'\\') + 1) + program;
    std::wstring line = L'"' + path + L"\" " + arguments;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES; // none: what its commands print is not the test's
    CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, dir.c_str(), &startup,
                   &process);
}

program_process::~program_process()
{
    if (!process.hProcess)
        return;
    TerminateProcess(process.hProcess, 99);
    WaitForSingleObject(process.hProcess, deadline);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

HWND program_process::window(const std::wstring &title) const
{
    window_search search = {process.dwProcessId, title, nullptr};
    EnumWindows(look_at, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND program_process::wait_for_window(const std::wstring &title) const
{
    wait_until([&] { return window(title) != nullptr; });
    return window(title);
}

bool program_process::has_focus(HWND control) const
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    return wait_until([&] { return GetGUIThreadInfo(process.dwThreadId, &info) && info.hwndFocus == control; });
}

int program_process::exit_status() const
{
    DWORD status = STILL_ACTIVE;
    wait_for_end(deadline);
    GetExitCodeProcess(process.hProcess, &status);
    return static_cast<int>(status);
}

LRESULT send(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, deadline, &result);
    return static_cast<LRESULT>(result);
}

HWND child(HWND parent, const wchar_t *class_name, const std::wstring &start_of_text)
{
    HWND found = nullptr;
    while ((found = FindWindowExW(parent, found, class_name, nullptr)) && !text_of(found).starts_with(start_of_text)) {
    }
    return found;
}

std::wstring text_of(HWND window)
{
    std::wstring text(3000, L'\0');
    text.resize(static_cast<std::size_t>(
        send(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void press(HWND button)
{
    send(GetParent(button), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED), reinterpret_cast<LPARAM>(button));
}
