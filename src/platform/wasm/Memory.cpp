// The functions of the C library on which text rests, in place of musl's, which take one character
// or one word at a time. Compiled so that no loop here becomes a call of the function that it makes
// up. Most of what a conversion copies and fills has fewer bytes than a block: two words that may
// overlap serve any number of them, without a loop.
#include <wasm_simd128.h>

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::size_t kBlock = sizeof(v128_t);

// At any address, whatever type lies there.
template <class Word>
struct [[gnu::packed, gnu::may_alias]] Anywhere {
  Word word;
};

// `count` bytes from one word's length to two: its first and its last word, which may overlap.
template <class Word>
void CopyEnds(char* to, const char* from, std::size_t count) {
  const std::size_t last = count - sizeof(Word);
  const auto first = *reinterpret_cast<const Anywhere<Word>*>(from);
  *reinterpret_cast<Anywhere<Word>*>(to + last) =
      *reinterpret_cast<const Anywhere<Word>*>(from + last);
  *reinterpret_cast<Anywhere<Word>*>(to) = first;
}

// One, two or three bytes: the first, the one in the middle and the last.
void CopyFew(char* to, const char* from, std::size_t count) {
  const char first = from[0], middle = from[count / 2], last = from[count - 1];
  to[0] = first;
  to[count / 2] = middle;
  to[count - 1] = last;
}

void CopyBlocks(char* to, const char* from, std::size_t count) {
  const v128_t last = wasm_v128_load(from + count - kBlock);
  for (std::size_t at = 0; at + kBlock < count; at += kBlock) {
    wasm_v128_store(to + at, wasm_v128_load(from + at));
  }
  wasm_v128_store(to + count - kBlock, last);
}

// As the copies, of one byte.
template <class Word>
void FillEnds(char* to, Word word, std::size_t count) {
  reinterpret_cast<Anywhere<Word>*>(to)->word = word;
  reinterpret_cast<Anywhere<Word>*>(to + count - sizeof(Word))->word = word;
}

void FillBlocks(char* to, unsigned char byte, std::size_t count) {
  const v128_t block = wasm_i8x16_splat(static_cast<std::int8_t>(byte));
  for (std::size_t at = 0; at + kBlock < count; at += kBlock) wasm_v128_store(to + at, block);
  wasm_v128_store(to + count - kBlock, block);
}

// The lanes of bytes that are `wanted`, a bit each from the lowest.
std::uint32_t FindByte(const char* block, v128_t wanted) {
  return wasm_i8x16_bitmask(wasm_i8x16_eq(wasm_v128_load(block), wanted));
}

std::size_t LowestBit(std::uint32_t bits) {
  return static_cast<std::size_t>(__builtin_ctz(bits));
}

}  // namespace

extern "C" {

void* memcpy(void* __restrict to, const void* __restrict from, std::size_t count) {
  auto* const bytes = static_cast<char*>(to);
  const auto* const source = static_cast<const char*>(from);
  if (count >= kBlock) {
    CopyBlocks(bytes, source, count);
  } else if (count >= sizeof(std::uint64_t)) {
    CopyEnds<std::uint64_t>(bytes, source, count);
  } else if (count >= sizeof(std::uint32_t)) {
    CopyEnds<std::uint32_t>(bytes, source, count);
  } else if (count > 0) {
    CopyFew(bytes, source, count);
  }
  return to;
}

void* memset(void* to, int c, std::size_t count) {
  auto* const bytes = static_cast<char*>(to);
  const auto c8 = static_cast<unsigned char>(c);
  if (count >= kBlock) {
    FillBlocks(bytes, c8, count);
  } else if (count >= sizeof(std::uint64_t)) {
    FillEnds(bytes, c8 * std::uint64_t{0x0101010101010101}, count);
  } else if (count >= sizeof(std::uint32_t)) {
    FillEnds(bytes, c8 * std::uint32_t{0x01010101}, count);
  } else if (count > 0) {
    bytes[0] = bytes[count / 2] = bytes[count - 1] = static_cast<char>(c8);
  }
  return to;
}

void* memchr(const void* memory, int c, std::size_t count) {
  const auto* const bytes = static_cast<const char*>(memory);
  const v128_t wanted = wasm_i8x16_splat(static_cast<std::int8_t>(c));
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) {
    const std::uint32_t found = FindByte(bytes + at, wanted);
    if (found != 0) return const_cast<char*>(bytes + at + LowestBit(found));
  }
  while (at < count && bytes[at] != static_cast<char>(c)) ++at;
  return at < count ? const_cast<char*>(bytes + at) : nullptr;
}

std::size_t strlen(const char* text) {
  // Blocks of aligned addresses end where memory ends; of the first one what precedes is left out.
  const std::size_t before = reinterpret_cast<std::uintptr_t>(text) % kBlock;
  const char* block = text - before;
  std::uint32_t found = FindByte(block, wasm_i8x16_splat(0)) >> before << before;
  while (found == 0) found = FindByte(block += kBlock, wasm_i8x16_splat(0));
  return static_cast<std::size_t>(block - text) + LowestBit(found);
}

wchar_t* wmemset(wchar_t* to, wchar_t c, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) to[i] = c;  // compilers make vectors of it
  return to;
}

wchar_t* wmemchr(const wchar_t* text, wchar_t c, std::size_t count) {
  constexpr std::size_t kLanes = kBlock / sizeof(wchar_t);
  const v128_t wanted = wasm_i32x4_splat(c);
  std::size_t at = 0;
  for (; at + kLanes <= count; at += kLanes) {
    if (wasm_v128_any_true(wasm_i32x4_eq(wasm_v128_load(text + at), wanted))) break;
  }
  while (at < count && text[at] != c) ++at;
  return at < count ? const_cast<wchar_t*>(text + at) : nullptr;
}
}
