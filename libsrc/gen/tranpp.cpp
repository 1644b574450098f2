#include "gen/tranpp.h"

void tranpp(double *coe, int n, double dt)
{
    if (coe == nullptr)
        return;
    for (int done = 0; done < n - 1; ++done)
        for (int i = n - 2; i >= done; --i)
            coe[i] += dt * coe[i + 1];
}
