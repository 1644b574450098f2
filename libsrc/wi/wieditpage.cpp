#include "wi/wieditpage.h"

#include "wi/windowtable.h"
#include "wi/wiwindow.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

constexpr int most_characters = wi_editpage_size - 2;

void show(wi_obj *wo, bool on)
{
    wi_show_window(wo->obj.editpage->editarea, on);
}

void place(wi_obj *wo, const wi_rect &r)
{
    wi_move(wo->obj.editpage->editarea, r);
}

std::string with_carriage_returns(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const char c : text.substr(0, wi_editpage_size)) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    out.resize(std::min<std::size_t>(out.size(), wi_editpage_size - 1));
    return out;
}

std::wstring wide_from_oem(std::string_view text)
{
    std::wstring wide(text.size(), L'\0'); // no character needs more than its bytes
    const int size = static_cast<int>(text.size());
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_OEMCP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

std::string oem_from_wide(std::wstring_view wide)
{
    std::string text(wide.size() * 4, '\0'); // no character needs more in any OEM set
    text.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_OEMCP, 0, wide.data(), static_cast<int>(wide.size()),
                                                     text.data(), static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

std::wstring window_text(HWND window)
{
    std::wstring text(most_characters + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), most_characters + 1)));
    return text;
}

} // namespace

const wi_type wi_editpage_row = {
    .show = show,
    .place = place,
    .focus_enter = wi_focus_past,
    .set_string = wi_editpage_putstr,
    .set_editable = wi_editpage_editable,
    .get_string = wi_editpage_getstr,
};

wi_obj *wi_mk_editpage(wi_obj *parent)
{
    wi_obj *wo = wi_new_obj(wi_type_editpage);
    auto *page = wi_new<wi_editpage>();
    wo->obj.editpage = page;
    page->editable = 1;
    parent = wi_with_own_shell(wo, parent);
    wi_attach(wo, parent);
    page->editarea = wi_create_control(
        parent, L"edit", "", WS_BORDER | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL,
        WS_EX_CLIENTEDGE, {5, 5, 5, 5}, 1);
    SendMessageW(page->editarea, EM_SETLIMITTEXT, most_characters, 0);
    SendMessageW(page->editarea, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(SYSTEM_FIXED_FONT)), TRUE);
    // Not the window but this number leads to the page, so the frame takes no part in what happens in the window.
    setwiobject(reinterpret_cast<wi_window>(static_cast<std::intptr_t>(page->editable)), wo);
    return wo;
}

void wi_editpage_putstr(wi_obj *wo, const char *str)
{
    wi_check(wo, str, wi_type_editpage, "PE 4, wieditpage.c: bad arg.", "PE 5, wieditpage.c: bad arg.");
    SetWindowTextW(wo->obj.editpage->editarea, wide_from_oem(with_carriage_returns(str)).c_str());
}

char *wi_editpage_getstr(wi_obj *wo)
{
    wi_check(wo, wi_type_editpage, "PE 6, wieditpage.c: bad arg.", "PE 7, wieditpage.c: bad arg.");
    const std::string text = oem_from_wide(window_text(wo->obj.editpage->editarea));
    char *out = c_mkstrn(wi_editpage_size), *end = out;
    for (std::size_t i = 0; i < text.size() && end < out + wi_editpage_size - 1; ++i) {
        *end++ = text[i] == '\r' ? '\n' : text[i];
        if (text[i] == '\r')
            ++i;
    }
    return out;
}

void wi_editpage_editable(wi_obj *wo, int editable)
{
    wi_check(wo, wi_type_editpage, "PE 12, wistrfld.c: bad arg.", "PE 13, wistrfld.c: bad arg.");
    SendMessageW(wo->obj.editpage->editarea, EM_SETREADONLY, !editable, 0);
    wo->obj.editpage->editable = editable;
}
