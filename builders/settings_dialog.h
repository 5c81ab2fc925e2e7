// The settings dialog: one tab page per group of the catalogue, every item
// with the field its type asks for, a live example of a composed name and
// of an expanded procedure header, OK and Apply. Values are checked before
// anything is written; only items whose value changed are written, each
// into its own line of its file, so every other line of the INI files keeps
// its bytes. After writing, the dialog reads back its type-prefix table and
// tells the connection to reload its settings.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "builders/dialog.h"
#include "settings/catalogue.h"
#include "settings/settings_load.h"

namespace tavrin::builders {

inline constexpr std::string_view kSettingsDialogTitle = "Tavrin Settings";

// Ids of the fields that are no catalogue item (those carry their key).
inline constexpr std::string_view kApplyButton = "apply";
inline constexpr std::string_view kHeaderExample = "header.example";
inline constexpr std::string_view kNamingExample = "naming.example";
inline constexpr std::string_view kPrefixRows = "prefix.rows";
inline constexpr std::string_view kPrefixType = "prefix.type";
inline constexpr std::string_view kPrefixTags = "prefix.tags";
inline constexpr std::string_view kPrefixSet = "prefix.set";

class SettingsDialogModel : public DialogModel {
 public:
  // Reads the values as the files hold them. `indent_unit` is the IDE's.
  explicit SettingsDialogModel(const settings::SettingsServices& services,
                               std::string indent_unit = "    ");

  std::string Title() const override { return std::string(kSettingsDialogTitle); }
  std::string HelpTopic() const override { return "settings.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  void Pressed(std::string_view id, DialogHost& host) override;
  std::optional<Refusal> Accept() override;

  // Run after values were written (OK or Apply): the connection reloads.
  std::function<void()> on_applied;
  bool Applied() const { return applied_; }

  // The field of an item carries the item's key as its id.
  static std::string FieldId(settings::Item item);

 private:
  struct PrefixRow {
    std::string key;    // "Long Prefix"
    std::string value;  // "lng,,,Long (32-bit)"
    std::optional<std::string> stored;  // as the file holds it; none: new
  };

  Field& F(std::string_view id) { return *FindField(fields_, id); }
  void Build();
  void ReadPrefixRows();
  void Refresh();
  std::string ItemText(settings::Item item);
  std::optional<Refusal> Validate();
  std::optional<Refusal> Save();
  std::string FolderOf(settings::Item item);

  settings::SettingsServices services_;
  std::string indent_unit_;
  std::array<std::optional<std::string>, settings::kItemCount> stored_;
  std::string prefix_file_;  // the file the prefix rows came from
  std::vector<PrefixRow> prefix_rows_;
  std::vector<Field> fields_;
  bool applied_ = false;
};

// The settings dialog of a connection: the model when a dialog host is
// there, the fallback (the INI file in an editor) when not. Serves
// "&Settings..." and the first-run opening alike.
class ModelSettingsDialog : public settings::SettingsDialog {
 public:
  struct Hooks {
    std::function<settings::SettingsServices()> services;
    std::function<DialogHost*()> host;  // null: the fallback
    std::function<std::string()> indent_unit;
    std::function<void()> on_applied;
  };
  ModelSettingsDialog(settings::SettingsDialog& fallback, Hooks hooks)
      : fallback_(fallback), hooks_(std::move(hooks)) {}
  void ShowModal() override;

 private:
  settings::SettingsDialog& fallback_;
  Hooks hooks_;
};

}  // namespace tavrin::builders
