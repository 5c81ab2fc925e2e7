// The texts of the code-line snippets: the If family, the loop family and the
// With block. Pure text builders: the caller supplies the left margin and the
// indent unit and inserts the result (addin/code_lines).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::codegen {

// String resources of the snippet keywords.
enum KeywordId {
  kIfThen = 301, kElse = 302, kElseIfThen = 303, kEndIf = 304,
  kSelectCase = 305, kCase = 306, kCaseElse = 307, kEndSelect = 308,
  kDoWhile = 309, kDoUntil = 310, kLoop = 311, kForEachIn = 312,
  kForTo = 313, kNext = 314, kWhile = 315, kWend = 316,
};

enum class IfForm {
  kIfThen,            // "If Then"
  kIfThenElse,        // "If Then Else"
  kIfThenElseIf,      // "If Then Else If": asks how many ElseIf parts
  kIfThenElseIfElse,  // "If Then ElseIf Else": asks too, ends with Else
};

std::optional<IfForm> IfFormOf(std::string_view command_name);
bool AsksElseIfCount(IfForm form);

// M + "If Then", a body line, n ElseIf parts, the Else part where the form
// has one, M + "End If"; lines joined by CR LF, no break at the end.
std::string IfBlockText(IfForm form, std::string_view margin, std::string_view unit,
                        int else_if_count);

struct LoopForm {
  std::string_view command_name;
  int first_keyword;
  int last_keyword;
  int caret_offset;  // the caret column is length(margin) + caret_offset
};

const LoopForm* LoopFormOf(std::string_view command_name);

// M + first keyword, a body line, M + last keyword.
std::string LoopBlockText(const LoopForm& form, std::string_view margin,
                          std::string_view unit);

// M + "With " + object, a body line, M + "End With".
std::string WithBlockText(std::string_view object_text, std::string_view margin,
                          std::string_view unit);

// The names of the code-line commands built so far, in menu order.
const std::vector<std::string_view>& SnippetCommandNames();

}  // namespace tavrin::codegen
