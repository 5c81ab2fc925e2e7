#include "ide/memory/designer_layout.h"

#include "base/text.h"

namespace tavrin::ide::memory {
namespace {

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

// The words of a Begin line after "Begin": the class and the object's name.
void SplitBeginLine(std::string_view line, std::string& prog_id, std::string& name) {
  std::string_view rest = line;
  std::vector<std::string_view> words;
  while (!rest.empty() && words.size() < 3) {
    std::size_t i = 0;
    while (i < rest.size() && IsBlankOrTab(rest[i])) ++i;
    std::size_t end = i;
    while (end < rest.size() && !IsBlankOrTab(rest[end])) ++end;
    if (end > i) words.push_back(rest.substr(i, end - i));
    rest = rest.substr(end);
  }
  prog_id = words.size() > 1 ? std::string(words[1]) : std::string();
  name = words.size() > 2 ? std::string(words[2]) : std::string();
}

// Index of the designer's root Begin line: a Begin that names a class (the
// BEGIN block of a class file names none).
std::optional<std::size_t> RootLine(const std::vector<PhysicalLine>& header) {
  for (std::size_t i = 0; i < header.size(); ++i) {
    if (!EqualsIgnoreCase(FirstWord(header[i].text), "Begin")) continue;
    std::string prog_id, name;
    SplitBeginLine(header[i].text, prog_id, name);
    if (!prog_id.empty()) return i;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> RootEndLine(const std::vector<PhysicalLine>& header) {
  const auto root = RootLine(header);
  if (!root) return std::nullopt;
  int depth = 0;
  for (std::size_t i = *root; i < header.size(); ++i) {
    const std::string_view word = FirstWord(header[i].text);
    if (EqualsIgnoreCase(word, "Begin")) ++depth;
    if (EqualsIgnoreCase(word, "End") && --depth == 0) return i;
  }
  return std::nullopt;
}

std::string RootProgId(const std::vector<PhysicalLine>& header) {
  const auto root = RootLine(header);
  if (!root) return {};
  std::string prog_id, name;
  SplitBeginLine(header[*root].text, prog_id, name);
  return prog_id;
}

std::vector<ControlLayout> ParseDesignerLayout(const std::vector<PhysicalLine>& header) {
  std::vector<ControlLayout> controls;
  const auto root = RootLine(header);
  if (!root) return controls;
  std::vector<int> open;  // ordinals of the open blocks; -1 for the root
  int property_depth = 0;
  for (std::size_t i = *root; i < header.size(); ++i) {
    const std::string_view text = header[i].text;
    const std::string_view word = FirstWord(text);
    if (EqualsIgnoreCase(word, "Begin")) {
      if (open.empty()) {
        open.push_back(-1);
        continue;
      }
      ControlLayout control;
      SplitBeginLine(text, control.prog_id, control.name);
      control.begin_line = i;
      control.container = open.back();
      open.push_back(static_cast<int>(controls.size()));
      controls.push_back(std::move(control));
    } else if (EqualsIgnoreCase(word, "End")) {
      open.pop_back();
      if (open.empty()) break;
    } else if (EqualsIgnoreCase(word, "BeginProperty")) {
      ++property_depth;
    } else if (EqualsIgnoreCase(word, "EndProperty")) {
      if (property_depth > 0) --property_depth;
    } else if (property_depth == 0 && open.back() >= 0 && ParsePropertyLine(text)) {
      controls[static_cast<std::size_t>(open.back())].property_lines.push_back(i);
    }
  }
  return controls;
}

std::optional<PropertyLine> ParsePropertyLine(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  std::string_view key = line.substr(0, equals);
  while (!key.empty() && IsBlankOrTab(key.front())) key.remove_prefix(1);
  while (!key.empty() && IsBlankOrTab(key.back())) key.remove_suffix(1);
  if (key.empty() || key.find_first_of(" \t\"'") != std::string_view::npos) return std::nullopt;

  PropertyLine result;
  result.key = std::string(key);
  std::size_t i = equals + 1;
  while (i < line.size() && IsBlankOrTab(line[i])) ++i;
  result.value_begin = i;
  // The value runs to a comment outside quotes.
  bool quoted = false;
  std::size_t end = i;
  for (; end < line.size(); ++end) {
    if (line[end] == '"') quoted = !quoted;
    else if (line[end] == '\'' && !quoted) break;
  }
  while (end > i && IsBlankOrTab(line[end - 1])) --end;
  result.value_end = end;
  return result;
}

bool IsQuoted(std::string_view raw) { return !raw.empty() && raw.front() == '"'; }

std::string PropertyValueText(std::string_view raw) {
  if (!IsQuoted(raw)) return std::string(raw);
  std::string text;
  std::size_t i = 1;
  for (; i < raw.size(); ++i) {
    if (raw[i] != '"') {
      text += raw[i];
    } else if (i + 1 < raw.size() && raw[i + 1] == '"') {
      text += '"';
      ++i;
    } else {
      break;
    }
  }
  // Anything after the closing quote (a side-file reference "x.frx":0000)
  // means the text is not a plain string: keep it as written.
  if (i + 1 != raw.size()) return std::string(raw);
  return text;
}

std::string Quote(std::string_view text) {
  return "\"" + ReplaceAll(text, "\"", "\"\"") + "\"";
}

}  // namespace tavrin::ide::memory
