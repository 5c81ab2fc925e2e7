// Small helpers shared by the fuzz targets.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tavrin::fuzz {

// An invariant that failed: report it and stop, so libFuzzer keeps the input.
[[noreturn]] inline void Violated(std::string_view what) {
  std::fprintf(stderr, "invariant violated: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

inline void Check(bool holds, std::string_view what) {
  if (!holds) Violated(what);
}

// Splits the fuzzer's bytes into a leading selector byte and the rest.
struct Input {
  unsigned char selector = 0;
  std::string_view rest;
};

inline Input TakeSelector(const unsigned char* data, std::size_t size) {
  if (size == 0) return {};
  return {data[0], std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1)};
}

}  // namespace tavrin::fuzz
