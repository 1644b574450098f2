#include "wi/wistart.h"

#include "dovsys/dovsys.h"
#include "wi/wihlp.h"
#include "wi/wiwindow.h"

void wi_main_init(int *argc, char **argv)
{
    if (*argc > 1 && c_iseq(argv[*argc - 1], "helpedit")) {
        wi_hlp_editable(1);
        --*argc;
    }
}

int getcharheight()
{
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, wi_message_font(GetDpiForSystem()));
    TEXTMETRICA metrics{};
    GetTextMetricsA(screen, &metrics);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    return metrics.tmHeight;
}

void wi_run() {}

void wi_working() {}

void wi_popmsg_init() {}

void wi_init_check() {}

void HCLXmInit() {}
