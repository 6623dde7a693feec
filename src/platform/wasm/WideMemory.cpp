// The functions of the C library on which wide text rests, in place of musl's, which take one
// character at a time.
#include <wasm_simd128.h>

#include <cstddef>

extern "C" {

wchar_t* wmemset(wchar_t* to, wchar_t c, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) to[i] = c;  // compilers make vectors of it
  return to;
}

wchar_t* wmemchr(const wchar_t* text, wchar_t c, std::size_t count) {
  constexpr std::size_t kLanes = sizeof(v128_t) / sizeof(wchar_t);
  const v128_t wanted = wasm_i32x4_splat(c);
  std::size_t at = 0;
  for (; at + kLanes <= count; at += kLanes) {
    if (wasm_v128_any_true(wasm_i32x4_eq(wasm_v128_load(text + at), wanted))) break;
  }
  while (at < count && text[at] != c) ++at;
  return at < count ? const_cast<wchar_t*>(text + at) : nullptr;
}
}
