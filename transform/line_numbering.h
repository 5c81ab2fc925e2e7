// Visual Basic line numbers over a block of code lines: which lines get a
// number, what the number is, and how a number is taken off again. Pure text
// work (lines in, lines out); the commands over the code pane are in
// transform/pane_rewrite.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrin::transform {

// Statement prefixes that never get a number, compared case-insensitively
// with the start of the trimmed line. "End" also matches "Endless = 1" and
// "With" also "WithEvents": users rely on exactly this list.
inline constexpr std::string_view kNonNumberedStatements =
    "Dim,Const,Static,Case,Else,End If,End Select,End With,Wend,Next,Exit,End,Resume,GoTo,"
    "GoSub,Return,With,Doevents";

// The line without its leading number: digits at column 1, then at most one
// ":" and one blank.
std::string StripLineNumber(std::string_view line);

// A label at column 1 on a line of its own ("ErrHandler:", no blank at all).
bool IsLabelLine(std::string_view line);

// A line starting (after blanks) with an optional "Private ", "Global " or
// "Public " and then "Sub", "Function" or "Property", as a plain prefix test
// ("SubTotal = 1" counts).
bool IsProcedureDeclaration(std::string_view line);

// 0 when the line declares a procedure with the scope word of scope_kind
// (0 none, 1 and 4 "PRIVATE ", 2 "GLOBAL ", 3 "PUBLIC "), 1 when the scope
// word occurs but the line declares nothing, 2 otherwise. A scope kind
// outside 0..4 throws std::invalid_argument ("NEVER HERE !!").
int Findifisfunctionorvariable(std::string_view line, int scope_kind);

// 1 "Sub", 2 "Function", 3 "Property"; "" for anything else.
std::string_view ProcedureKindWord(int kind);

// 1-based character position of the first "'" outside a string literal; 0
// when there is none. "Rem" is not recognised.
int FindCommentStart(std::string_view line);

// A procedure declaration, a blank line or a whole-line "'" comment.
bool IsNotNumberable(std::string_view line);

// The block with every number stripped; an empty line comes back as one
// blank, as the IDE's own removal leaves it.
std::vector<std::string> RemovedLineNumbers(const std::vector<std::string>& lines);

// Numbers a block of module lines that starts at module line first_line.
// `line_after` is the module line that follows the block (a declaration
// there keeps the block's last line unnumbered). Numbers already present are
// stripped first, so numbering twice equals numbering once. Line L gets the
// number (start_number + L) * 10: numbers follow module positions.
std::vector<std::string> AddedLineNumbers(const std::vector<std::string>& lines,
                                          std::string_view line_after, int first_line,
                                          long long start_number);

}  // namespace tavrin::transform
