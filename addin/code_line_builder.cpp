#include "addin/code_line_builder.h"

#include "addin/code_pane.h"
#include "addin/ignore_errors.h"
#include "base/text.h"
#include "fragments/code_folders.h"
#include "ide/memory/component_kind.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_vbe.h"
#include "scan/module_scanner.h"

namespace tavrin::addin {
namespace {

std::vector<codegen::Callable> CallablesOf(ide::IVbe* vbe, ide::IComponent& component,
                                           bool public_only) {
  std::vector<codegen::Callable> callables;
  for (const scan::ScannedProcedure& procedure : scan::ScanModule(vbe, component)) {
    const scan::C4_ProcDef& def = procedure.def;
    if (def.ProcKind() != 0 || (public_only && !def.ProcIsPublic())) continue;
    codegen::Callable callable;
    callable.module = component.Name();
    callable.name = def.Name();
    callable.is_function = def.ProcIsFunction();
    callable.return_type = def.ProcReturnType();
    callable.arguments = def.ProcArguments().Items();
    callable.description = def.HelpStr();
    callables.push_back(std::move(callable));
  }
  return callables;
}

}  // namespace

std::vector<builders::CallableModule> ProjectCallables(ide::IVbe& vbe, ide::IProject& project,
                                                      std::string_view current) {
  std::vector<builders::CallableModule> modules;
  const auto components = project.VBComponents();
  for (int i = 1; i <= components->Count(); ++i) {
    IgnoreErrors([&] {
      const auto component = components->Item(i);
      const bool is_current = component->Name() == current;
      if (!is_current && component->Type() != ide::ComponentType::kStdModule) return;
      auto callables = CallablesOf(&vbe, *component, !is_current);
      if (!callables.empty()) modules.push_back({component->Name(), std::move(callables)});
    });
  }
  return modules;
}

std::vector<builders::CallableModule> LibraryCallables(platform::FileSystem& files,
                                                      std::string_view folder) {
  std::vector<builders::CallableModule> modules;
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto entries = files.ListFolder(folder);
  if (!entries) return modules;
  for (const platform::FolderEntry& entry : *entries) {
    if (entry.is_folder || !ide::memory::IsSourceFileName(entry.name)) continue;
    const std::string path =
        fragments::JoinPath({std::string(folder), entry.name}, platform::NativePathStyle());
    const auto component = vbe->OpenFile(files, path);
    if (!component) continue;  // a file that is no module is no library
    auto callables = CallablesOf(nullptr, *component.value(), true);
    if (!callables.empty()) modules.push_back({component.value()->Name(), std::move(callables)});
  }
  return modules;
}

bool InsertCodeLine(Context& context) {
  if (!IsCodePaneReady(context)) return false;
  if (!context.dialogs) {
    context.ui.MessageBox("Insert Line Of Code needs the add-in's dialogs, which this host "
                          "does not show.",
                          platform::Buttons::kOk, platform::Icon::kInformation,
                          platform::kAppTitle);
    return false;
  }
  const settings::ValueTable defaults;
  const settings::ValueTable& values = context.settings ? context.settings->values : defaults;
  std::vector<builders::CallableModule> modules;
  std::string current;
  try {
    const auto component = context.vbe.ActiveCodePane()->CodeModule()->Parent();
    current = component->Name();
    if (values.YesNo(settings::Item::kOpenOnCurrentProject) || !context.settings ||
        !context.files)
      modules = ProjectCallables(context.vbe, *component->Project(), current);
    else
      modules = LibraryCallables(*context.files, context.settings->folders.CodeFolder(2));
  } catch (const ide::Error& error) {
    context.ui.MessageBox(error.what(), platform::Buttons::kOk, platform::Icon::kExclamation,
                          platform::kAppTitle);
    return false;
  }
  builders::CodeLineDialog dialog(std::move(modules), current, builders::CallOptionsFrom(values),
                                  Blanks(CaretMargin(context)));
  if (!context.dialogs->Show(dialog)) return false;
  const int first_line = InsertBlock(context, dialog.Code(), 0);
  if (first_line <= 0) return false;
  PlaceCursorMarker(context, first_line, false);
  return true;
}

}  // namespace tavrin::addin
