// Varnix, the expression language: values, variables, formulas and scripts. Nothing in it is safe to call from two
// threads at once. Kinds, operators and functions are explained for users in docs/varnix.md.
//
//     sp_context *context = sp_init_context(nullptr, "demo", nullptr);
//     sp_script_line(context, "X = SEQ(1, 2, 3)", 1);
//     sp_value *value = sp_eval_formula(context, "X*2 + 1");
//     sp_free_value(value);
//     sp_free_context(context);
#pragma once

#include "wi/spcombine.h"
#include "wi/spconfig.h"
#include "wi/spcontext.h"
#include "wi/spconvert.h"
#include "wi/speval.h"
#include "wi/spfields.h"
#include "wi/spfunc.h"
#include "wi/spget.h"
#include "wi/spolist.h"
#include "wi/spparse.h"
#include "wi/spplot.h"
#include "wi/spscript.h"
#include "wi/sputil.h"
#include "wi/spvar.h"
