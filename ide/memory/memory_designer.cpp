#include "ide/memory/memory_designer.h"

#include <algorithm>

#include "base/text.h"
#include "ide/memory/control_names.h"
#include "ide/memory/memory_collection.h"

namespace tavrin::ide::memory {
namespace {

constexpr int kKeyWidth = 16;  // the IDE aligns "=" after keys padded to this

[[noreturn]] void NoSuchProperty() { throw Error(9, "Subscript out of range"); }

bool HasTabs(const std::vector<std::string>& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [](const std::string& key) { return EqualsIgnoreCase(key, "Tabs"); });
}

bool LooksNumeric(std::string_view value) {
  if (StartsWithIgnoreCase(value, "&H")) return value.size() > 2;
  std::size_t i = value.starts_with('-') ? 1 : 0;
  bool digits = false;
  for (; i < value.size(); ++i) {
    if (value[i] >= '0' && value[i] <= '9') digits = true;
    else if (value[i] != '.') return false;
  }
  return digits;
}

// Text properties are written quoted whatever they hold.
bool IsTextProperty(std::string_view key) {
  for (std::string_view text_key : {"Caption", "Text", "Tag", "ToolTipText"}) {
    if (EqualsIgnoreCase(key, text_key)) return true;
  }
  return StartsWithIgnoreCase(key, "TabCaption(");
}

std::string Leading(std::string_view text) {
  return std::string(text.substr(0, std::min(text.find_first_not_of(" \t"), text.size())));
}

}  // namespace

MemoryDesigner::MemoryDesigner(std::shared_ptr<SourceFile> source) : source_(std::move(source)) {}

std::shared_ptr<ICollection<IControl>> MemoryDesigner::VBControls() {
  const std::size_t count = Layout().size();
  std::vector<std::shared_ptr<IControl>> controls;
  for (std::size_t i = 0; i < count; ++i)
    controls.push_back(std::make_shared<MemoryControl>(shared_from_this(), i));
  return std::make_shared<ListCollection<IControl>>(std::move(controls), [](IControl& control) {
    return static_cast<MemoryControl&>(control).Name();
  });
}

std::shared_ptr<IControl> MemoryDesigner::AddControl(std::string_view prog_id) {
  const auto end = RootEndLine(source_->header());
  const std::size_t dot = prog_id.rfind('.');
  const std::string_view class_name = dot == std::string_view::npos ? prog_id : prog_id.substr(dot + 1);
  if (!end || class_name.empty()) throw Error(5, "Invalid procedure call or argument");
  const auto& layout = Layout();
  const std::size_t layout_size = layout.size();
  std::string name;
  for (int number = 1; name.empty(); ++number) {
    std::string candidate = std::string(class_name == "TextBox" ? "Text" : class_name) +
                            std::to_string(number);
    if (std::none_of(layout.begin(), layout.end(), [&](const ControlLayout& control) {
          return EqualsIgnoreCase(control.name, candidate);
        }))
      name = std::move(candidate);
  }
  const std::string indent = Leading(source_->header()[*end].text) + "   ";
  source_->InsertHeader(*end, indent + "End");
  source_->InsertHeader(*end, indent + "Begin " + std::string(prog_id) + " " + name);
  layout_.reset();
  const std::size_t ordinal = [&] {
    const auto& now = Layout();
    for (std::size_t i = 0; i < now.size(); ++i)
      if (now[i].name == name) return i;
    throw Error(5, "Invalid procedure call or argument");
  }();
  // The properties the IDE gives a control drawn with one click, so that
  // Properties lists them as it does.
  for (const std::string_view captioned : {"Label", "CheckBox", "OptionButton", "CommandButton", "Frame"})
    if (class_name == captioned) WriteProperty(ordinal, "Caption", name);
  WriteProperty(ordinal, "Height", "255");
  WriteProperty(ordinal, "Left", "0");
  WriteProperty(ordinal, "TabIndex", std::to_string(layout_size));
  WriteProperty(ordinal, "Top", "0");
  WriteProperty(ordinal, "Width", "1215");
  return std::make_shared<MemoryControl>(shared_from_this(), ordinal);
}

const std::vector<ControlLayout>& MemoryDesigner::Layout() {
  if (!layout_) {
    layout_ = ParseDesignerLayout(source_->header());
    AssignNamesAndTabs(source_->header(), *layout_);
  }
  return *layout_;
}

std::string MemoryDesigner::DisplayName(std::size_t control) {
  return Control(control).display_name;
}

const ControlLayout& MemoryDesigner::Control(std::size_t control) {
  const auto& layout = Layout();
  if (control >= layout.size()) NoSuchProperty();
  return layout[control];
}

std::vector<std::string> MemoryDesigner::PropertyNames(std::size_t control) {
  const ControlLayout& layout = Control(control);
  std::vector<std::string> keys;
  for (std::size_t line : layout.property_lines)
    keys.push_back(ParsePropertyLine(source_->header()[line].text)->key);
  std::vector<std::string> names{"Name"};
  if (HasTabs(keys)) {
    names.push_back("Caption");
    if (!FindLine(layout, "Tab")) names.push_back("Tab");
  }
  for (auto& key : keys) {
    if (!EqualsIgnoreCase(key, "Name")) names.push_back(std::move(key));
  }
  return names;
}

std::optional<std::size_t> MemoryDesigner::FindLine(const ControlLayout& control,
                                                    std::string_view key) {
  for (std::size_t line : control.property_lines) {
    if (EqualsIgnoreCase(ParsePropertyLine(source_->header()[line].text)->key, key)) return line;
  }
  return std::nullopt;
}

std::string MemoryDesigner::StoredKey(const ControlLayout& control, std::string_view name) {
  if (!EqualsIgnoreCase(name, "Caption") || !FindLine(control, "Tabs")) return std::string(name);
  const auto tab = FindLine(control, "Tab");
  std::string current = "0";
  if (tab) {
    const std::string& text = source_->header()[*tab].text;
    const PropertyLine parsed = *ParsePropertyLine(text);
    current = text.substr(parsed.value_begin, parsed.value_end - parsed.value_begin);
  }
  return "TabCaption(" + current + ")";
}

std::string MemoryDesigner::ReadProperty(std::size_t control, std::string_view name) {
  const ControlLayout& layout = Control(control);
  if (EqualsIgnoreCase(name, "Name")) return layout.name;
  const bool tabbed = FindLine(layout, "Tabs").has_value();
  const std::string key = StoredKey(layout, name);
  const auto line = FindLine(layout, key);
  if (!line) {
    // A tabbed container always has a current tab and a caption per tab.
    if (tabbed && EqualsIgnoreCase(name, "Tab")) return "0";
    if (tabbed && EqualsIgnoreCase(name, "Caption")) return {};
    NoSuchProperty();
  }
  const std::string& text = source_->header()[*line].text;
  const PropertyLine parsed = *ParsePropertyLine(text);
  return PropertyValueText(
      std::string_view(text).substr(parsed.value_begin, parsed.value_end - parsed.value_begin));
}

void MemoryDesigner::WriteProperty(std::size_t control, std::string_view name,
                                   std::string_view value) {
  const ControlLayout layout = Control(control);  // a copy: the write may move lines
  // A new Index renames the control in its array and in its container's tab
  // list: the layout is read again.
  if (EqualsIgnoreCase(name, "Index") || StartsWithIgnoreCase(name, "Tab(")) layout_.reset();
  auto& header = source_->header();
  if (EqualsIgnoreCase(name, "Name")) {
    layout_.reset();
    std::string& text = header[layout.begin_line].text;
    const std::size_t at = text.rfind(layout.name);
    if (at != std::string::npos && !layout.name.empty()) text.replace(at, layout.name.size(), value);
    return;
  }
  const std::string key = StoredKey(layout, name);
  const auto line = FindLine(layout, key);
  // The IDE leaves a tabbed container's default tab (0) out of the file, so
  // a Tab line added here goes again when tab 0 is chosen: visiting the tabs
  // and coming back leaves the file as it was.
  const bool is_tab = EqualsIgnoreCase(key, "Tab");
  if (!line) {
    if (is_tab && value == "0") return;
    layout_.reset();
    AddLine(layout, key, value);
    if (is_tab) added_tab_lines_.insert(control);
    return;
  }
  if (ReadProperty(control, name) == value) return;
  if (is_tab && value == "0" && added_tab_lines_.erase(control) > 0) {
    layout_.reset();
    source_->EraseHeader(*line);
    return;
  }
  std::string& text = header[*line].text;
  const std::string& original = original_lines_.try_emplace({control, key}, text).first->second;
  const PropertyLine original_parsed = *ParsePropertyLine(original);
  if (PropertyValueText(std::string_view(original).substr(
          original_parsed.value_begin, original_parsed.value_end - original_parsed.value_begin)) ==
      value) {
    text = original;
    return;
  }
  const PropertyLine parsed = *ParsePropertyLine(text);
  const std::string_view old_raw =
      std::string_view(text).substr(parsed.value_begin, parsed.value_end - parsed.value_begin);
  const bool quote = IsQuoted(old_raw) || IsTextProperty(key);
  text = text.substr(0, parsed.value_begin) + (quote ? Quote(value) : std::string(value));
}

void MemoryDesigner::AddLine(const ControlLayout& control, std::string_view key,
                             std::string_view value) {
  const auto& header = source_->header();
  std::string indent;
  std::size_t after = control.begin_line;
  if (control.property_lines.empty()) {
    indent = Leading(header[control.begin_line].text) + "   ";
  } else {
    indent = Leading(header[control.property_lines.front()].text);
    after = control.property_lines.back();
  }
  std::string text = indent + std::string(key);
  text += std::string(std::max<std::size_t>(1, kKeyWidth - std::min<std::size_t>(key.size(), kKeyWidth)), ' ');
  text += "=   ";
  text += (IsTextProperty(key) || !LooksNumeric(value)) ? Quote(value) : std::string(value);
  source_->InsertHeader(after + 1, std::move(text));
}

MemoryControl::MemoryControl(std::shared_ptr<MemoryDesigner> designer, std::size_t ordinal)
    : designer_(std::move(designer)), ordinal_(ordinal) {}

std::string MemoryControl::ProgId() { return designer_->Control(ordinal_).prog_id; }

std::string MemoryControl::ClassName() {
  const std::string prog_id = ProgId();
  const auto dot = prog_id.rfind('.');
  return dot == std::string::npos ? prog_id : prog_id.substr(dot + 1);
}

std::shared_ptr<MemoryControl> MemoryControl::Container() {
  const int container = designer_->Control(ordinal_).container;
  if (container < 0) return nullptr;
  return std::make_shared<MemoryControl>(designer_, std::size_t(container));
}

std::string MemoryControl::ContainerName() {
  const int container = designer_->Control(ordinal_).container;
  return container < 0 ? std::string() : designer_->DisplayName(std::size_t(container));
}

int MemoryControl::ContainerTab() { return designer_->Control(ordinal_).tab; }

std::string MemoryControl::Name() { return designer_->Control(ordinal_).name; }

std::shared_ptr<ICollection<IProperty>> MemoryControl::Properties() {
  std::vector<std::shared_ptr<IProperty>> properties;
  for (auto& name : designer_->PropertyNames(ordinal_))
    properties.push_back(std::make_shared<MemoryProperty>(designer_, ordinal_, std::move(name)));
  return std::make_shared<ListCollection<IProperty>>(
      std::move(properties), [](IProperty& property) { return property.Name(); });
}

MemoryProperty::MemoryProperty(std::shared_ptr<MemoryDesigner> designer, std::size_t control,
                               std::string name)
    : designer_(std::move(designer)), control_(control), name_(std::move(name)) {}

std::string MemoryProperty::Value() { return designer_->ReadProperty(control_, name_); }

void MemoryProperty::SetValue(std::string_view value) {
  designer_->WriteProperty(control_, name_, value);
}

}  // namespace tavrin::ide::memory
