#include "addin/command_host.h"

#include "addin/code_line_builder.h"
#include "addin/code_lines.h"
#include "addin/help_commands.h"
#include "addin/code_pane.h"
#include "addin/procedure_builder.h"
#include "addin/tool_commands.h"

namespace tavrin::addin {

void RunCodeLines(CommandHost& host, std::string_view command_name) {
  InsertCodeLines(host.CommandContext(), command_name);
}

void RunAddProcedure(CommandHost& host, std::string_view) {
  AddProcedure(host.CommandContext());
}

void RunCodeLineBuilder(CommandHost& host, std::string_view) {
  InsertCodeLine(host.CommandContext());
}

void RunTipOfTheDay(CommandHost& host, std::string_view set_name) {
  const auto set = builders::TipSetOf(set_name);
  if (!set) return;
  ShowTipOfTheDay(host.CommandContext(), *set, [&host](bool show_at_startup) {
    host.SaveSetting(settings::Item::kViewTipOfTheDay, show_at_startup);
  });
}

void RunAbout(CommandHost& host, std::string_view) { ShowAbout(host.CommandContext()); }

void OpenWebPage(CommandHost& host, std::string_view address) {
  if (Status status = host.Shell().OpenDocument(address); !status) {
    host.CommandContext().ui.MessageBox(status.error(), platform::Buttons::kOk,
                                        platform::Icon::kExclamation, platform::kAppTitle);
  }
}

void RunShowToolWindow(CommandHost& host, std::string_view class_word) {
  host.ShowToolWindow(class_word);
}

void RunLineNumbers(CommandHost& host, std::string_view add_or_remove) {
  Context& context = host.CommandContext();
  if (!IsCodePaneReady(context)) return;
  LineNumbersCommand(context, add_or_remove == "Add" ? kLineNumbersAdd : kLineNumbersRemove);
}

void RunCommentLines(CommandHost& host, std::string_view command_name) {
  Context& context = host.CommandContext();
  if (IsCodePaneReady(context)) CommentLinesCommand(context, command_name);
}

void RunSettingsDialog(CommandHost& host, std::string_view) { host.ShowSettingsDialog(); }

void RunVerifyShortcuts(CommandHost& host, std::string_view) {
  VerifyShortcutsCommand(host.CommandContext());
}

}  // namespace tavrin::addin
