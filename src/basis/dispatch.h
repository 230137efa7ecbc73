#pragma once

// CROWNLAB_WIDE marks a function of which the compiler makes a second version for processors with wider
// registers, chosen once when the program starts. Both do the same operations in the same order, without
// fused ones, so their results are the same to the bit.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define CROWNLAB_WIDE __attribute__((target_clones("avx2", "default")))
#define CROWNLAB_INLINE inline __attribute__((always_inline))
#else
#define CROWNLAB_WIDE
#define CROWNLAB_INLINE inline
#endif
