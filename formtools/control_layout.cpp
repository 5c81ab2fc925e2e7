#include "formtools/control_layout.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "base/text.h"
#include "formtools/access_keys.h"
#include "ide/ignore_errors.h"

namespace tavrin::formtools {
namespace {

struct ControlKind {
  std::string_view type;
  std::string_view prefix;
  int width;
  int height;
  bool own_caption;  // a check box shows its caption itself
};

// Sizes in twips as the IDE's toolbox draws them at the default font.
constexpr ControlKind kKinds[] = {
    {"TextBox", "txt", 2535, 285, false},    {"ComboBox", "cbo", 2535, 315, false},
    {"ListBox", "lst", 2535, 840, false},    {"CheckBox", "chk", 2535, 255, true},
    {"OptionButton", "opt", 2535, 255, true},
};

constexpr int kMargin = 120;       // from the form's edge and between rows
constexpr int kLabelWidth = 1575;
constexpr int kLabelHeight = 255;
constexpr int kColumnGap = 120;

const ControlKind* KindOf(std::string_view type) {
  for (const ControlKind& kind : kKinds)
    if (EqualsIgnoreCase(kind.type, type)) return &kind;
  return nullptr;
}

// A control name: a letter, then letters, digits and underscores, at most
// 40 characters as the IDE allows.
bool IsControlName(std::string_view name) {
  if (name.empty() || name.size() > 40 || !std::isalpha(static_cast<unsigned char>(name.front()))) return false;
  return std::all_of(name.begin(), name.end(), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
  });
}

// The caption with "&" before the first letter no caption uses yet, words'
// first letters preferred; without a free letter the caption has no key.
std::string WithAccessKey(const std::string& caption, std::string& used) {
  std::vector<std::size_t> candidates;
  for (std::size_t i = 0; i < caption.size(); ++i)
    if (std::isalpha(static_cast<unsigned char>(caption[i])) && (i == 0 || caption[i - 1] == ' '))
      candidates.push_back(i);
  for (std::size_t i = 0; i < caption.size(); ++i)
    if (std::isalpha(static_cast<unsigned char>(caption[i]))) candidates.push_back(i);
  for (std::size_t i : candidates) {
    const char key = static_cast<char>(std::toupper(static_cast<unsigned char>(caption[i])));
    if (used.find(key) != std::string::npos) continue;
    used += key;
    return caption.substr(0, i) + "&" + caption.substr(i);
  }
  return caption;
}

bool IsUpperAscii(char c) { return c >= 'A' && c <= 'Z'; }

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& taken) { return EqualsIgnoreCase(taken, name); });
}

}  // namespace

const std::vector<std::string>& ControlTypes() {
  static const std::vector<std::string> types = [] {
    std::vector<std::string> all;
    for (const ControlKind& kind : kKinds) all.emplace_back(kind.type);
    return all;
  }();
  return types;
}

ParsedEntries ParseControlEntries(std::string_view text) {
  ParsedEntries parsed;
  for (std::string_view line : SplitAnyLineBreak(text)) {
    std::size_t start = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
      if (i < line.size() && line[i] != ',') continue;
      const std::string_view entry = TrimBlanks(line.substr(start, i - start));
      start = i + 1;
      if (entry.empty()) continue;
      const std::size_t as = FindIgnoreCase(entry, " As ");
      ControlEntry control{std::string(TrimBlanks(entry.substr(0, as))), "TextBox"};
      if (as != std::string_view::npos) control.type = TrimBlanks(entry.substr(as + 4));
      if (!IsControlName(control.name)) {
        parsed.problem = "'" + control.name + "' is not a name for a control.";
        return parsed;
      }
      const ControlKind* kind = KindOf(control.type);
      if (!kind) {
        std::string types;
        for (const std::string& type : ControlTypes()) types += (types.empty() ? "" : ", ") + type;
        parsed.problem = "The type " + control.type + " of " + control.name +
                         " is not one the builder lays out: " + types + ".";
        return parsed;
      }
      control.type = std::string(kind->type);
      for (const ControlEntry& earlier : parsed.entries)
        if (EqualsIgnoreCase(earlier.name, control.name)) {
          parsed.problem = control.name + " is listed twice.";
          return parsed;
        }
      parsed.entries.push_back(std::move(control));
    }
  }
  return parsed;
}

std::string EntriesText(const std::vector<ControlEntry>& entries) {
  std::string text;
  for (const ControlEntry& entry : entries)
    text += (text.empty() ? "" : "\r\n") + entry.name + " As " + entry.type;
  return text;
}

std::string ControlName(std::string_view type, std::string_view name,
                        const settings::TypePrefixTable& prefixes) {
  std::string tag = prefixes.Tag(type, settings::TagUse::kVariable);
  if (tag.empty()) {
    if (const ControlKind* kind = KindOf(type)) tag = kind->prefix;
    if (EqualsIgnoreCase(type, "Label")) tag = "lbl";
  }
  if (name.size() > tag.size() && name.starts_with(tag) && IsUpperAscii(name[tag.size()]))
    return std::string(name);
  return tag + std::string(name);
}

std::string CaptionOf(std::string_view name) {
  std::string caption;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = name[i];
    if (c == '_') {
      if (!caption.empty() && caption.back() != ' ') caption += ' ';
      continue;
    }
    const bool upper = std::isupper(static_cast<unsigned char>(c));
    const bool after_lower = i > 0 && std::islower(static_cast<unsigned char>(name[i - 1]));
    if (upper && after_lower) caption += ' ';
    caption += caption.empty() || caption.back() == ' '
                   ? static_cast<char>(std::toupper(static_cast<unsigned char>(c)))
                   : c;
  }
  return caption;
}

ControlLayout LayOutControls(const std::vector<ControlEntry>& entries, const FormState& form,
                             const settings::TypePrefixTable& prefixes) {
  ControlLayout layout;
  std::string used = form.used_keys;
  std::vector<std::string> taken = form.names;
  int top = form.bottom + (form.bottom > 0 ? kMargin * 2 : kMargin);
  int tab = form.next_tab_index;
  const int input_left = kMargin + kLabelWidth + kColumnGap;
  const auto add = [&](PlacedControl control) {
    if (Contains(taken, control.name)) {
      layout.problem = Contains(form.names, control.name)
                           ? "The form has a control named " + control.name + " already."
                           : "Two entries give the control name " + control.name + ".";
      return false;
    }
    taken.push_back(control.name);
    layout.controls.push_back(std::move(control));
    return true;
  };
  for (const ControlEntry& entry : entries) {
    const ControlKind& kind = *KindOf(entry.type);
    const std::string caption = CaptionOf(entry.name);
    if (!kind.own_caption &&
        !add({"VB.Label", ControlName("Label", entry.name, prefixes),
              WithAccessKey(caption + ":", used), kMargin, top + 30, kLabelWidth, kLabelHeight,
              tab++}))
      return {{}, layout.problem};
    if (!add({"VB." + std::string(kind.type), ControlName(kind.type, entry.name, prefixes),
              kind.own_caption ? WithAccessKey(caption, used) : "", input_left, top, kind.width,
              kind.height, tab++}))
      return {{}, layout.problem};
    top += std::max(kind.height, kLabelHeight) + kMargin;
  }
  return layout;
}

FormState FormStateOf(ide::IDesigner& designer) {
  FormState form;
  const auto controls = designer.VBControls();
  for (int i = 1; i <= controls->Count(); ++i) {
    const auto properties = controls->Item(i)->Properties();
    const auto number = [&](std::string_view name) {
      std::string text;
      ide::IgnoreErrors([&] { text = properties->Item(name)->Value(); });
      int value = 0;
      std::from_chars(text.data(), text.data() + text.size(), value);
      return value;
    };
    ide::IgnoreErrors([&] { form.names.push_back(properties->Item("Name")->Value()); });
    form.bottom = std::max(form.bottom, number("Top") + number("Height"));
    form.next_tab_index = std::max(form.next_tab_index, number("TabIndex") + 1);
  }
  for (const AccessKeyUse& use : CollectAccessKeys(designer))
    if (!use.key.empty()) form.used_keys += use.key;
  return form;
}

void AddToForm(ide::IDesigner& designer, const std::vector<PlacedControl>& controls) {
  for (const PlacedControl& placed : controls) {
    const auto properties = designer.AddControl(placed.prog_id)->Properties();
    properties->Item("Name")->SetValue(placed.name);
    if (!placed.caption.empty()) properties->Item("Caption")->SetValue(placed.caption);
    properties->Item("Left")->SetValue(std::to_string(placed.left));
    properties->Item("Top")->SetValue(std::to_string(placed.top));
    properties->Item("Width")->SetValue(std::to_string(placed.width));
    properties->Item("Height")->SetValue(std::to_string(placed.height));
    properties->Item("TabIndex")->SetValue(std::to_string(placed.tab_index));
  }
}

}  // namespace tavrin::formtools
