#include "settings/settings_load.h"

#include <algorithm>

#include "base/text.h"
#include "resources/string_table.h"
#include "settings/ini_file.h"

namespace tavrin::settings {
namespace {

struct ItemPlace {
  std::string file;
  std::string section;
  std::string key;
};

ItemPlace PlaceOf(Item item, platform::Ui& ui) {
  ItemPlace place;
  place.key = Item2Name(item, ui);
  if (const auto section = ItemInSection(item, ui)) {
    place.section = Section2Name(*section, ui);
    if (const auto file = Section2IniFile(*section, ui)) place.file = IniFile2Name(*file, ui);
  }
  return place;
}

void Show(platform::Ui& ui, std::string_view text) {
  ui.MessageBox(text, platform::Buttons::kOk, platform::Icon::kExclamation, platform::kAppTitle);
}

std::string SaveFailure(const IniSaveError& error) {
  return std::string(error.what()) + "\r\n" + error.reason();
}

std::string ConversionProblem(const ItemPlace& place, std::string_view text, int kind_id) {
  std::string message(resources::LoadResString(2413));
  message = ReplaceAll(message, "%1", place.key);
  message = ReplaceAll(message, "%2", place.section);
  message = ReplaceAll(message, "%3", place.file);
  message = ReplaceAll(message, "%4", text);
  return ReplaceAll(message, "%5", resources::LoadResString(kind_id));
}

// The text converted by the item's type; nullopt when it does not convert.
// Empty text leaves the default for the converted types.
std::optional<SettingValue> Convert(IniItemType type, const std::string& text,
                                    const SettingValue& default_value) {
  switch (type) {
    case IniItemType::kYesNo:
      if (text.empty()) return default_value;
      if (const auto flag = TextToYesNo(text)) return SettingValue(*flag);
      return std::nullopt;
    case IniItemType::kWholeNumber:
      if (text.empty()) return default_value;
      if (const auto number = TextToWholeNumber(text)) return SettingValue(*number);
      return std::nullopt;
    case IniItemType::kDate:
      // Dates stay text; the builders format them. An empty text keeps the default.
      return text.empty() ? default_value : SettingValue(text);
    default:
      return SettingValue(text);
  }
}

// Reads one file's items; returns whether defaults were written to it.
bool LoadFile(ValueTable& values, const SettingsServices& services, const std::string& file_name,
              LoadReport& report) {
  C4_IniFile file(services.profiles, services.files, services.addin_folder);
  file.SetName(file_name);
  bool marked = false;
  for (int i = 0; i < kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    const ItemPlace place = PlaceOf(item, services.ui);
    if (place.file != file_name) continue;
    if (!file.ValueExists(place.section, place.key)) {
      file.SetValue(place.section, place.key, ValueAsText(ItemDefault(item)));
      marked = true;
      continue;
    }
    const std::string text = file.Value(place.section, place.key);
    const IniItemType type = Item2IniItemType(item, services.ui).value_or(IniItemType::kText);
    if (auto value = Convert(type, text, ItemDefault(item))) {
      values.Set(item, std::move(*value));
    } else {
      const std::string problem = ConversionProblem(
          place, text, type == IniItemType::kYesNo ? 2414 : 2415);
      Show(services.ui, problem);
      report.problems.push_back(problem);
    }
  }
  if (marked && !file.Name().empty()) {
    try {
      file.Save();
    } catch (const IniSaveError& error) {
      Show(services.ui, SaveFailure(error));
      report.problems.push_back(SaveFailure(error));
    }
  }
  return marked;
}


// Opens the settings dialog and reads back what it wrote.
void ShowDialogAndReload(ValueTable& values, const SettingsServices& services) {
  services.dialog.ShowModal();
  // The load before showed the catalogue's messages and conversion problems.
  platform::SilentUi quiet;
  const SettingsServices reload{services.profiles, services.files, quiet, services.dialog,
                                services.addin_folder};
  LoadValueTable(values, reload, false);
}

// Asks whether a dockable window should open with the add-in; Yes stores it.
bool OfferWindow(ValueTable& values, const SettingsServices& services, Item item,
                 int question_id) {
  if (values.YesNo(item)) return false;
  const platform::Answer answer =
      services.ui.MessageBox(resources::LoadResString(question_id), platform::Buttons::kYesNo,
                             platform::Icon::kQuestion, platform::kAppTitle);
  if (answer != platform::Answer::kYes) return false;
  if (const Status saved = SaveItem(values, services, item, true); !saved)
    Show(services.ui, saved.error());
  return true;
}

}  // namespace

LoadReport LoadValueTable(ValueTable& values, const SettingsServices& services,
                          bool interactive) {
  values = ValueTable();
  LoadReport report;
  std::vector<std::string> file_names;
  for (int i = 0; i < kItemCount; ++i) {
    const std::string file = PlaceOf(static_cast<Item>(i), services.ui).file;
    if (std::find(file_names.begin(), file_names.end(), file) == file_names.end())
      file_names.push_back(file);
  }
  for (const std::string& file_name : file_names)
    if (LoadFile(values, services, file_name, report)) report.defaults_written = true;

  if (!interactive) return report;
  if (report.defaults_written) {
    ShowDialogAndReload(values, services);
    return report;
  }
  const bool no_developer =
      values.Text(Item::kDeveloper).empty() && values.Text(Item::kInitials).empty() &&
      values.Text(Item::kOrganization).empty() && values.Text(Item::kCopyright).empty();
  if (!no_developer) return report;
  ShowDialogAndReload(values, services);
  const bool explorer = OfferWindow(values, services, Item::kViewCodeExplorerWindow, 2407);
  const bool shortcuts = OfferWindow(values, services, Item::kViewTavrinWindow, 2408);
  if (explorer || shortcuts) Show(services.ui, resources::LoadResString(2409));
  return report;
}

Status SaveItem(ValueTable& values, const SettingsServices& services, Item item,
                SettingValue value) {
  values.Set(item, value);
  const ItemPlace place = PlaceOf(item, services.ui);
  C4_IniFile file(services.profiles, services.files, services.addin_folder);
  file.SetName(place.file);
  if (file.Name().empty()) return Error{"the add-in's folder '" + services.addin_folder +
                                        "' does not exist"};
  file.SetValue(place.section, place.key, ValueAsText(value));
  try {
    file.Item(place.section)->Item(place.key)->Save();
  } catch (const IniSaveError& error) {
    return Error{SaveFailure(error)};
  }
  return {};
}

}  // namespace tavrin::settings
