#include "Rendering/Images/PixelMask.hpp"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace rendering {

namespace {

std::uint64_t equalBits(const std::uint32_t* a, const std::uint32_t* b, int count) {
  std::uint64_t bits = 0;
  int i = 0;
#if defined(__SSE2__)
  constexpr int kAtOnce = 16;
  for (; i + kAtOnce <= count; i += kAtOnce) {
    const auto equal = [a = a + i, b = b + i](int at) {
      return _mm_cmpeq_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + at)),
                             _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + at)));
    };
    const __m128i bytes =
        _mm_packs_epi16(_mm_packs_epi32(equal(0), equal(4)), _mm_packs_epi32(equal(8), equal(12)));
    bits |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(bytes))} << i;
  }
#endif
  for (; i < count; ++i) bits |= std::uint64_t{a[i] == b[i]} << i;
  return bits;
}

}  // namespace

void PixelMask::compare(const std::uint32_t* pixels, const std::uint32_t* others, int count) {
  std::uint64_t* word = words_.data();
  for (; count >= kBits; count -= kBits, pixels += kBits, others += kBits) {
    *word++ = equalBits(pixels, others, kBits);
  }
  *word = equalBits(pixels, others, count);
}

}  // namespace rendering
