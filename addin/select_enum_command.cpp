#include "addin/select_enum_command.h"

#include "addin/code_pane.h"
#include "addin/declaration_builders.h"
#include "base/text.h"
#include "builders/select_enum_dialog.h"

namespace tavrin::addin {
namespace {

void Tell(Context& context, const std::string& message, platform::Icon icon) {
  context.ui.MessageBox(message, platform::Buttons::kOk, icon, platform::kAppTitle);
}

builders::SelectEnumDefaults DefaultsOf(Context& context) {
  static const fragments::Settings defaults;
  const fragments::Settings& settings = context.settings ? *context.settings : defaults;
  return {settings.YesNo(settings::Item::kAddCaseElse),
          settings.Text(settings::Item::kCodeCaseElse),
          settings.YesNo(settings::Item::kInsertReturnValues)};
}

}  // namespace

bool SelectFromEnum(Context& context) {
  if (!IsCodePaneReady(context)) return false;
  if (!context.dialogs) {
    Tell(context, "Select From Enum needs the add-in's dialogs, which this host does not offer.",
         platform::Icon::kInformation);
    return false;
  }
  try {
    builders::SelectEnumDialog dialog(DeclarationTargetOf(context), DefaultsOf(context),
                                      Blanks(CaretMargin(context)));
    if (dialog.Enums().empty()) {
      Tell(context, builders::NoEnumMessage(), platform::Icon::kInformation);
      return false;
    }
    if (!context.dialogs->Show(dialog)) return false;
    const int first_line = InsertBlock(context, dialog.Code(), 0);
    if (first_line > 0) PlaceCursorMarker(context, first_line, false);
    return first_line > 0;
  } catch (const ide::Error& error) {
    Tell(context, error.what(), platform::Icon::kExclamation);
    return false;
  }
}

void RunSelectFromEnum(CommandHost& host, std::string_view) {
  SelectFromEnum(host.CommandContext());
}

}  // namespace tavrin::addin
