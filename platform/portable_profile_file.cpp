#include "platform/portable_profile_file.h"

#include <vector>

#include "base/encoding.h"
#include "base/text.h"

namespace tavrin::platform {
namespace {

bool IsProfileSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view TrimProfileSpace(std::string_view text) {
  while (!text.empty() && IsProfileSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsProfileSpace(text.back())) text.remove_suffix(1);
  return text;
}

// The system's strings are C strings: a NUL inside a line ends it.
std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

struct Line {
  std::size_t begin = 0;  // first character
  std::size_t end = 0;    // past the text, before the line break
  std::size_t next = 0;   // past the line break
};

struct Section {
  std::string name;
  std::size_t header = 0;      // line index of "[name]"
  std::size_t body_end = 0;    // line index past the last non-blank line
  std::size_t lines_end = 0;   // line index of the next header (or the end)
};

// One profile file in memory: its text (UTF-8), how it is encoded on disk,
// its lines and sections.
class ProfileText {
 public:
  static ProfileText Parse(std::string_view bytes) {
    ProfileText profile;
    profile.ascii_ = true;
    for (unsigned char c : bytes) profile.ascii_ = profile.ascii_ && c < 0x80;
    DecodedText decoded = DecodeSource(bytes);
    profile.text_ = std::move(decoded.text);
    profile.encoding_ = decoded.encoding;
    profile.Index();
    return profile;
  }

  std::string_view LineText(std::size_t index) const {
    const Line& line = lines_[index];
    return std::string_view(text_).substr(line.begin, line.end - line.begin);
  }
  const std::vector<Section>& Sections() const { return sections_; }
  const Section* Find(std::string_view name) const {
    for (const Section& section : sections_)
      if (EqualsIgnoreCase(section.name, name)) return &section;
    return nullptr;
  }
  bool IsBlank(std::size_t index) const { return TrimProfileSpace(LineText(index)).empty(); }

  // The line break this file uses: LF when its first line ends in a bare LF.
  std::string_view LineBreak() const {
    for (const Line& line : lines_)
      if (line.next > line.end) return text_.compare(line.end, 2, "\r\n") == 0 ? "\r\n" : "\n";
    return "\r\n";
  }

  // Offsets of lines; past the end of the text for an index past the last line.
  std::size_t Begin(std::size_t index) const {
    return index < lines_.size() ? lines_[index].begin : text_.size();
  }

  // Replaces the text from `begin` to `end` with `replacement` and encodes
  // the file again; untouched text keeps its bytes.
  std::string Replaced(std::size_t begin, std::size_t end, std::string_view replacement) const {
    std::string text = text_.substr(0, begin);
    // Text added after a last line without a line break starts a line of its own.
    if (begin == text_.size() && !replacement.empty() && !text.empty() && text.back() != '\n' &&
        text.back() != '\r')
      text += LineBreak();
    text += replacement;
    text += text_.substr(end);
    Encoding encoding = encoding_;
    // A file of plain ASCII has no encoding yet: it becomes UTF-8 when
    // other characters arrive, so nothing is lost.
    if (ascii_ && encoding == Encoding::kWindows1252) encoding = Encoding::kUtf8;
    return EncodeSource(text, encoding);
  }

  // Text that appends `lines` to the end, on a line of their own.
  std::string Appended(std::string_view lines) const {
    return Replaced(text_.size(), text_.size(), lines);
  }

 private:
  void Index() {
    std::size_t start = 0;
    while (start < text_.size()) {
      Line line;
      line.begin = start;
      const auto brk = text_.find_first_of("\r\n", start);
      if (brk == std::string::npos) {
        line.end = line.next = text_.size();
      } else {
        line.end = brk;
        line.next = brk + (text_.compare(brk, 2, "\r\n") == 0 ? 2 : 1);
      }
      lines_.push_back(line);
      start = line.next;
    }
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const std::string_view trimmed = TrimProfileSpace(LineText(i));
      if (trimmed.empty() || trimmed.front() != '[') continue;
      const auto close = trimmed.rfind(']');
      if (close == std::string_view::npos) continue;
      if (!sections_.empty()) sections_.back().lines_end = i;
      sections_.push_back({std::string(trimmed.substr(1, close - 1)), i, i + 1, lines_.size()});
    }
    for (Section& section : sections_) {
      section.body_end = section.header + 1;
      for (std::size_t i = section.header + 1; i < section.lines_end; ++i)
        if (!IsBlank(i)) section.body_end = i + 1;
    }
  }

  std::string text_;
  Encoding encoding_ = Encoding::kWindows1252;
  bool ascii_ = true;
  std::vector<Line> lines_;
  std::vector<Section> sections_;
};


// A line as the system answers it: key and value trimmed around "=".
std::string ReadLine(std::string_view line) {
  line = UpToNul(TrimProfileSpace(line));
  const auto equals = line.find('=');
  if (equals == std::string_view::npos) return std::string(line);
  return std::string(TrimProfileSpace(line.substr(0, equals))) + "=" +
         std::string(TrimProfileSpace(line.substr(equals + 1)));
}

std::string KeyOf(std::string_view line) {
  line = TrimProfileSpace(line);
  return std::string(TrimProfileSpace(line.substr(0, line.find('='))));
}

// "[name]" and the given lines, each ending in the file's line break.
std::string SectionText(std::string_view name, const std::vector<std::string_view>& lines,
                        std::string_view line_break) {
  std::string text = "[" + std::string(name) + "]" + std::string(line_break);
  for (std::string_view line : lines) text += std::string(line) + std::string(line_break);
  return text;
}

std::vector<std::string_view> SplitNulList(std::string_view list) {
  std::vector<std::string_view> lines;
  while (!list.empty() && list.front() != '\0') {
    const auto nul = list.find('\0');
    lines.push_back(list.substr(0, nul));
    if (nul == std::string_view::npos) break;
    list.remove_prefix(nul + 1);
  }
  return lines;
}

}  // namespace

class PortableProfileFile::Parsed : public ProfileText {
 public:
  explicit Parsed(ProfileText text) : ProfileText(std::move(text)) {}
};

PortableProfileFile::PortableProfileFile(FileSystem& files) : files_(files) {}
PortableProfileFile::~PortableProfileFile() = default;

// A missing file, or one that cannot be read (a folder), reads as empty.
const PortableProfileFile::Parsed& PortableProfileFile::Load(std::string_view file) {
  auto bytes = files_.ReadFile(file);
  std::string current = bytes ? std::move(*bytes) : std::string();
  if (!cached_ || cached_path_ != file || cached_bytes_ != current) {
    cached_ = std::make_unique<Parsed>(ProfileText::Parse(current));
    cached_path_ = std::string(file);
    cached_bytes_ = std::move(current);
  }
  return *cached_;
}

ProfileBuffer PortableProfileFile::SectionNames(std::string_view file, std::size_t buffer_size) {
  const ProfileText& profile = Load(file);
  std::string names;
  for (const Section& section : profile.Sections()) {
    const std::string_view name = UpToNul(section.name);
    if (!name.empty()) names += std::string(name) + '\0';
  }
  return FillProfileBuffer(names, buffer_size);
}

ProfileBuffer PortableProfileFile::ReadSection(std::string_view file, std::string_view section,
                                               std::size_t buffer_size) {
  const ProfileText& profile = Load(file);
  std::string lines;
  if (const Section* found = profile.Find(section)) {
    for (std::size_t i = found->header + 1; i < found->body_end; ++i) {
      const std::string line = ReadLine(profile.LineText(i));
      if (!line.empty()) lines += line + '\0';
    }
  }
  return FillProfileBuffer(lines, buffer_size);
}

Status PortableProfileFile::WriteSection(std::string_view file, std::string_view section,
                                         std::optional<std::string_view> lines) {
  const ProfileText& profile = Load(file);
  const Section* found = profile.Find(section);
  std::string bytes;
  if (!lines) {
    if (!found) return {};
    // The header and the section's lines go; blank lines after them stay.
    bytes = profile.Replaced(profile.Begin(found->header), profile.Begin(found->body_end), "");
  } else if (found) {
    std::string body;
    for (std::string_view line : SplitNulList(*lines))
      body += std::string(line) + std::string(profile.LineBreak());
    bytes = profile.Replaced(profile.Begin(found->header + 1), profile.Begin(found->body_end),
                             body);
  } else {
    bytes = profile.Appended(SectionText(section, SplitNulList(*lines), profile.LineBreak()));
  }
  return files_.WriteFile(file, bytes);
}

Status PortableProfileFile::WriteString(std::string_view file, std::string_view section,
                                        std::string_view key, std::string_view value) {
  const ProfileText& profile = Load(file);
  const Section* found = profile.Find(section);
  const std::string line_break(profile.LineBreak());
  std::string bytes;
  if (!found) {
    const std::string line = std::string(key) + "=" + std::string(value);
    bytes = profile.Appended(SectionText(section, {line}, line_break));
    return files_.WriteFile(file, bytes);
  }
  for (std::size_t i = found->header + 1; i < found->body_end; ++i) {
    const std::string_view text = profile.LineText(i);
    if (profile.IsBlank(i) || !EqualsIgnoreCase(KeyOf(text), key)) continue;
    // The key keeps the spelling it has in the file.
    const std::string line = KeyOf(text) + "=" + std::string(value);
    const std::size_t begin = profile.Begin(i);
    bytes = profile.Replaced(begin, begin + text.size(), line);
    return files_.WriteFile(file, bytes);
  }
  const std::size_t at = profile.Begin(found->body_end);
  bytes = profile.Replaced(at, at, std::string(key) + "=" + std::string(value) + line_break);
  return files_.WriteFile(file, bytes);
}

}  // namespace tavrin::platform
