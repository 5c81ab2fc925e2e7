#include "addin/control_builder.h"

#include <string>

#include "addin/pane_command.h"
#include "builders/control_dialog.h"
#include "fragments/settings.h"
#include "formtools/control_layout.h"
#include "formtools/verify_shortcuts.h"

namespace tavrin::addin {
bool AddControls(Context& context) {
  if (!context.dialogs) {
    TellExclamation(context, "Add Control needs the add-in's dialogs, which this host does not provide.");
    return false;
  }
  try {
    const auto designer = formtools::ActiveFormDesigner(context.vbe);
    if (!designer) {
      TellExclamation(context, "You must select a form!");
      return false;
    }
    std::string form_name;
    if (const auto window = context.vbe.ActiveWindow()) form_name = window->Caption();
    const fragments::Settings defaults;
    const fragments::Settings& settings = context.settings ? *context.settings : defaults;
    builders::ControlDialog dialog(form_name, formtools::FormStateOf(*designer),
                                   settings.type_prefixes, context.columns);
    if (!context.dialogs->Show(dialog)) return false;
    const auto layout = dialog.Layout();
    formtools::AddToForm(*designer, layout.controls);
    return !layout.controls.empty();
  } catch (const ide::Error& error) {
    TellExclamation(context, std::string("The controls could not be added: ") + error.what());
    return false;
  }
}

void RunAddControls(CommandHost& host, std::string_view) { AddControls(host.CommandContext()); }

}  // namespace tavrin::addin
