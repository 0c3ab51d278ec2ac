#include "run/vector_registers.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace tovak::run {

#if defined(__x86_64__)

namespace {

[[gnu::target("avx")]] void clearAvxUpperHalves() {
  _mm256_zeroupper();
}

}  // namespace

void clearUpperVectorHalves() {
  if (__builtin_cpu_supports("avx") != 0) clearAvxUpperHalves();
}

#else

void clearUpperVectorHalves() {}

#endif

}  // namespace tovak::run
