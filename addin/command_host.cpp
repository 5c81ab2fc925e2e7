#include "addin/command_host.h"

#include "addin/code_lines.h"

namespace tavrin::addin {

void RunCodeLines(CommandHost& host, std::string_view command_name) {
  InsertCodeLines(host.CommandContext(), command_name);
}

void OpenWebPage(CommandHost& host, std::string_view address) {
  if (Status status = host.Shell().OpenDocument(address); !status) {
    host.CommandContext().ui.MessageBox(status.error(), platform::Buttons::kOk,
                                        platform::Icon::kExclamation, platform::kAppTitle);
  }
}

void RunShowToolWindow(CommandHost& host, std::string_view class_word) {
  host.ShowToolWindow(class_word);
}

}  // namespace tavrin::addin
