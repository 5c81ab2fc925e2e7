#include "addin/procedure_builder.h"

#include "addin/code_line_commands.h"
#include "addin/code_pane.h"
#include "base/text.h"
#include "base/utf8.h"
#include "builders/procedure_dialog.h"

namespace tavrin::addin {
namespace {

// The classes of the open projects, for the return-type combo.
std::vector<std::string> OpenClasses(ide::IVbe& vbe) {
  std::vector<std::string> classes;
  const auto projects = vbe.VBProjects();
  for (int p = 1; p <= projects->Count(); ++p) {
    const auto components = projects->Item(p)->VBComponents();
    for (int c = 1; c <= components->Count(); ++c) {
      const auto component = components->Item(c);
      if (component->Type() == ide::ComponentType::kClassModule)
        classes.push_back(component->Name());
    }
  }
  return classes;
}

}  // namespace

builders::ProcedureTarget ProcedureTargetOf(ide::IVbe& vbe, ide::ICodeModule& module) {
  const auto component = module.Parent();
  builders::ProcedureTarget target;
  target.standard_module = component->Type() == ide::ComponentType::kStdModule;
  target.module_name = component->Name();
  target.classes = OpenClasses(vbe);
  return target;
}

int InsertProcedureText(ide::ICodeModule& module, int caret_line, const std::string& code,
                        std::string_view name, ide::ProcKind kind) {
  const int count = module.CountOfLines();
  int line = count + 1;  // after the last procedure
  const ide::ProcRef proc = caret_line <= count ? module.ProcOfLine(caret_line) : ide::ProcRef{};
  if (caret_line <= module.CountOfDeclarationLines() || caret_line > count) {
    line = caret_line > count ? count + 1 : module.CountOfDeclarationLines() + 1;
  } else if (!proc.name.empty()) {
    line = module.ProcStartLine(proc.name, proc.kind) + module.ProcCountLines(proc.name, proc.kind);
  }
  // A blank line between the procedure and its neighbours.
  std::string text = code;
  // The generator ends its text with a line break; InsertLines adds its own.
  if (text.ends_with("\r\n")) text.resize(text.size() - 2);
  if (line > 1 && !IsBlankOrEmpty(module.Lines(line - 1, 1))) text = "\r\n" + text;
  if (line <= count && !IsBlankOrEmpty(module.Lines(line, 1))) text += "\r\n";
  module.InsertLines(line, text);
  // The first body line: after the declaration and its continuation lines.
  int at = module.ProcBodyLine(name, kind);
  while (TrimBlanks(module.Lines(at, 1)).ends_with(" _")) ++at;
  return at + 1;
}

bool AddProcedure(Context& context) {
  if (!IsCodePaneReady(context)) return false;
  if (!context.dialogs) {
    context.ui.MessageBox("Add Procedure needs the add-in's dialogs, which this host does not "
                          "show.",
                          platform::Buttons::kOk, platform::Icon::kInformation,
                          platform::kAppTitle);
    return false;
  }
  const auto pane = context.vbe.ActiveCodePane();
  try {
    const auto module = pane->CodeModule();
    builders::ProcedureTarget target = ProcedureTargetOf(context.vbe, *module);
    const settings::ValueTable defaults;
    builders::ProcedureDialog dialog(std::move(target),
                                     context.settings ? context.settings->values : defaults,
                                     TemplateEnvironmentOf(context));
    if (!context.dialogs->Show(dialog)) return false;
    const codegen::clsProcedure procedure = dialog.Procedure();
    const ide::ProcKind kind = procedure.PropertyType == "Get"   ? ide::ProcKind::kGet
                               : procedure.PropertyType == "Let" ? ide::ProcKind::kLet
                               : procedure.PropertyType == "Set" ? ide::ProcKind::kSet
                                                                 : ide::ProcKind::kProc;
    const int caret = InsertProcedureText(*module, pane->GetSelection().start_line, dialog.Code(),
                                          procedure.Name, kind);
    const int column = utf8::CharCount(module->Lines(caret, 1)) + 1;
    pane->SetSelection({caret, column, caret, column});
    return true;
  } catch (const ide::Error& error) {
    context.ui.MessageBox(error.what(), platform::Buttons::kOk, platform::Icon::kExclamation,
                          platform::kAppTitle);
    return false;
  }
}

}  // namespace tavrin::addin
