// Conversion of values between kinds.
#pragma once

#include "wi/spcontext.h"

// New value of the kind made from val, which stays the caller's; null counts as a value of kind NULL.
//
//   from     ARRAY                    ENAME      STRING                 SCALER           ERROR
//   ARRAY    copy                     "ARRAY"    first element printed  first element    "Manufactured error."
//   ENAME    one element 0            the same   the name               0                "Manufactured error."
//   STRING   one element, as read     "STRING"   copy                   as read          "Manufactured error."
//   SCALER   one element, the number  "SCALER"   the number printed     copy             "Manufactured error."
//   ERROR    an ERROR with a copy of the message, whatever the kind
//   NULL     one element 0            "NULL"     "NULL"                 0                "Manufactured error (NULL)."
//
// What is made from NULL stays of kind NULL and has the payload besides. NULL as the kind gives a blank value, and so
// does a kind that does not exist. An array without elements has a first element 0.
sp_value *sp_convert(sp_context *context, const sp_value *val, int kind);
