#include "ide/memory/source_file.h"

#include <array>

#include "base/text.h"

namespace tavrin::ide::memory {
namespace {

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

std::string_view SkipBlanksAndTabs(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsBlankOrTab(text[i])) ++i;
  return text.substr(i);
}

// `Keyword` at column 1 followed by a blank (or the end of the line).
bool StartsWithKeyword(std::string_view line, std::string_view keyword) {
  return StartsWithIgnoreCase(line, keyword) &&
         (line.size() == keyword.size() || IsBlankOrTab(line[keyword.size()]));
}

bool IsAttributeLine(std::string_view line) {
  return StartsWithKeyword(line, "Attribute");
}

// `Object = {guid}#1.0#0; "FILE.OCX"`: a control library the form uses.
bool IsObjectLine(std::string_view line) {
  if (!StartsWithIgnoreCase(line, "Object")) return false;
  return SkipBlanksAndTabs(line.substr(6)).starts_with('=');
}

std::string DominantLineBreak(const std::vector<PhysicalLine>& lines) {
  std::array<int, 3> counts{};  // CR LF, LF, CR
  for (const auto& line : lines) {
    if (line.terminator == "\r\n") ++counts[0];
    else if (line.terminator == "\n") ++counts[1];
    else if (line.terminator == "\r") ++counts[2];
  }
  if (counts[1] > counts[0] && counts[1] >= counts[2]) return "\n";
  if (counts[2] > counts[0] && counts[2] > counts[1]) return "\r";
  return "\r\n";
}

// Index one past the header. A designer block that never closes is an error.
Result<std::size_t> HeaderEnd(const std::vector<PhysicalLine>& lines,
                              std::string_view file_name) {
  std::size_t i = 0;
  while (i < lines.size()) {
    const std::string& text = lines[i].text;
    if (StartsWithKeyword(text, "VERSION") || IsObjectLine(text) ||
        IsAttributeLine(text)) {
      ++i;
      continue;
    }
    if (!EqualsIgnoreCase(FirstWord(text), "Begin")) break;
    // A designer (or class) block: nested Begin/End pairs; BeginProperty and
    // EndProperty are other words and do not count.
    const std::size_t begin = i;
    int depth = 0;
    for (; i < lines.size(); ++i) {
      const std::string_view word = FirstWord(lines[i].text);
      if (EqualsIgnoreCase(word, "Begin")) ++depth;
      else if (EqualsIgnoreCase(word, "End") && --depth == 0) break;
    }
    if (i == lines.size()) {
      return tavrin::Error{std::string(file_name) + ":" + std::to_string(begin + 1) +
                           ": the block \"" + std::string(TrimBlanks(lines[begin].text)) +
                           "\" is never closed by End"};
    }
    ++i;
  }
  return i;
}

}  // namespace

std::string_view FirstWord(std::string_view line) {
  const std::string_view rest = SkipBlanksAndTabs(line);
  std::size_t end = 0;
  while (end < rest.size() && !IsBlankOrTab(rest[end])) ++end;
  return rest.substr(0, end);
}

std::vector<PhysicalLine> SplitPhysicalLines(std::string_view text) {
  std::vector<PhysicalLine> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    std::size_t length = 1;
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') length = 2;
    lines.push_back({std::string(text.substr(start, i - start)),
                     std::string(text.substr(i, length))});
    i += length - 1;
    start = i + 1;
  }
  if (start < text.size()) lines.push_back({std::string(text.substr(start)), ""});
  return lines;
}

Result<SourceFile> SourceFile::Parse(std::string_view bytes, std::string_view file_name) {
  if (bytes.find('\0') != std::string_view::npos) {
    return tavrin::Error{std::string(file_name) +
                         ": not a Visual Basic source file (it holds binary data)"};
  }
  DecodedText decoded = DecodeSource(bytes);
  std::vector<PhysicalLine> lines = SplitPhysicalLines(decoded.text);
  Result<std::size_t> header_end = HeaderEnd(lines, file_name);
  if (!header_end) return tavrin::Error{header_end.error()};

  SourceFile file;
  file.encoding_ = decoded.encoding;
  file.line_break_ = DominantLineBreak(lines);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i < *header_end) {
      file.header_.push_back(std::move(lines[i]));
    } else if (IsAttributeLine(lines[i].text) && !file.code_.empty()) {
      file.code_.back().hidden.push_back(std::move(lines[i]));
    } else {
      file.code_.push_back({std::move(lines[i].text), std::move(lines[i].terminator), {}});
    }
  }
  return file;
}

SourceFile SourceFile::Create(const std::vector<std::string>& header_lines,
                              std::string_view code) {
  SourceFile file;
  file.encoding_ = Encoding::kWindows1252;
  for (const auto& line : header_lines) file.header_.push_back({line, "\r\n"});
  if (!code.empty()) {
    for (std::string_view piece : SplitAnyLineBreak(code))
      file.code_.push_back({std::string(piece), "\r\n", {}});
  }
  return file;
}

std::string SourceFile::Serialize() const {
  std::string text;
  const auto append = [&text](const auto& line) { text.append(line.text).append(line.terminator); };
  for (const auto& line : header_) append(line);
  for (const auto& line : code_) {
    append(line);
    for (const auto& hidden : line.hidden) append(hidden);
  }
  return EncodeSource(text, encoding_);
}

std::string SourceFile::VbName() const {
  for (const auto& line : header_) {
    if (!IsAttributeLine(line.text)) continue;
    std::string_view rest = SkipBlanksAndTabs(std::string_view(line.text).substr(9));
    if (!StartsWithIgnoreCase(rest, "VB_Name")) continue;
    rest = SkipBlanksAndTabs(rest.substr(7));
    if (!rest.starts_with('=')) continue;
    rest = TrimBlanks(SkipBlanksAndTabs(rest.substr(1)));
    if (rest.size() >= 2 && rest.front() == '"') {
      const auto close = rest.find('"', 1);
      return std::string(rest.substr(1, close == std::string_view::npos ? rest.size() - 1
                                                                         : close - 1));
    }
    return std::string(rest);
  }
  return {};
}

std::string* SourceFile::TerminatorBeforeCode(std::size_t index) {
  if (index > 0) {
    CodeLine& line = code_[index - 1];
    return line.hidden.empty() ? &line.terminator : &line.hidden.back().terminator;
  }
  return header_.empty() ? nullptr : &header_.back().terminator;
}

void SourceFile::InsertCode(std::size_t index, const std::vector<std::string_view>& texts) {
  if (texts.empty()) return;
  if (index > code_.size()) index = code_.size();
  std::vector<CodeLine> added;
  added.reserve(texts.size());
  for (std::string_view text : texts) added.push_back({std::string(text), line_break_, {}});
  if (index == code_.size()) {
    // Appending: a file that ended without a line break still does.
    std::string* before = TerminatorBeforeCode(index);
    if (before != nullptr && before->empty()) {
      *before = line_break_;
      added.back().terminator.clear();
    }
  }
  code_.insert(code_.begin() + static_cast<std::ptrdiff_t>(index),
               std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

void SourceFile::ReplaceCodeText(std::size_t index, std::string_view text) {
  code_.at(index).text = std::string(text);
}

void SourceFile::EraseCode(std::size_t index, std::size_t count) {
  if (index >= code_.size() || count == 0) return;
  count = std::min(count, code_.size() - index);
  const bool to_end = index + count == code_.size();
  const CodeLine& last = code_[index + count - 1];
  const bool unterminated_end =
      to_end && (last.hidden.empty() ? last.terminator : last.hidden.back().terminator).empty();
  code_.erase(code_.begin() + static_cast<std::ptrdiff_t>(index),
              code_.begin() + static_cast<std::ptrdiff_t>(index + count));
  if (unterminated_end) {
    if (std::string* before = TerminatorBeforeCode(index)) before->clear();
  }
}

void SourceFile::InsertHeader(std::size_t index, std::string text) {
  if (index > header_.size()) index = header_.size();
  header_.insert(header_.begin() + static_cast<std::ptrdiff_t>(index),
                 PhysicalLine{std::move(text), line_break_});
  if (index + 1 == header_.size() && index > 0 && header_[index - 1].terminator.empty() &&
      code_.empty()) {
    header_[index - 1].terminator = line_break_;
    header_[index].terminator.clear();
  }
}

void SourceFile::EraseHeader(std::size_t index) {
  if (index >= header_.size()) return;
  if (index + 1 == header_.size() && code_.empty() && index > 0 &&
      header_[index].terminator.empty()) {
    header_[index - 1].terminator.clear();
  }
  header_.erase(header_.begin() + static_cast<std::ptrdiff_t>(index));
}

}  // namespace tavrin::ide::memory
