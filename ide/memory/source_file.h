// An exported Visual Basic source file (.bas .cls .frm .ctl .pag .dob .dsr)
// split into its header and its code lines, kept so that writing it back
// gives the original bytes when nothing was changed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/encoding.h"
#include "base/result.h"

namespace tavrin::ide::memory {

// One physical line and the line break that ended it ("\r\n", "\n", "\r",
// or "" for a last line without one).
struct PhysicalLine {
  std::string text;
  std::string terminator;
};

// A line of the code module. The IDE hides the Attribute lines that follow
// some declarations; they ride along after their line and are dropped with it.
struct CodeLine {
  std::string text;
  std::string terminator;
  std::vector<PhysicalLine> hidden;
};

class SourceFile {
 public:
  SourceFile() = default;

  // Refuses binary data and a designer block that never closes; the message
  // names `file_name`.
  static Result<SourceFile> Parse(std::string_view bytes, std::string_view file_name);
  // A new file from header lines and code text, both split at any line break
  // and ended with CR LF. An empty code text gives no code lines.
  static SourceFile Create(const std::vector<std::string>& header_lines,
                           std::string_view code);

  std::string Serialize() const;

  Encoding encoding() const { return encoding_; }
  // The line break given to new lines: the file's most frequent one.
  const std::string& line_break() const { return line_break_; }

  std::vector<PhysicalLine>& header() { return header_; }
  const std::vector<PhysicalLine>& header() const { return header_; }
  const std::vector<CodeLine>& code() const { return code_; }

  // The value of `Attribute VB_Name = "..."` in the header; empty if none.
  std::string VbName() const;

  // Code editing by 0-based index. New lines end with line_break(); a line
  // appended after a last line without a line break takes over that state.
  void InsertCode(std::size_t index, const std::vector<std::string_view>& texts);
  void ReplaceCodeText(std::size_t index, std::string_view text);
  void EraseCode(std::size_t index, std::size_t count);

  // Header editing by 0-based index, for the designer.
  void InsertHeader(std::size_t index, std::string text);
  void EraseHeader(std::size_t index);

 private:
  // The line break of the physical line just before code line `index`.
  std::string* TerminatorBeforeCode(std::size_t index);

  Encoding encoding_ = Encoding::kWindows1252;
  std::string line_break_ = "\r\n";
  std::vector<PhysicalLine> header_;
  std::vector<CodeLine> code_;
};

// Splits decoded text into physical lines, keeping each line's break.
std::vector<PhysicalLine> SplitPhysicalLines(std::string_view text);

// The first blank-separated word of a line, leading blanks and tabs skipped.
std::string_view FirstWord(std::string_view line);

}  // namespace tavrin::ide::memory
