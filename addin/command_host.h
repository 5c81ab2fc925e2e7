// What the handlers of the command table act on, and the operations they
// run. Connect is the host in the add-in; tests may stand in for it.
#pragma once

#include <string_view>

#include "addin/context.h"
#include "platform/file_system.h"
#include "settings/catalogue.h"

namespace tavrin::addin {

class CodeExplorerDocument;

class CommandHost {
 public:
  virtual ~CommandHost() = default;
  virtual Context& CommandContext() = 0;
  virtual platform::Shell& Shell() = 0;
  // Shows (creating it when needed) the tool window of that class word:
  // "TabOrder", "DirectAccess", "CodeExplorer".
  virtual void ShowToolWindow(std::string_view class_word) = 0;
  // The settings dialog; the settings are loaded again afterwards.
  virtual void ShowSettingsDialog() = 0;
  // Writes one setting to its file and keeps it in the loaded settings.
  virtual void SaveSetting(settings::Item item, settings::SettingValue value) {}
  // The Code Explorer's document, whose selected node the entries of its
  // context menu act on; null when there is none of ours.
  virtual CodeExplorerDocument* ExplorerDocument() { return nullptr; }
};

// A code-line snippet ("If Then", "ForNext", "With", ...) at the caret.
void RunCodeLines(CommandHost& host, std::string_view command_name);
// The procedure builder, when the context has a dialog host.
void RunAddProcedure(CommandHost& host, std::string_view);
// The code line builder.
void RunCodeLineBuilder(CommandHost& host, std::string_view);
// A set of tips by its name ("Tavrin_Startup", "VarBuilder", ...).
void RunTipOfTheDay(CommandHost& host, std::string_view set_name);
void RunAbout(CommandHost& host, std::string_view);
// A page of the product's web site in the user's browser.
void OpenWebPage(CommandHost& host, std::string_view address);
void RunShowToolWindow(CommandHost& host, std::string_view class_word);
// Line numbers over the selection: "Add" or "Remove".
void RunLineNumbers(CommandHost& host, std::string_view add_or_remove);
// Comment marks over the selection: "Comment Lines Add" or "... Remove".
void RunCommentLines(CommandHost& host, std::string_view command_name);
void RunSettingsDialog(CommandHost& host, std::string_view);
// The access-key check of the active form.
void RunVerifyShortcuts(CommandHost& host, std::string_view);

}  // namespace tavrin::addin
