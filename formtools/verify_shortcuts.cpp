#include "formtools/verify_shortcuts.h"

#include "base/text.h"
#include "ide/ignore_errors.h"
#include "resources/string_table.h"

namespace tavrin::formtools {
namespace {

using resources::LoadResString;

void Inform(platform::Ui& ui, int message, platform::Icon icon) {
  ui.MessageBox(LoadResString(message), platform::Buttons::kOk, icon, platform::kAppTitle);
}

// The designer of a component whose designer window has this caption.
std::shared_ptr<ide::IDesigner> DesignerWithCaption(ide::IProject& project,
                                                    std::string_view caption) {
  const std::string prefix = project.Name() + " - ";
  if (!caption.starts_with(prefix)) return nullptr;
  const auto components = project.VBComponents();
  for (int i = 1; i <= components->Count(); ++i) {
    const auto component = components->Item(i);
    if (!caption.substr(prefix.size()).starts_with(component->Name() + " (")) continue;
    if (auto designer = component->Designer()) return designer;
  }
  return nullptr;
}

}  // namespace

std::shared_ptr<ide::IDesigner> ActiveFormDesigner(ide::IVbe& vbe) {
  std::shared_ptr<ide::IDesigner> designer;
  ide::IgnoreErrors([&] {
    const auto window = vbe.ActiveWindow();
    if (!window || window->Type() != ide::WindowType::kDesigner) return;
    const std::string caption = window->Caption();
    const auto projects = vbe.VBProjects();
    for (int i = 1; i <= projects->Count() && !designer; ++i)
      designer = DesignerWithCaption(*projects->Item(i), caption);
  });
  return designer;
}

bool ReportDuplicateShortcuts(const ShortcutConflict& conflict, platform::Ui& ui) {
  if (conflict.uses.size() < 2) return true;
  std::string list;
  for (const AccessKeyUse& use : conflict.uses) list += CaptionDisplayName(use) + " ; ";
  const std::string question = std::string(LoadResString(kSameShortcutText)) + std::string(kCrLf) +
                               list + std::string(kCrLf) +
                               std::string(LoadResString(kWantToCorrectText));
  const platform::Answer answer = ui.MessageBox(question, platform::Buttons::kYesNoCancel,
                                                platform::Icon::kQuestion, platform::kAppTitle);
  if (answer == platform::Answer::kCancel) return false;
  if (answer != platform::Answer::kYes) return true;
  for (const AccessKeyUse& use : conflict.uses) {
    const std::string caption = ReadCaption(use);
    const std::string prompt = std::string(LoadResString(kForText)) + caption +
                               std::string(kCrLf) + std::string(LoadResString(kControlText)) +
                               CaptionDisplayName(use);
    const auto typed = ui.InputBox(prompt, platform::kAppTitle, caption);
    if (!typed) continue;
    const std::string_view trimmed = TrimBlanks(*typed);
    if (!trimmed.empty()) WriteCaption(use, trimmed);
  }
  return true;
}

ShortcutCheck VerifyShortcuts(std::shared_ptr<ide::IDesigner> designer, platform::Ui& ui) {
  ShortcutCheck check;
  if (!designer) {
    Inform(ui, kNoFormMessage, platform::Icon::kExclamation);
    return check;
  }
  check.has_form = true;
  for (const ShortcutConflict& conflict : FindShortcutConflicts(CollectAccessKeys(*designer))) {
    ++check.conflicts;
    if (!ReportDuplicateShortcuts(conflict, ui)) {
      check.cancelled = true;
      return check;
    }
  }
  Inform(ui, check.conflicts > 0 ? kRepeatCheckMessage : kShortcutsOkMessage,
         platform::Icon::kInformation);
  return check;
}

}  // namespace tavrin::formtools
