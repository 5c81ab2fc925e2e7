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

std::string AddVbpMember(std::string_view text, std::string_view key, std::string_view name,
                         std::string_view path) {
  const std::string_view line_break = text.find("\r\n") != std::string_view::npos ? "\r\n"
                                      : text.find('\n') != std::string_view::npos   ? "\n"
                                                                                    : "\r\n";
  const std::string member = std::string(key) + "=" + std::string(name) + "; " + std::string(path);
  // Where the project section ends, and where its last member line ends.
  std::size_t section_end = text.size();
  std::size_t after_member = std::string_view::npos;
  for (std::size_t start = 0; start < text.size();) {
    std::size_t end = text.find_first_of("\r\n", start);
    const std::string_view line =
        TrimBlanksAndTabs(text.substr(start, end == std::string_view::npos ? text.npos : end - start));
    if (line.starts_with('[')) {
      section_end = start;
      break;
    }
    if (end == std::string_view::npos) end = text.size();
    else if (text.compare(end, 2, "\r\n") == 0) end += 2;
    else ++end;
    const std::string_view key_of = TrimBlanksAndTabs(line.substr(0, line.find('=')));
    if (line.find('=') != std::string_view::npos &&
        (EqualsIgnoreCase(key_of, "Module") || EqualsIgnoreCase(key_of, "Class") ||
         EqualsIgnoreCase(key_of, "Form") || EqualsIgnoreCase(key_of, "UserControl") ||
         EqualsIgnoreCase(key_of, "Reference") || EqualsIgnoreCase(key_of, "Object") ||
         EqualsIgnoreCase(key_of, "Type")))
      after_member = end;
    start = end;
  }
  std::size_t at = after_member != std::string_view::npos ? after_member : section_end;
  std::string result(text.substr(0, at));
  if (!result.empty() && result.back() != '\n' && result.back() != '\r')
    result += line_break;
  result += member + std::string(line_break);
  result += text.substr(at);
  return result;
}

std::string ResolveMemberPath(std::string_view vbp_path, std::string_view member) {
  if (IsAbsolute(member)) return std::string(member);
  const auto slash = vbp_path.find_last_of("/\\");
  if (slash == std::string_view::npos) return std::string(member);
  return std::string(vbp_path.substr(0, slash + 1)) + std::string(member);
}

}  // namespace tavrin::ide::memory
