#include "builders/settings_dialog.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <tuple>

#include "base/text.h"
#include "codegen/settings_environment.h"
#include "codegen/templates.h"
#include "fragments/code_folders.h"
#include "fragments/pseudo_root_path.h"
#include "settings/ini_changes.h"
#include "settings/ini_file.h"
#include "settings/naming.h"
#include "settings/setting_checks.h"
#include "settings/type_prefixes.h"
#include "settings/value_table.h"

namespace tavrin::builders {
namespace {

using settings::IniItemType;
using settings::Item;
using settings::Section;


// The catalogue's mappings cannot miss for the items of the catalogue.
platform::SilentUi& Silent() {
  static platform::SilentUi ui;
  return ui;
}

Section SectionOf(Item item) { return *settings::ItemInSection(item, Silent()); }
IniItemType TypeOf(Item item) { return *settings::Item2IniItemType(item, Silent()); }
std::string SectionName(Section section) { return settings::Section2Name(section, Silent()); }
std::string FileOf(Item item) {
  return settings::IniFile2Name(*settings::Section2IniFile(SectionOf(item), Silent()), Silent());
}

constexpr std::string_view kNamingPage = "Naming";

// The tab page and group box of an item's section.
std::pair<std::string, std::string> PlaceOf(Section section) {
  switch (section) {
    case Section::kScopePrefix:
    case Section::kArgumentPrefix:
    case Section::kConstBuilder:
      return {std::string(kNamingPage), SectionName(section)};
    default:
      return {SectionName(section), ""};
  }
}

// The page order: the catalogue's groups as a user meets them.
constexpr std::array<Section, 11> kPageOrder = {
    Section::kDeveloper,        Section::kErrorHandling,      Section::kFileLocations,
    Section::kScopePrefix,      Section::kArgumentPrefix,     Section::kConstBuilder,
    Section::kProcedureBuilder, Section::kMethodBuilder,      Section::kPropertyBuilder,
    Section::kLinesOfCodeBuilder, Section::kSelectCaseFromEnumBuilder};

FieldKind KindOf(Item item) {
  if (item == Item::kAutoPrefixVariableName) return FieldKind::kChoice;
  switch (TypeOf(item)) {
    case IniItemType::kYesNo: return FieldKind::kCheck;
    case IniItemType::kWholeNumber: return FieldKind::kNumber;
    case IniItemType::kFilePath: return FieldKind::kFile;
    case IniItemType::kFolderPath: return FieldKind::kFolder;
    default: return FieldKind::kText;
  }
}

bool IsPath(Item item) {
  const IniItemType type = TypeOf(item);
  return type == IniItemType::kFilePath || type == IniItemType::kFolderPath;
}

std::string ResolvedId(Item item) { return SettingsDialogModel::FieldId(item) + ".resolved"; }

// Gives every field of a page an access key: the first letter of its
// caption that no earlier field of the page took.
void AssignAccessKeys(std::vector<Field>& fields) {
  std::map<std::string, std::set<char>> used;
  for (Field& field : fields) {
    if (field.caption.empty() || field.kind == FieldKind::kLabel ||
        field.kind == FieldKind::kPreview)
      continue;
    std::set<char>& taken = used[field.page];
    if (const auto amp = field.caption.find('&'); amp != std::string::npos) {
      if (amp + 1 < field.caption.size()) taken.insert(ToLowerAscii(field.caption[amp + 1]));
      continue;
    }
    for (std::size_t i = 0; i < field.caption.size(); ++i) {
      const char c = ToLowerAscii(field.caption[i]);
      if (c < 'a' || c > 'z' || taken.count(c)) continue;
      taken.insert(c);
      field.caption.insert(i, "&");
      break;
    }
  }
}

std::vector<std::string> AutoPrefixModes() {
  using settings::AutoPrefixMode;
  return {settings::AutoPrefixModeName(AutoPrefixMode::kNoAutoPrefix),
          settings::AutoPrefixModeName(AutoPrefixMode::kAlwaysAutoPrefix),
          settings::AutoPrefixModeName(AutoPrefixMode::kBeforeCapitalChar)};
}

// What a check box shows for the stored text: the text's meaning, or the
// item's default when it is empty or means nothing (as the load reads it).
bool StoredYesNo(Item item, const std::optional<std::string>& stored) {
  const settings::SettingValue default_value = settings::ItemDefault(item);
  const bool fallback = std::holds_alternative<bool>(default_value) && std::get<bool>(default_value);
  if (!stored) return fallback;
  return settings::TextToYesNo(*stored).value_or(fallback);
}

std::string RowText(const std::string& key, const std::string& value) {
  const settings::TypePrefixRow row = settings::ParseTypePrefixRow(key, value);
  return row.TypeName() + " = " + value;
}

}  // namespace

std::string SettingsDialogModel::FieldId(Item item) { return settings::Item2Name(item, Silent()); }

SettingsDialogModel::SettingsDialogModel(const settings::SettingsServices& services,
                                         std::string indent_unit)
    : services_(services), indent_unit_(std::move(indent_unit)) {
  std::map<std::string, std::unique_ptr<settings::C4_IniFile>> files;
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    auto& file = files[FileOf(item)];
    if (!file) {
      file = std::make_unique<settings::C4_IniFile>(services_.profiles, services_.files,
                                                    services_.addin_folder);
      file->SetName(FileOf(item));
    }
    const std::string section = SectionName(SectionOf(item));
    if (file->ValueExists(section, FieldId(item)))
      stored_[static_cast<std::size_t>(i)] = file->Value(section, FieldId(item));
  }
  Build();
  ReadPrefixRows();
  Refresh();
}

void SettingsDialogModel::Build() {
  auto add_item = [&](Item item, std::string page, std::string group) {
    const auto& stored = stored_[static_cast<std::size_t>(item)];
    const std::string text = stored ? *stored : settings::ValueAsText(settings::ItemDefault(item));
    const FieldKind kind = KindOf(item);
    Field field = MakeField(FieldId(item), kind,
                            FieldId(item) + (kind == FieldKind::kCheck ? "" : ":"));
    field.page = std::move(page);
    field.group = std::move(group);
    if (kind == FieldKind::kCheck) {
      field.checked = StoredYesNo(item, stored);
    } else if (kind == FieldKind::kChoice) {
      field.items = AutoPrefixModes();
      const int mode = static_cast<int>(LeadingNumber(text));
      field.selected = mode >= 0 && mode <= 2 ? mode : 2;
      field.text = field.items[static_cast<std::size_t>(field.selected)];
    } else {
      field.text = text;
    }
    fields_.push_back(field);
    if (IsPath(item)) {
      Field resolved = MakeField(ResolvedId(item), FieldKind::kLabel);
      resolved.page = fields_.back().page;
      resolved.group = fields_.back().group;
      fields_.push_back(resolved);
    }
  };
  auto items_of = [](Section section) {
    std::vector<Item> items;
    for (int i = 0; i < settings::kItemCount; ++i)
      if (SectionOf(static_cast<Item>(i)) == section) items.push_back(static_cast<Item>(i));
    return items;
  };

  for (Section section : kPageOrder) {
    const auto [page, group] = PlaceOf(section);
    for (Item item : items_of(section)) add_item(item, page, group);
    if (section == Section::kDeveloper) {
      Field example = MakeField(std::string(kHeaderExample), FieldKind::kPreview,
                                "Procedure header example:");
      example.page = page;
      example.rows = 8;
      fields_.push_back(example);
    }
    if (section == Section::kConstBuilder) {
      const std::string table_group = "Type Prefixes";
      Field rows = MakeField(std::string(kPrefixRows), FieldKind::kList, "Type prefi&xes:");
      rows.page = page;
      rows.group = table_group;
      rows.rows = 6;
      fields_.push_back(rows);
      for (auto [id, kind, caption] :
           {std::tuple{kPrefixType, FieldKind::kText, "Type:"},
            std::tuple{kPrefixTags, FieldKind::kText, "Tags (variable,constant,argument,description):"},
            std::tuple{kPrefixSet, FieldKind::kButton, "Set Type Prefix"}}) {
        Field field = MakeField(std::string(id), kind, caption);
        field.page = page;
        field.group = table_group;
        fields_.push_back(field);
      }
      Field example = MakeField(std::string(kNamingExample), FieldKind::kPreview,
                                "Composed names:");
      example.page = page;
      example.rows = 5;
      fields_.push_back(example);
    }
  }
  // "Other" last, with the windows in their own group.
  for (Item item : items_of(Section::kOther)) {
    const bool window = item == Item::kViewTavrinWindow || item == Item::kViewCodeExplorerWindow ||
                        item == Item::kViewTipOfTheDay;
    add_item(item, SectionName(Section::kOther), window ? "Windows" : "");
  }
  // Below the tabs, beside OK and Cancel.
  fields_.push_back(MakeField(std::string(kApplyButton), FieldKind::kButton, "&Apply"));
  AssignAccessKeys(fields_);
}

void SettingsDialogModel::ReadPrefixRows() {
  prefix_rows_.clear();
  prefix_file_ = F(FieldId(Item::kPrefixStandardsFile)).text;
  settings::C4_IniFile file(services_.profiles, services_.files, services_.addin_folder);
  file.SetName(prefix_file_);
  if (const auto* section = file.Name().empty() ? nullptr : file.Item("Prefix");
      section && section->Items()) {
    for (const auto& item : *section->Items())
      prefix_rows_.push_back({item->Key(), item->Value(), item->Value()});
  }
  Field& rows = F(kPrefixRows);
  rows.items.clear();
  for (const PrefixRow& row : prefix_rows_) rows.items.push_back(RowText(row.key, row.value));
  rows.selected = rows.items.empty() ? -1 : 0;
  Changed(kPrefixRows);
}

std::string SettingsDialogModel::ItemText(Item item) {
  const Field& field = F(FieldId(item));
  const auto& stored = stored_[static_cast<std::size_t>(item)];
  // A stored text that passes the checks stays when it means what the
  // field shows ("-1", the empty text of "Add Property Constant").
  const bool valid = stored && !settings::SettingTextProblem(item, *stored);
  if (field.kind == FieldKind::kCheck) {
    if (valid && StoredYesNo(item, stored) == field.checked) return *stored;
    return field.checked ? "True" : "False";
  }
  if (field.kind == FieldKind::kChoice) {
    if (valid && LeadingNumber(*stored) == field.selected) return *stored;
    return std::to_string(std::max(field.selected, 0));
  }
  return field.text;
}

std::string SettingsDialogModel::FolderOf(Item item) {
  const fragments::CodeFolders folders(services_.addin_folder,
                                       F(FieldId(Item::kBaseFolder)).text,
                                       F(FieldId(Item::kLibraryFolder)).text);
  if (item == Item::kBaseFolder) return folders.CodeFolder(1);
  if (item == Item::kLibraryFolder) return folders.CodeFolder(2);
  // An INI name: bare and "\\name" names are files in the add-in's folder.
  if (item == Item::kPrefixStandardsFile) return folders.ResolvePath(F(FieldId(item)).text);
  return folders.FileSetting(F(FieldId(item)).text);
}

void SettingsDialogModel::Changed(std::string_view id) {
  if (id == kPrefixRows) {
    Field& rows = F(kPrefixRows);
    if (rows.selected >= 0 && rows.selected < static_cast<int>(prefix_rows_.size())) {
      const PrefixRow& row = prefix_rows_[static_cast<std::size_t>(rows.selected)];
      F(kPrefixType).text = settings::ParseTypePrefixRow(row.key, row.value).TypeName();
      F(kPrefixTags).text = row.value;
    }
  }
  // A path picked with the browse button is shown as the settings keep it.
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    if (!IsPath(item) || id != FieldId(item)) continue;
    const fragments::CodeFolders folders(services_.addin_folder,
                                         F(FieldId(Item::kBaseFolder)).text,
                                         F(FieldId(Item::kLibraryFolder)).text);
    const int deepest = item == Item::kBaseFolder || item == Item::kPrefixStandardsFile ? -1
                        : item == Item::kLibraryFolder                                  ? 1
                                                                : fragments::kPseudoRootCount - 1;
    Field& field = F(id);
    field.text = fragments::PseudoRootPath(folders, field.text, deepest);
    if (item == Item::kPrefixStandardsFile && field.text != prefix_file_) ReadPrefixRows();
  }
  Refresh();
}

void SettingsDialogModel::Refresh() {
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    if (!IsPath(item)) continue;
    Field& resolved = F(ResolvedId(item));
    resolved.text = FolderOf(item);
    resolved.caption = resolved.text;
  }

  // Names composed by the rules as they stand in the fields.
  settings::ValueTable values;
  for (Item item : {Item::kPrefixModule, Item::kPrefixGlobal, Item::kPrefixByRef,
                    Item::kPrefixByVal, Item::kConstTag, Item::kConstTagBeforeTypeTag,
                    Item::kSetPickedUpNameUcase, Item::kAutoPrefixVariableName})
    values.Set(item, settings::SettingValueOf(item, ItemText(item)));
  std::vector<settings::TypePrefixRow> rows;
  for (const PrefixRow& row : prefix_rows_)
    rows.push_back(settings::ParseTypePrefixRow(row.key, row.value));
  const settings::TypePrefixTable table(std::move(rows));
  const settings::NamingRules rules = settings::NamingRulesFrom(values);
  struct Example {
    std::string_view what, typed, type;
    int scope;
    bool constant;
  };
  static constexpr std::array<Example, 5> kExamples = {{
      {"A module Long variable", "Count", "Long", settings::kScopeModule, false},
      {"A public Long constant", "MaxItems", "Long", settings::kScopeGlobal, true},
      {"A ByVal String argument", "Name", "String", settings::kScopeByVal, false},
      {"A local Date variable", "Start", "Date", settings::kScopeLocal, false},
      {"A local variable typed", "count", "Long", settings::kScopeLocal, false},
  }};
  std::vector<std::string> lines;
  for (const Example& example : kExamples)
    lines.push_back(std::string(example.what) + " \"" + std::string(example.typed) + "\": " +
                    settings::ComposeName(example.typed, example.type, example.scope,
                                          example.constant, rules, table));
  F(kNamingExample).text = JoinCrLf(lines);

  // The procedure header as the fields would expand it.
  codegen::TemplateEnvironment environment;
  environment.indent_unit = indent_unit_;
  codegen::TemplateSettings& template_settings = environment.settings;
  template_settings.developer = F(FieldId(Item::kDeveloper)).text;
  template_settings.initials = F(FieldId(Item::kInitials)).text;
  template_settings.organization = F(FieldId(Item::kOrganization)).text;
  template_settings.copyright = F(FieldId(Item::kCopyright)).text;
  template_settings.procedure_header_file = F(FieldId(Item::kProcedureHeaderFile)).text;
  template_settings.base_folder = F(FieldId(Item::kBaseFolder)).text;
  const fragments::CodeFolders folders(services_.addin_folder, template_settings.base_folder,
                                       F(FieldId(Item::kLibraryFolder)).text);
  environment.read_code_file = [folders, &files = services_.files](
                                   std::string_view path) -> std::optional<std::string> {
    Result<std::string> bytes = files.ReadFile(folders.FileSetting(path));
    if (!bytes || bytes->find('\0') != std::string::npos) return std::nullopt;
    return codegen::CodeFileText(*bytes);
  };
  const std::string header = codegen::ExpandHeader(environment, codegen::HeaderKind::kProcedure,
                                                   "CalculateTotal", "Adds up the order lines.");
  F(kHeaderExample).text =
      header.empty() ? "(The procedure header file gives no text.)" : header;
}

void SettingsDialogModel::Pressed(std::string_view id, DialogHost&) {
  if (id == kPrefixSet) {
    const std::string type(TrimBlanks(F(kPrefixType).text));
    if (type.empty()) return;
    const std::string value = F(kPrefixTags).text;
    auto found = std::find_if(prefix_rows_.begin(), prefix_rows_.end(), [&](const PrefixRow& row) {
      return EqualsIgnoreCase(settings::ParseTypePrefixRow(row.key, row.value).TypeName(), type);
    });
    if (found == prefix_rows_.end()) {
      prefix_rows_.push_back({type + " Prefix", value, std::nullopt});
      found = prefix_rows_.end() - 1;
    } else {
      found->value = value;
    }
    Field& rows = F(kPrefixRows);
    rows.items.clear();
    for (const PrefixRow& row : prefix_rows_) rows.items.push_back(RowText(row.key, row.value));
    rows.selected = static_cast<int>(found - prefix_rows_.begin());
    Refresh();
    return;
  }
  if (id == kApplyButton) {
    if (const auto refusal = Accept())
      services_.ui.MessageBox(refusal->message, platform::Buttons::kOk,
                              platform::Icon::kExclamation, platform::kAppTitle);
  }
}

std::optional<Refusal> SettingsDialogModel::Validate() {
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    if (const auto problem = settings::SettingTextProblem(item, ItemText(item)))
      return Refusal{*problem, FieldId(item)};
  }
  for (Item item : {Item::kBaseFolder, Item::kLibraryFolder}) {
    if (const auto problem = settings::CheckFolderSetting(FieldId(item), FolderOf(item),
                                                          services_.files, services_.ui))
      return Refusal{*problem, FieldId(item)};
  }
  return std::nullopt;
}

std::optional<Refusal> SettingsDialogModel::Save() {
  // Every changed item, then every edited type-prefix row, written as one
  // step: each file once, all or none.
  std::vector<settings::IniChange> changes;
  std::vector<std::pair<Item, std::string>> items;
  for (int i = 0; i < settings::kItemCount; ++i) {
    const Item item = static_cast<Item>(i);
    const std::string text = settings::ValueAsText(settings::SettingValueOf(item, ItemText(item)));
    const auto& stored = stored_[static_cast<std::size_t>(i)];
    if (stored && *stored == ItemText(item)) continue;
    changes.push_back({FileOf(item), SectionName(SectionOf(item)), FieldId(item), text});
    items.emplace_back(item, text);
  }
  for (const PrefixRow& row : prefix_rows_)
    if (row.stored != row.value) changes.push_back({prefix_file_, "Prefix", row.key, row.value});
  if (changes.empty()) return std::nullopt;

  if (const auto refused = settings::SaveIniChanges(changes, services_.profiles, services_.files,
                                                    services_.addin_folder))
    return Refusal{refused->message, refused->change < items.size()
                                         ? FieldId(items[refused->change].first)
                                         : std::string(kPrefixRows)};
  for (const auto& [item, text] : items) stored_[static_cast<std::size_t>(item)] = text;
  for (PrefixRow& row : prefix_rows_) row.stored = row.value;
  applied_ = true;
  ReadPrefixRows();
  if (on_applied) on_applied();
  return std::nullopt;
}

std::optional<Refusal> SettingsDialogModel::Accept() {
  if (auto refusal = Validate()) return refusal;
  return Save();
}

void ModelSettingsDialog::ShowModal() {
  DialogHost* host = hooks_.host ? hooks_.host() : nullptr;
  if (!host || !hooks_.services) {
    fallback_.ShowModal();
    return;
  }
  SettingsDialogModel model(hooks_.services(),
                            hooks_.indent_unit ? hooks_.indent_unit() : std::string("    "));
  model.on_applied = hooks_.on_applied;
  host->Show(model);
}

}  // namespace tavrin::builders
