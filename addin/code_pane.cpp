#include "addin/code_pane.h"

#include "addin/ignore_errors.h"
#include "base/text.h"

namespace tavrin::addin {

bool IsCodePaneReady(Context& context) {
  bool ready = false;
  IgnoreErrors([&] {
    if (context.vbe.VBProjects()->Count() == 0) return;
    const auto window = context.vbe.ActiveWindow();
    ready = window && window->Type() == ide::WindowType::kCodeWindow &&
            context.vbe.ActiveCodePane() != nullptr;
  });
  return ready;
}

std::string IndentString(platform::IdeOptions& options) {
  const auto width = options.TabWidth();
  return Blanks(width ? *width : 4);
}

int LeadingBlanks(ide::ICodeModule& module, int line) {
  const auto indentation = [&](int number) {
    if (number < 1) return 0;
    const std::string text = module.Lines(number, 1);
    return IsBlankOrEmpty(text) ? 0 : CountLeadingBlanks(text);
  };
  const int count = indentation(line);
  return count != 0 ? count : indentation(line - 1);
}

int CaretMargin(Context& context) {
  int margin = 0;
  IgnoreErrors([&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    const ide::TextRange caret = pane->GetSelection();
    const auto module = pane->CodeModule();
    margin = LeadingBlanks(*module, caret.start_line);
    if (IsBlankOrEmpty(module->Lines(caret.start_line, 1)) &&
        caret.start_column - 1 > margin)
      margin = caret.start_column - 1;
  });
  if (margin == 0) margin = static_cast<int>(IndentString(context.ide_options).size());
  return margin;
}

int InsertBlock(Context& context, std::string_view text, int caret_column) {
  const auto pane = context.vbe.ActiveCodePane();
  if (!pane) return 0;
  std::shared_ptr<ide::ICodeModule> module;
  int line = 0;
  std::string line_text;
  IgnoreErrors([&] { module = pane->CodeModule(); });
  if (!module) return 0;
  IgnoreErrors([&] { line = pane->GetSelection().start_line; });
  IgnoreErrors([&] { line_text = module->Lines(line, 1); });
  // A blank caret line is replaced by the block; a line with text is kept.
  if (IsBlankOrEmpty(line_text)) {
    IgnoreErrors([&] { module->DeleteLines(line, 1); });
    line = line - 1;
  }
  IgnoreErrors([&] { module->InsertLines(line + 1, text); });
  if (caret_column > 0)
    IgnoreErrors([&] { pane->SetSelection({line + 1, caret_column, line + 1, caret_column}); });
  return line + 1;
}

void PlaceCursorMarker(Context& context, int start_line, bool remove_only,
                       std::shared_ptr<ide::ICodePane> pane) {
  IgnoreErrors([&] {
    if (!pane) pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    const auto module = pane->CodeModule();
    ide::TextRange found{start_line, 1, -1, -1};
    while (module->Find(kCursorMarker, found)) {
      const std::string text = module->Lines(found.start_line, 1);
      std::string cleaned;
      for (std::size_t at = 0;;) {
        const std::size_t next = FindIgnoreCase(text, kCursorMarker, at);
        cleaned.append(text, at, next == std::string::npos ? std::string::npos : next - at);
        if (next == std::string::npos) break;
        at = next + kCursorMarker.size();
      }
      module->ReplaceLine(found.start_line, cleaned);
      if (!remove_only)
        pane->SetSelection({found.start_line, found.start_column, found.start_line,
                            found.start_column});
      found = {found.start_line, 1, -1, -1};
    }
  });
}

}  // namespace tavrin::addin
