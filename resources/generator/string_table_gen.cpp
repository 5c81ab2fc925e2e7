// Builds the string table from resources/strings.txt: a C++ source with the
// portable table behind tavrin::resources::LoadResString, and a Windows
// resource script with the same strings in a STRINGTABLE.
//
//   string_table_gen STRINGS_TXT OUT_CPP OUT_RC [OUT_DEPFILE]
//
// Input, one entry per line:  id<TAB>text
//   - blank lines and lines starting with '#' are ignored;
//   - escapes in text: \r \n \t \\ and \s (a blank, so that a trailing blank
//     stays visible and no editor strips it); any other backslash is an error;
//   - plain trailing blanks or tabs are an error for the same reason;
//   - "id<TAB>@name" takes the text from the file "name" beside STRINGS_TXT,
//     its line breaks turned into CR LF and a final line break dropped;
//     "\@" at the start of a text gives a literal '@'.
// Text is UTF-8. Ids are 0..65535 (the resource compiler's limit), each once.
//
// The tool runs on the build machine (also for cross builds), so it uses the
// standard library only.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct InputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Entry {
  int id = 0;
  std::string text;  // UTF-8
};

struct Table {
  std::vector<Entry> entries;        // sorted by id
  std::vector<fs::path> text_files;  // files named by @name, for the depfile
};

std::string ReadWholeFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw InputError("cannot read " + path.string());
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

// CR LF, lone LF and lone CR all become CR LF; the last line break goes.
std::string WithCrLf(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' || c == '\n') {
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      out += "\r\n";
    } else {
      out += c;
    }
  }
  if (out.size() >= 2 && out.compare(out.size() - 2, 2, "\r\n") == 0) {
    out.resize(out.size() - 2);
  }
  return out;
}

std::string Unescape(const std::string& raw, const std::string& where) {
  std::string out;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '\\') {
      out += raw[i];
      continue;
    }
    if (++i == raw.size()) throw InputError(where + ": backslash at end of line");
    switch (raw[i]) {
      case 'r': out += '\r'; break;
      case 'n': out += '\n'; break;
      case 't': out += '\t'; break;
      case 's': out += ' '; break;
      case '\\': out += '\\'; break;
      case '@':
        if (i != 1) throw InputError(where + ": \\@ is only allowed at the start");
        out += '@';
        break;
      default:
        throw InputError(where + ": unknown escape \\" + std::string(1, raw[i]));
    }
  }
  return out;
}

// Well-formed UTF-8: right lead and continuation bytes, no overlong forms,
// no surrogates, nothing above U+10FFFF.
bool IsValidUtf8(const std::string& text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int extra = 0;
    std::uint32_t point = lead;
    if (lead < 0x80) {
      extra = 0;
    } else if ((lead & 0xE0) == 0xC0) {
      extra = 1, point = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
      extra = 2, point = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
      extra = 3, point = lead & 0x07;
    } else {
      return false;
    }
    if (i + extra >= text.size()) return false;
    for (int k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80) return false;
      point = (point << 6) | (next & 0x3F);
    }
    constexpr std::uint32_t kMinimum[] = {0, 0x80, 0x800, 0x10000};
    if (point < kMinimum[extra] || point > 0x10FFFF ||
        (point >= 0xD800 && point <= 0xDFFF)) {
      return false;
    }
    i += extra + 1;
  }
  return true;
}

Table ReadTable(const fs::path& strings_txt) {
  std::istringstream in(ReadWholeFile(strings_txt));
  std::map<int, std::string> by_id;
  Table table;
  std::string line;
  int line_number = 0;
  while (std::getline(in, line)) {
    ++line_number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::string where = strings_txt.string() + ":" + std::to_string(line_number);
    if (line.empty() || line[0] == '#') continue;

    const auto tab = line.find('\t');
    if (tab == std::string::npos) throw InputError(where + ": expected id<TAB>text");
    const std::string id_text = line.substr(0, tab);
    const std::string raw = line.substr(tab + 1);
    if (id_text.empty() || id_text.size() > 5 ||
        !std::all_of(id_text.begin(), id_text.end(),
                     [](char c) { return c >= '0' && c <= '9'; })) {
      throw InputError(where + ": bad id \"" + id_text + "\"");
    }
    const int id = std::stoi(id_text);
    if (id > 65535) throw InputError(where + ": id above 65535");
    if (!raw.empty() && (raw.back() == ' ' || raw.back() == '\t')) {
      throw InputError(where + ": trailing blank; write it as \\s");
    }

    std::string text;
    if (!raw.empty() && raw[0] == '@') {
      const fs::path file = strings_txt.parent_path() / raw.substr(1);
      text = WithCrLf(ReadWholeFile(file));
      table.text_files.push_back(file);
    } else {
      text = Unescape(raw, where);
    }
    if (!IsValidUtf8(text)) throw InputError(where + ": text is not valid UTF-8");
    if (!by_id.emplace(id, std::move(text)).second) {
      throw InputError(where + ": id " + id_text + " given twice");
    }
  }
  for (auto& [id, text] : by_id) table.entries.push_back({id, std::move(text)});
  return table;
}

// Code points of UTF-8 text already checked by IsValidUtf8.
std::vector<std::uint32_t> CodePoints(const std::string& text) {
  std::vector<std::uint32_t> points;
  for (std::size_t i = 0; i < text.size();) {
    auto lead = static_cast<unsigned char>(text[i]);
    int extra = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t point = extra == 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) {
      point = (point << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    }
    points.push_back(point);
    i += extra + 1;
  }
  return points;
}

// A C++ narrow string literal holding the UTF-8 bytes; everything outside
// printable ASCII as a three-digit octal escape, which never runs into the
// next character.
std::string CppLiteral(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (byte >= 0x20 && byte < 0x7F) {
      out += c;
    } else {
      char octal[8];
      std::snprintf(octal, sizeof octal, "\\%03o", byte);
      out += octal;
    }
  }
  return out + "\"";
}

// A resource-compiler string: quotes doubled, control characters escaped,
// and a wide string with four-digit \x escapes when the text is not ASCII.
std::string RcLiteral(const std::string& text) {
  const auto points = CodePoints(text);
  const bool wide = std::any_of(points.begin(), points.end(),
                                [](std::uint32_t p) { return p >= 0x80; });
  std::string out = wide ? "L\"" : "\"";
  auto hex4 = [&out](std::uint32_t unit) {
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\x%04X", static_cast<unsigned>(unit));
    out += escape;
  };
  for (std::uint32_t p : points) {
    if (p == '"') {
      out += "\"\"";
    } else if (p == '\\') {
      out += "\\\\";
    } else if (p == '\r') {
      out += "\\r";
    } else if (p == '\n') {
      out += "\\n";
    } else if (p == '\t') {
      out += "\\t";
    } else if (p >= 0x20 && p < 0x7F) {
      out += static_cast<char>(p);
    } else if (!wide) {
      char octal[8];
      std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned>(p));
      out += octal;
    } else if (p < 0x10000) {
      hex4(p);
    } else {
      hex4(0xD800 + ((p - 0x10000) >> 10));
      hex4(0xDC00 + ((p - 0x10000) & 0x3FF));
    }
  }
  return out + "\"";
}

std::string CppSource(const Table& table) {
  std::ostringstream out;
  out << "// Generated from strings.txt by string_table_gen; do not edit.\n"
         "#include \"resources/string_table.h\"\n\n"
         "#include <algorithm>\n#include <iterator>\n\n"
         "namespace tavrin::resources {\n"
         "namespace {\n\n"
         "struct StringEntry {\n"
         "  int id;\n"
         "  std::string_view text;\n"
         "};\n\n"
         "// Sorted by id for a binary search.\n"
         "constexpr StringEntry kStrings[] = {\n";
  for (const auto& entry : table.entries) {
    out << "    {" << entry.id << ", std::string_view(" << CppLiteral(entry.text)
        << ", " << entry.text.size() << ")},\n";
  }
  if (table.entries.empty()) out << "    {-1, {}},\n";
  out << "};\n\n"
         "}  // namespace\n\n"
         "std::string_view LoadResString(int id) {\n"
         "  auto found = std::lower_bound(\n"
         "      std::begin(kStrings), std::end(kStrings), id,\n"
         "      [](const StringEntry& entry, int key) { return entry.id < key; });\n"
         "  if (found == std::end(kStrings) || found->id != id) return {};\n"
         "  return found->text;\n"
         "}\n\n"
         "}  // namespace tavrin::resources\n";
  return out.str();
}

std::string RcSource(const Table& table) {
  std::ostringstream out;
  out << "// Generated from strings.txt by string_table_gen; do not edit.\n"
         "// English (United States), language 1033.\n"
         "LANGUAGE 9, 1\n\n"
         "STRINGTABLE\n"
         "BEGIN\n";
  for (const auto& entry : table.entries) {
    out << "  " << entry.id << ", " << RcLiteral(entry.text) << "\n";
  }
  out << "END\n";
  return out.str();
}

// Make's depfile syntax: blanks in paths escaped with a backslash.
std::string DepPath(const fs::path& path) {
  std::string out;
  for (char c : path.generic_string()) {
    if (c == ' ' || c == '#') out += '\\';
    if (c == '$') out += '$';
    out += c;
  }
  return out;
}

void WriteWholeFile(const fs::path& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
  if (!out) throw InputError("cannot write " + path.string());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4 && argc != 5) {
    std::cerr << "usage: string_table_gen STRINGS_TXT OUT_CPP OUT_RC [OUT_DEPFILE]\n";
    return 2;
  }
  try {
    const fs::path strings_txt = argv[1];
    const Table table = ReadTable(strings_txt);
    WriteWholeFile(argv[2], CppSource(table));
    WriteWholeFile(argv[3], RcSource(table));
    if (argc == 5) {
      std::string deps = DepPath(argv[2]) + ":";
      deps += " " + DepPath(strings_txt);
      for (const auto& file : table.text_files) deps += " " + DepPath(file);
      WriteWholeFile(argv[4], deps + "\n");
    }
  } catch (const std::exception& error) {
    std::cerr << "string_table_gen: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
