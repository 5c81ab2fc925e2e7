#include "win/registry_ide_options.h"

#include "base/text.h"
#include "win/registry.h"

namespace tavrin::win {
namespace {

constexpr int kMinimumTabWidth = 1;
constexpr int kMaximumTabWidth = 32;

std::optional<int> InRange(long long width) {
  if (width < kMinimumTabWidth || width > kMaximumTabWidth) return std::nullopt;
  return static_cast<int>(width);
}

}  // namespace

std::optional<int> RegistryIdeOptions::TabWidth() {
  const UniqueHkey key = OpenUserKey(key_path_, KEY_QUERY_VALUE);
  if (!key) return std::nullopt;
  if (const auto number = ReadDwordValue(key.get(), L"TabWidth")) {
    return InRange(*number);
  }
  if (const auto text = ReadStringValue(key.get(), L"TabWidth")) {
    const std::string utf8 = WideToUtf8(*text);
    if (IsBlankOrEmpty(utf8)) return std::nullopt;
    return InRange(LeadingNumber(utf8));
  }
  return std::nullopt;
}

}  // namespace tavrin::win
