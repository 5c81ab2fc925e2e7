#include "addin/code_lines.h"

#include <algorithm>
#include <string>

#include "addin/code_line_commands.h"
#include "addin/code_pane.h"
#include "addin/ignore_errors.h"
#include "addin/tool_commands.h"
#include "base/text.h"
#include "base/utf8.h"
#include "codegen/snippets.h"

namespace tavrin::addin {
namespace {

// Types one blank at the caret, so the line is ready for the condition.
void TypeBlank(Context& context) {
  IgnoreErrors([&] { context.vbe.SendKeys(" "); });
}

// A With block at the caret; the caret goes to its body, or, when the
// object is left to type, after "With ".
void WithBlockAtCaret(Context& context, std::string_view object_text) {
  const auto pane = context.vbe.ActiveCodePane();
  if (!pane) return;
  const std::string text = codegen::WithBlockText(object_text, Blanks(CaretMargin(context)),
                                                  IndentString(context.ide_options));
  IgnoreErrors([&] {
    const auto module = pane->CodeModule();
    const int line = pane->GetSelection().start_line;
    if (line > module->CountOfLines()) module->InsertLines(line, "");
    const bool replaces = IsBlankOrEmpty(module->Lines(line, 1));
    if (replaces)
      module->ReplaceLine(line, text);
    else
      module->InsertLines(line + 1, text);
    const int with_line = replaces ? line : line + 1;
    const int caret = object_text.empty() ? with_line : line + 1;
    const int column = utf8::CharCount(module->Lines(caret, 1)) + 1;
    pane->SetSelection({caret, column, caret, column});
  });
}

}  // namespace

bool InsertCodeLines(Context& context, std::string_view command_name) {
  const bool is_if = codegen::IfFormOf(command_name).has_value();
  const bool is_loop = codegen::LoopFormOf(command_name) != nullptr;
  const bool is_with = command_name == "With";
  const bool is_comment = command_name == kCommentLinesAdd || command_name == kCommentLinesRemove;
  const bool is_line = IsCodeLineCommand(command_name);
  if (!is_if && !is_loop && !is_with && !is_comment && !is_line) return false;
  if (!IsCodePaneReady(context)) return true;
  if (is_comment) return CommentLinesCommand(context, command_name);
  if (is_line) {
    InsertCodeLineCommand(context, command_name);
  } else if (is_if) {
    InsertIfBlock(context, command_name);
  } else if (is_loop) {
    InsertLoopBlock(context, command_name);
  } else if (const auto object_text = AskWithObject(context)) {
    // An empty answer from the list is "<Start Typing>"; from the input box
    // it inserts nothing, as before.
    if (!object_text->empty() || context.dialogs) WithBlockAtCaret(context, *object_text);
  }
  return true;
}

void InsertIfBlock(Context& context, std::string_view command_name) {
  const auto form = codegen::IfFormOf(command_name);
  if (!form) return;
  long long else_if_count = 0;
  if (codegen::AsksElseIfCount(*form)) {
    const auto answer = context.ui.InputBox("Number of 'ElseIf'", command_name, "");
    if (!answer) return;
    else_if_count = std::max(LeadingNumber(*answer), 0LL);
    if (else_if_count > kMaxElseIfCount) {
      context.ui.MessageBox("Number of 'ElseIf' must be between 0 and " +
                                std::to_string(kMaxElseIfCount) + ".",
                            platform::Buttons::kOk, platform::Icon::kExclamation,
                            platform::kAppTitle);
      return;
    }
  }
  const std::string margin = Blanks(CaretMargin(context));
  const std::string text = codegen::IfBlockText(
      *form, margin, IndentString(context.ide_options), static_cast<int>(else_if_count));
  InsertBlock(context, text, static_cast<int>(margin.size()) + 3);
  TypeBlank(context);
}

void InsertLoopBlock(Context& context, std::string_view command_name) {
  const codegen::LoopForm* form = codegen::LoopFormOf(command_name);
  if (!form) return;
  const std::string margin = Blanks(CaretMargin(context));
  const std::string text =
      codegen::LoopBlockText(*form, margin, IndentString(context.ide_options));
  InsertBlock(context, text, static_cast<int>(margin.size()) + form->caret_offset);
  TypeBlank(context);
}

bool InsertWithBlock(Context& context, std::string_view object_text) {
  if (object_text.empty() || !context.vbe.ActiveCodePane()) return false;
  WithBlockAtCaret(context, object_text);
  return true;
}

}  // namespace tavrin::addin
