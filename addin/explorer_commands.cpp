#include "addin/explorer_commands.h"

#include <memory>
#include <string>

#include "addin/command_host.h"
#include "addin/command_table.h"
#include "addin/export_file.h"
#include "addin/tool_commands.h"
#include "addin/tool_documents.h"
#include "platform/browser.h"

namespace tavrin::addin {
namespace {

// What the context menu was opened on, as the IDE has it now.
struct Target {
  MemberPlace place;
  std::shared_ptr<ide::IProject> project;
  std::shared_ptr<ide::IComponent> component;  // null on a project or folder node
};

// The menu's node; with none (the menu run otherwise), the active project.
Target Selection(CommandHost& host) {
  Context& context = host.CommandContext();
  Target target;
  const CodeExplorerDocument* explorer = host.ExplorerDocument();
  if (explorer && explorer->Selected()) target.place = *explorer->Selected();
  if (target.place.project.empty()) {
    target.project = context.vbe.ActiveVBProject();
    if (!target.project) throw ide::Error(91, "There is no open project.");
    target.place.project = target.project->Name();
    return target;
  }
  target.project = context.vbe.VBProjects()->Item(target.place.project);
  if (!target.place.component.empty())
    target.component = target.project->VBComponents()->Item(target.place.component);
  return target;
}

std::shared_ptr<ide::IComponent> SelectedComponent(CommandHost& host) {
  Target target = Selection(host);
  if (!target.component) {
    host.CommandContext().ui.MessageBox("Choose a component in the Code Explorer first.",
                                        platform::Buttons::kOk, platform::Icon::kExclamation,
                                        platform::kAppTitle);
  }
  return target.component;
}

bool HasCode(ide::IComponent& component) {
  try {
    return component.CodeModule() != nullptr;
  } catch (const ide::Error&) {
    return false;  // a designer the IDE cannot open
  }
}

// Selects every line of the component's pane and runs the line numbers
// command over it.
void NumberWholeComponent(CommandHost& host, ide::IComponent& component,
                          std::string_view add_or_remove) {
  if (!HasCode(component)) return;
  const auto module = component.CodeModule();
  const int count = module->CountOfLines();
  if (count == 0) return;
  const auto pane = module->CodePane();
  pane->Show();
  const int last_length = int(module->Lines(count, 1).size());
  pane->SetSelection({1, 1, count, last_length + 1});
  RunLineNumbers(host, add_or_remove);
  pane->SetSelection({1, 1, 1, 1});
}

}  // namespace

void RunExplorerRefresh(CommandHost& host, std::string_view) {
  if (CodeExplorerDocument* explorer = host.ExplorerDocument()) explorer->Initialize(true);
}

void RunExplorerAdd(CommandHost& host, std::string_view kind) {
  const Target target = Selection(host);
  const auto type = kind == "Form" ? ide::ComponentType::kVBForm : ide::ComponentType::kStdModule;
  const auto added = target.project->VBComponents()->Add(type);
  if (added && HasCode(*added)) added->CodeModule()->CodePane()->Show();
}

void RunExplorerRemove(CommandHost& host, std::string_view) {
  const auto component = SelectedComponent(host);
  if (!component) return;
  Context& context = host.CommandContext();
  const std::string name = component->Name();
  const auto project = component->Project();
  const auto answer = context.ui.MessageBox(
      "Remove " + name + " from " + project->Name() + "? Export it first to keep its code.",
      platform::Buttons::kYesNo, platform::Icon::kQuestion, platform::kAppTitle);
  if (answer == platform::Answer::kYes) project->VBComponents()->Remove(*component);
}

void RunExplorerExport(CommandHost& host, std::string_view) {
  if (const auto component = SelectedComponent(host))
    ExportFile(host.CommandContext(), *component);
}

void RunExplorerHtml(CommandHost& host, std::string_view print) {
  const Target target = Selection(host);
  if (!target.component) {
    SelectedComponent(host);  // says what to do
    return;
  }
  Context& context = host.CommandContext();
  if (!context.files || !HasCode(*target.component)) return;
  // The explorer has no browser to ask for its character set: the page says
  // windows-1252, Western Windows' own default.
  platform::PortableBrowser browser;
  transform::HtmlPageServices services{*context.files, host.Shell(), browser,
                                       context.settings ? context.settings->addin_folder : ""};
  ConvertToHtmlCommand(context, services, *target.component, target.place.member,
                       print == "Print");
}

void ShowNodeCode(CommandHost& host) {
  const Target target = Selection(host);
  if (target.component && HasCode(*target.component))
    GoToMember(host.CommandContext().vbe, target.place);
}

void RunExplorerLineNumbers(CommandHost& host, std::string_view add_or_remove) {
  const Target target = Selection(host);
  if (target.component) {
    NumberWholeComponent(host, *target.component, add_or_remove);
    return;
  }
  const auto components = target.project->VBComponents();
  for (int i = 1; i <= components->Count(); ++i)
    NumberWholeComponent(host, *components->Item(i), add_or_remove);
}

}  // namespace tavrin::addin
