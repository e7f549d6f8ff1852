#pragma once

#include <cstdio>
#include <cstdlib>

// A broken invariant: say which, then abort so that libFuzzer keeps the input.
#define BQ_FUZZ_CHECK(condition)                                                         \
  do {                                                                                   \
    if (!(condition)) {                                                                  \
      std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                      \
    }                                                                                    \
  } while (false)
