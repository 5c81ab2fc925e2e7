#include "ide/memory/vbp_file.h"

#include "base/text.h"

namespace tavrin::ide::memory {
namespace {

std::string_view TrimBlanksAndTabs(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::string Unquote(std::string_view text) {
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
    text = text.substr(1, text.size() - 2);
  return std::string(text);
}

bool IsAbsolute(std::string_view path) {
  return path.starts_with('/') || (path.size() >= 2 && path[1] == ':');
}

}  // namespace

VbpFile ParseVbp(std::string_view text) {
  VbpFile vbp;
  for (std::string_view line : SplitAnyLineBreak(text)) {
    line = TrimBlanksAndTabs(line);
    if (line.starts_with('[')) break;
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = TrimBlanksAndTabs(line.substr(0, equals));
    std::string_view value = TrimBlanksAndTabs(line.substr(equals + 1));
    if (EqualsIgnoreCase(key, "Name")) {
      vbp.name = Unquote(value);
      continue;
    }
    const bool named = EqualsIgnoreCase(key, "Module") || EqualsIgnoreCase(key, "Class");
    const bool unnamed = EqualsIgnoreCase(key, "Form") || EqualsIgnoreCase(key, "UserControl") ||
                         EqualsIgnoreCase(key, "PropertyPage") ||
                         EqualsIgnoreCase(key, "UserDocument") ||
                         EqualsIgnoreCase(key, "Designer");
    if (!named && !unnamed) continue;
    if (named) {
      const auto semicolon = value.find(';');
      if (semicolon != std::string_view::npos) value = TrimBlanksAndTabs(value.substr(semicolon + 1));
    }
    if (value.empty()) continue;
    std::string path = Unquote(value);
    for (char& c : path) {
      if (c == '\\') c = '/';
    }
    vbp.members.push_back(std::move(path));
  }
  return vbp;
}

std::string RenameVbpMembers(std::string_view text, std::string_view vbp_path,
                             const std::function<std::string(std::string_view)>& name_of) {
  std::string out;
  out.reserve(text.size());
  bool in_project_section = true;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string_view whole = text.substr(0, end == std::string_view::npos ? text.size() : end + 1);
    text.remove_prefix(whole.size());
    std::string_view line = whole;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    const std::string_view breaks = whole.substr(line.size());
    if (TrimBlanksAndTabs(line).starts_with('[')) in_project_section = false;
    const auto equals = line.find('=');
    const auto semicolon = line.find(';');
    std::string name;
    if (in_project_section && equals != std::string_view::npos && semicolon != std::string_view::npos &&
        semicolon > equals) {
      const std::string_view key = TrimBlanksAndTabs(line.substr(0, equals));
      if (EqualsIgnoreCase(key, "Module") || EqualsIgnoreCase(key, "Class")) {
        std::string path = Unquote(TrimBlanksAndTabs(line.substr(semicolon + 1)));
        for (char& c : path) {
          if (c == '\\') c = '/';
        }
        name = name_of(ResolveMemberPath(vbp_path, path));
      }
    }
    if (name.empty()) {
      out += whole;
    } else {
      out += line.substr(0, equals + 1);
      out += name;
      out += line.substr(semicolon);
      out += breaks;
    }
  }
  return out;
}

std::string ResolveMemberPath(std::string_view vbp_path, std::string_view member) {
  if (IsAbsolute(member)) return std::string(member);
  const auto slash = vbp_path.find_last_of("/\\");
  if (slash == std::string_view::npos) return std::string(member);
  return std::string(vbp_path.substr(0, slash + 1)) + std::string(member);
}

}  // namespace tavrin::ide::memory
