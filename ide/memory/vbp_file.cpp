#include "ide/memory/vbp_file.h"

#include <optional>

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

int HexNumber(std::string_view text) {
  int value = 0;
  for (char c : text) {
    const int digit = c >= '0' && c <= '9'   ? c - '0'
                      : c >= 'a' && c <= 'f' ? c - 'a' + 10
                      : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                             : -1;
    if (digit < 0 || value > 0xFFFF) break;
    value = value * 16 + digit;
  }
  return value;
}

// "2.0" → 2 and 0.
void ReadVersion(std::string_view text, VbpReference& reference) {
  const auto dot = text.find('.');
  reference.major = HexNumber(text.substr(0, dot));
  if (dot != std::string_view::npos) reference.minor = HexNumber(text.substr(dot + 1));
}

// The fields between '#' signs; the last one takes the rest of the line.
std::vector<std::string_view> HashFields(std::string_view text, std::size_t count) {
  std::vector<std::string_view> fields;
  while (fields.size() + 1 < count) {
    const auto hash = text.find('#');
    if (hash == std::string_view::npos) break;
    fields.push_back(text.substr(0, hash));
    text.remove_prefix(hash + 1);
  }
  fields.push_back(text);
  return fields;
}

std::optional<VbpReference> ReferenceOf(std::string_view value) {
  VbpReference reference;
  if (value.size() < 3 || value[0] != '*' || value[1] != '\\') return std::nullopt;
  if (value[2] == 'A' || value[2] == 'a') {
    reference.is_project = true;
    reference.path = std::string(value.substr(3));
    return reference;
  }
  if (value[2] != 'G' && value[2] != 'g') return std::nullopt;
  const auto fields = HashFields(value.substr(3), 5);
  reference.guid = std::string(fields[0]);
  if (fields.size() > 1) ReadVersion(fields[1], reference);
  if (fields.size() > 3) reference.path = std::string(fields[3]);
  if (fields.size() > 4) reference.description = std::string(fields[4]);
  return reference;
}

std::optional<VbpReference> ObjectOf(std::string_view value) {
  VbpReference reference;
  reference.is_control = true;
  const auto semicolon = value.find(';');
  if (semicolon != std::string_view::npos)
    reference.path = std::string(TrimBlanksAndTabs(value.substr(semicolon + 1)));
  const auto fields = HashFields(value.substr(0, semicolon), 3);
  reference.guid = std::string(TrimBlanksAndTabs(fields[0]));
  if (!reference.guid.starts_with('{')) return std::nullopt;
  if (fields.size() > 1) ReadVersion(fields[1], reference);
  return reference;
}

std::string Hex(int value) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  do {
    text.insert(text.begin(), kDigits[value % 16]);
    value /= 16;
  } while (value > 0);
  return text;
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
    if (EqualsIgnoreCase(key, "Reference") || EqualsIgnoreCase(key, "Object")) {
      auto reference = EqualsIgnoreCase(key, "Object") ? ObjectOf(value) : ReferenceOf(value);
      if (reference) vbp.references.push_back(std::move(*reference));
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

std::string VbpReferenceLine(const VbpReference& reference) {
  if (reference.is_project) return "Reference=*\\A" + reference.path;
  if (reference.is_control)
    return "Object=" + reference.guid + "#" + Hex(reference.major) + "." + Hex(reference.minor) +
           "#0; " + reference.path;
  return "Reference=*\\G" + reference.guid + "#" + Hex(reference.major) + "." +
         Hex(reference.minor) + "#0#" + reference.path + "#" + reference.description;
}

std::string ReplaceVbpReferences(std::string_view vbp_bytes,
                                 const std::vector<std::string>& lines) {
  std::string out;
  bool written = false;
  bool in_project = true;
  std::string_view rest = vbp_bytes;
  std::string_view line_break = "\r\n";
  const auto write_lines = [&] {
    for (const std::string& line : lines) out.append(line).append(line_break);
    written = true;
  };
  while (!rest.empty()) {
    const auto end = rest.find('\n');
    const std::string_view line = rest.substr(0, end == std::string_view::npos ? rest.size() : end + 1);
    rest.remove_prefix(line.size());
    const std::string_view text = TrimBlanksAndTabs(line.substr(0, line.find_first_of("\r\n")));
    if (text.starts_with('[')) in_project = false;
    if (line.ends_with("\n")) line_break = line.ends_with("\r\n") ? "\r\n" : "\n";
    if (in_project &&
        (StartsWithIgnoreCase(text, "Reference=") || StartsWithIgnoreCase(text, "Object="))) {
      if (!written) write_lines();
      continue;
    }
    out.append(line);
    // Without a Reference= line, the references follow the first line (Type=).
    if (!written && out.size() == line.size() && line.ends_with("\n")) write_lines();
  }
  if (!written) write_lines();
  return out;
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
