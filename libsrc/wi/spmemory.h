// Memory that the language keeps between formulas.
#pragma once

// Frees it.
void sp_release_memory();
