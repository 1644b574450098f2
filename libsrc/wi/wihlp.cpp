#include "wi/wihlp.h"

namespace {

int helpeditable;

}

void wi_hlp_setstr(wi_obj *, const char *) {}

void wi_hlp_srch(wi_obj *) {}

void wi_hlp_editable(int editable)
{
    helpeditable = editable;
}

int wi_hlp_iseditable()
{
    return helpeditable;
}
