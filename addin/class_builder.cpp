#include "addin/class_builder.h"

#include <string>

#include "addin/code_line_commands.h"
#include "addin/code_pane.h"
#include "addin/pane_command.h"
#include "base/text.h"
#include "scan/project_scanner.h"

namespace tavrin::addin {
builders::ClassTarget ClassTargetOf(Context& context, ide::IProject& project) {
  builders::ClassTarget target;
  target.project_name = project.Name();
  const auto components = project.VBComponents();
  for (int i = 1; i <= components->Count(); ++i) {
    const auto component = components->Item(i);
    target.component_names.push_back(component->Name());
    if (component->Type() == ide::ComponentType::kClassModule)
      target.class_modules.push_back(target.component_names.back());
  }
  target.declarations.project = scan::ScanProjects(context.vbe);
  target.declarations.indent = IndentString(context.ide_options);
  if (context.settings) {
    const std::string setting = context.settings->Text(settings::Item::kCollectionClassTemplate);
    target.template_path = context.settings->FilePath(settings::Item::kCollectionClassTemplate);
    const codegen::TemplateEnvironment environment = TemplateEnvironmentOf(context);
    if (environment.read_code_file) target.collection_template = environment.read_code_file(setting);
  }
  return target;
}

std::shared_ptr<ide::IComponent> AddClassModule(ide::IProject& project,
                                                const builders::ClassDialog& dialog) {
  const auto components = project.VBComponents();
  const auto component = components->Add(ide::ComponentType::kClassModule);
  try {
    component->SetName(dialog.DeclaredName());
    const auto module = component->CodeModule();
    // The IDE may have written Option Explicit already: the builder's text
    // says whether there is one.
    if (const int count = module->CountOfLines(); count > 0) module->DeleteLines(1, count);
    module->InsertLines(1, dialog.Code());
    const auto pane = module->CodePane();
    pane->Show();
    const int line = std::min(module->CountOfDeclarationLines() + 1, module->CountOfLines());
    pane->SetSelection({line, 1, line, 1});
  } catch (const ide::Error&) {
    components->Remove(*component);
    throw;
  }
  return component;
}

bool AddClass(Context& context) {
  const auto project = context.vbe.ActiveVBProject();
  if (!project) {
    TellExclamation(context, "Open a project to add a class to.");
    return false;
  }
  if (!context.dialogs) {
    TellExclamation(context, "Add Class needs the add-in's dialogs, which this host does not provide.");
    return false;
  }
  try {
    const fragments::Settings defaults;
    const fragments::Settings& settings = context.settings ? *context.settings : defaults;
    builders::ClassDialog dialog(ClassTargetOf(context, *project), settings.Naming(),
                                 settings.type_prefixes, TemplateEnvironmentOf(context));
    if (!context.dialogs->Show(dialog)) return false;
    AddClassModule(*project, dialog);
    return true;
  } catch (const ide::Error& error) {
    TellExclamation(context, std::string("The class could not be added: ") + error.what());
    return false;
  }
}

void RunAddClass(CommandHost& host, std::string_view) { AddClass(host.CommandContext()); }

}  // namespace tavrin::addin
