#include "addin/insert_variable.h"

#include "addin/declaration_builders.h"
#include "addin/pane_command.h"
#include "base/text.h"
#include "base/utf8.h"
#include "builders/list_dialog.h"
#include "builders/names_in_scope.h"

namespace tavrin::addin {

bool InsertVariable(Context& context) {
  return RunPaneCommand(context, /*shows_dialog=*/true, [&] {
    const builders::DeclarationTarget target = DeclarationTargetOf(context);
    const std::vector<std::string> names = builders::NamesInScope(target);
    if (names.empty()) {
      TellUser(context, "No variable or constant is declared where the caret stands.");
      return false;
    }
    builders::ListDialog dialog(std::string(builders::kInsertVariableTitle),
                                std::string(builders::kInsertVariablePrompt), names);
    const std::string_view selected = TrimBlanks(target.selected_text);
    if (!selected.empty() && !builders::FilterEntries(names, selected).empty())
      dialog.TypeFilter(std::string(selected));
    if (!context.dialogs->Show(dialog) || dialog.Choice().empty()) return false;

    const auto pane = context.vbe.ActiveCodePane();
    const auto module = pane->CodeModule();
    const ide::TextRange range = pane->GetSelection();
    const std::string& name = dialog.Choice();
    if (range.start_line > module->CountOfLines()) {
      module->InsertLines(range.start_line, name);
    } else {
      std::string line = module->Lines(range.start_line, 1);
      const int length = utf8::CharCount(line);
      if (range.start_column > length + 1) line += Blanks(range.start_column - length - 1);
      const std::size_t from = utf8::OffsetOfColumn(line, range.start_column);
      const std::size_t to = target.selected_text.empty()
                                 ? from
                                 : utf8::OffsetOfColumn(line, range.end_column);
      module->ReplaceLine(range.start_line, line.substr(0, from) + name + line.substr(to));
    }
    const int column = range.start_column + utf8::CharCount(name);
    pane->SetSelection({range.start_line, column, range.start_line, column});
    return true;
  });
}

void RunInsertVariable(CommandHost& host, std::string_view) {
  InsertVariable(host.CommandContext());
}

}  // namespace tavrin::addin
