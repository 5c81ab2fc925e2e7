#include "formtools/access_keys.h"

#include <algorithm>

#include "base/text.h"
#include "ide/ignore_errors.h"

namespace tavrin::formtools {
namespace {

std::string PropertyValue(ide::IControl& control, std::string_view name) {
  return control.Properties()->Item(name)->Value();
}

void SetProperty(ide::IControl& control, std::string_view name, std::string_view value) {
  control.Properties()->Item(name)->SetValue(value);
}

void AddUse(std::vector<AccessKeyUse>& uses, const std::shared_ptr<ide::IControl>& control,
            std::string_view caption, int tab) {
  if (auto key = AccessKeyOf(caption)) uses.push_back({std::move(*key), control, tab});
}

// Every tab's caption, the container showing its old tab again afterwards.
void CollectTabs(std::vector<AccessKeyUse>& uses, const std::shared_ptr<ide::IControl>& control) {
  const std::string current = PropertyValue(*control, "Tab");
  const long long tabs =
      std::clamp<long long>(LeadingNumber(PropertyValue(*control, "Tabs")), 0, kMaxTabs);
  for (int tab = 0; tab < tabs; ++tab) {
    SetProperty(*control, "Tab", std::to_string(tab));
    AddUse(uses, control, PropertyValue(*control, "Caption"), tab);
  }
  SetProperty(*control, "Tab", current);
}

// Runs `step` with the container showing the use's tab.
template <class Step>
void OnUsesTab(const AccessKeyUse& use, Step&& step) {
  if (use.tab < 0) {
    step();
    return;
  }
  const std::string current = PropertyValue(*use.control, "Tab");
  SetProperty(*use.control, "Tab", std::to_string(use.tab));
  step();
  SetProperty(*use.control, "Tab", current);
}

}  // namespace

std::optional<std::string> AccessKeyOf(std::string_view caption) {
  const std::size_t amp = caption.find('&');
  if (amp == std::string_view::npos) return std::nullopt;
  // Padded, so that a caption ending in "&" gives a blank.
  const std::string padded = std::string(caption) + "  ";
  const std::size_t at = amp + 1;
  std::size_t length = 1;
  while (at + length < padded.size() &&
         (static_cast<unsigned char>(padded[at + length]) & 0xC0) == 0x80)
    ++length;
  return ToUpperAscii(std::string_view(padded).substr(at, length));
}

bool HasControlProperty(ide::IControl& control, std::string_view property_name) {
  return ide::IgnoreErrors([&] { PropertyValue(control, property_name); });
}

std::string ControlDisplayName(ide::IControl& control) {
  std::string name = PropertyValue(control, "Name");
  if (HasControlProperty(control, "Index")) {
    const std::string index = PropertyValue(control, "Index");
    if (!index.empty() && index != "-1") name += "(" + index + ")";
  }
  return name;
}

std::string CaptionDisplayName(const AccessKeyUse& use) {
  std::string name = ControlDisplayName(*use.control);
  if (use.tab >= 0) name += ".TabCaption(" + std::to_string(use.tab) + ")";
  return name;
}

std::vector<AccessKeyUse> CollectAccessKeys(ide::IDesigner& designer) {
  std::vector<AccessKeyUse> uses;
  const auto controls = designer.VBControls();
  const int count = controls->Count();
  for (int i = 1; i <= count; ++i) {
    const auto control = controls->Item(i);
    // A control that lacks a property is skipped silently.
    ide::IgnoreErrors([&] {
      // A tabbed container's Caption is its current tab's, met among the tabs.
      if (HasControlProperty(*control, "Tabs")) {
        CollectTabs(uses, control);
      } else if (HasControlProperty(*control, "Caption")) {
        AddUse(uses, control, PropertyValue(*control, "Caption"), -1);
      }
    });
  }
  return uses;
}

std::vector<ShortcutConflict> FindShortcutConflicts(const std::vector<AccessKeyUse>& uses) {
  std::vector<ShortcutConflict> conflicts;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    ShortcutConflict conflict{letter, {}};
    for (auto use = uses.rbegin(); use != uses.rend(); ++use)
      if (use->key.size() == 1 && use->key[0] == letter) conflict.uses.push_back(*use);
    if (conflict.uses.size() > 1) conflicts.push_back(std::move(conflict));
  }
  return conflicts;
}

std::string ReadCaption(const AccessKeyUse& use) {
  std::string caption;
  OnUsesTab(use, [&] { caption = PropertyValue(*use.control, "Caption"); });
  return caption;
}

void WriteCaption(const AccessKeyUse& use, std::string_view caption) {
  OnUsesTab(use, [&] { SetProperty(*use.control, "Caption", caption); });
}

}  // namespace tavrin::formtools
