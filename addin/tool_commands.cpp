#include "addin/tool_commands.h"

#include <exception>
#include <string>

#include "formtools/verify_shortcuts.h"
#include "transform/code_text.h"
#include "transform/code_to_html.h"
#include "transform/pane_transforms.h"

namespace tavrin::addin {
namespace {

void ReportError(Context& context, std::string_view command, std::string_view message) {
  context.ui.MessageBox(std::string(command) + ": " + std::string(message),
                        platform::Buttons::kOk, platform::Icon::kCritical, platform::kAppTitle);
}

// The command's error handler: whatever the step raises is shown, and lines
// already rewritten stay rewritten.
template <class Step>
void Guarded(Context& context, std::string_view command, Step&& step) {
  try {
    step();
  } catch (const ide::Error& error) {
    ReportError(context, command,
                "error " + std::to_string(error.number()) + ", " + error.what());
  } catch (const std::exception& error) {
    ReportError(context, command, error.what());
  }
}

}  // namespace

void LineNumbersCommand(Context& context, int mode) {
  Guarded(context, "LineNumbersCommand", [&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) return;
    if (mode == kLineNumbersAdd) {
      long long start_number = 0;
      transform::AddLineNumbers(*pane, start_number);
    } else if (mode == kLineNumbersRemove) {
      transform::RemoveLineNumbers(*pane);
    }
  });
}

bool CommentLinesCommand(Context& context, std::string_view command_name) {
  const bool add = command_name == kCommentLinesAdd;
  if (!add && command_name != kCommentLinesRemove) return false;
  Guarded(context, add ? "AddCommentMarks" : "RemoveCommentMarks", [&] {
    const auto pane = context.vbe.ActiveCodePane();
    if (!pane) throw ide::Error(91, "There is no active code pane.");
    add ? transform::AddCommentMarks(*pane) : transform::RemoveCommentMarks(*pane);
  });
  return true;
}

void ConvertToHtmlCommand(Context& context, transform::HtmlPageServices& services,
                          ide::IComponent& component, std::string_view procedure_name,
                          bool print) {
  Guarded(context, "ConvertCodeToHtml", [&] {
    const auto module = component.CodeModule();
    std::string code;
    std::string procedure;
    if (procedure_name.empty()) {
      code = transform::ModuleCodeText(*module);
    } else if (auto found = transform::ProcedureCodeText(*module, procedure_name)) {
      code = std::move(found->text);
      procedure = std::move(found->name);
    } else {
      throw ide::Error(35, "Sub or Function not defined: " + std::string(procedure_name));
    }
    std::string html = transform::ConvertCodeToHtml(code);
    if (print) html += "<script>window.onload = function () { window.print(); };</script>";
    const auto shown = transform::ShowHtmlPage(services, html, component.Name(), procedure);
    if (!shown) ReportError(context, "ShowHtmlPage", shown.error());
  });
}

void VerifyShortcutsCommand(Context& context) {
  Guarded(context, "VerifyShortcuts", [&] {
    formtools::VerifyShortcuts(formtools::ActiveFormDesigner(context.vbe), context.ui);
  });
}

}  // namespace tavrin::addin
