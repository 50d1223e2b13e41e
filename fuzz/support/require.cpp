#include "fuzz/support/require.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz: this condition is false: %s\n", what);
    std::abort();
}

} // namespace fuzz
