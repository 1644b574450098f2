// Memory of large arrays, kept between values: handing it back to the system and having it faulted in again costs more
// than the arithmetic done in it. A few blocks of limited size together; none while memory accounting is on, so that
// the account tells what is held.
#pragma once

// New array of npts elements that are not set; npts >= 1. Freed with jfree() or sp_pool_give(). Null when there is not
// as much memory.
double *sp_pool_take(int npts);

// Frees an array with room for npts elements, or keeps it. Null is ignored.
void sp_pool_give(double *ary, int npts);

// Frees what is kept.
void sp_pool_flush();
