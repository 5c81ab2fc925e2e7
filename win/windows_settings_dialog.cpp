#include "win/windows_settings_dialog.h"

#include "base/text.h"
#include "resources/string_table.h"

namespace tavrin::win {

void WindowsSettingsDialog::ShowModal() {
  const std::string file = addin_folder_ + "tvrusr.ini";
  ui_.MessageBox(ReplaceAll(resources::LoadResString(2490), "%1", file), platform::Buttons::kOk,
                 platform::Icon::kInformation, platform::kAppTitle);
  if (const Status opened = shell_.OpenDocument(file); !opened) {
    ui_.MessageBox(opened.error(), platform::Buttons::kOk, platform::Icon::kExclamation,
                   platform::kAppTitle);
  }
}

}  // namespace tavrin::win
