#pragma once

// glib names a struct member "signals", which Qt defines as a keyword.
#pragma push_macro("signals")
#undef signals
#include <arv.h>
#pragma pop_macro("signals")
