#include "wi/spcontext.h"

#include "dovsys/dovsys.h"
#include "wi/spvar.h"

#include <utility>

void (*spsm_init)(sp_context *context) = nullptr;

sp_context *sp_init_context(wi_obj *woptr, const char *name, void *ww)
{
    auto *context = static_cast<sp_context *>(jmalloc(sizeof(sp_context)));
    c_strncpy(context->name, name, sizeof context->name);
    context->ww = ww;
    context->wo_main = woptr;
    if (spsm_init != nullptr)
        spsm_init(context);
    sp_config_default(context);
    context->zz.mxstack = sp_most_zooms;
    context->zz.stackptr = -1;
    return context;
}

void sp_free_context(sp_context *context)
{
    if (context == nullptr)
        return;
    sp_config_free(context);
    sp_var_freelib(context);
    sp_err_flush(context);
    jfree(context);
}

void sp_err_add(sp_context *context, const char *err)
{
    for (const char *text : {err, "\n"})
        context->errstr = c_strcatgrow(context->errstr, text, &context->mxerrstr);
}

const char *sp_err_get(const sp_context *context)
{
    return context->errstr != nullptr ? context->errstr : " ";
}

void sp_err_flush(sp_context *context)
{
    jfree(std::exchange(context->errstr, nullptr));
    context->mxerrstr = 0;
}
