#include "settings/catalogue.h"

#include <array>

#include "base/text.h"
#include "resources/string_table.h"

namespace tavrin::settings {
namespace {

using Type = IniItemType;

struct ItemInfo {
  std::string_view key;
  Section section;
  Type type;
  SettingValue default_value;
};

const std::array<ItemInfo, kItemCount>& Items() {
  static const std::array<ItemInfo, kItemCount> items = {{
      {"Developer", Section::kDeveloper, Type::kText, ""},
      {"Initials", Section::kDeveloper, Type::kText, ""},
      {"Organization", Section::kDeveloper, Type::kText, ""},
      {"Copyright", Section::kDeveloper, Type::kText, ""},
      {"Default Error Handle", Section::kErrorHandling, Type::kText, "On Error GoTo HandleError"},
      {"ErrorHandle Procedure", Section::kErrorHandling, Type::kText, "ErrorHandle"},
      {"ErrorHandle Module", Section::kErrorHandling, Type::kText, "basErrorHandle"},
      {"ErrorHandler", Section::kErrorHandling, Type::kText, "HandleError"},
      {"ExitHandler", Section::kErrorHandling, Type::kText, "HandleExit"},
      {"Make Procedure Constant True", Section::kErrorHandling, Type::kYesNo, true},
      {"Make Module Constant True", Section::kErrorHandling, Type::kYesNo, true},
      {"Prefix Module", Section::kScopePrefix, Type::kText, "m"},
      {"Prefix Global", Section::kScopePrefix, Type::kText, "g"},
      {"Prefix ByRef", Section::kArgumentPrefix, Type::kText, "r"},
      {"Prefix ByVal", Section::kArgumentPrefix, Type::kText, "v"},
      {"Add Error Handling Property", Section::kPropertyBuilder, Type::kText,
       "On Error GoTo ExitLabel"},
      // Yes/no items whose default is the empty text: written as "Key=" and
      // left empty by later loads. Users' files hold them so; kept.
      {"Add Property Constant", Section::kPropertyBuilder, Type::kYesNo, ""},
      {"Add Module Constant Property", Section::kPropertyBuilder, Type::kYesNo, ""},
      {"Set Picked Up Name UCASE", Section::kConstBuilder, Type::kYesNo, false},
      {"Const Tag", Section::kConstBuilder, Type::kText, "c"},
      {"Const Tag Before Type Tag", Section::kConstBuilder, Type::kYesNo, true},
      {"Add Error Handling Method", Section::kMethodBuilder, Type::kText,
       "On Error GoTo HandleError"},
      {"Add Header Method", Section::kMethodBuilder, Type::kYesNo, true},
      {"Add Method Constant", Section::kMethodBuilder, Type::kYesNo, true},
      {"Add Module Constant Method", Section::kMethodBuilder, Type::kYesNo, true},
      {"Add Hourglass Method", Section::kMethodBuilder, Type::kYesNo, false},
      {"Add Error Handling Procedure", Section::kProcedureBuilder, Type::kText,
       "On Error GoTo HandleError"},
      {"Add Header Procedure", Section::kProcedureBuilder, Type::kYesNo, true},
      {"Add Procedure Constant", Section::kProcedureBuilder, Type::kYesNo, true},
      {"Add Module Constant Procedure", Section::kProcedureBuilder, Type::kYesNo, true},
      {"Add Hourglass Procedure", Section::kProcedureBuilder, Type::kYesNo, false},
      {"Arguments on Separate Lines", Section::kProcedureBuilder, Type::kYesNo, true},
      {"Add Return Statement", Section::kProcedureBuilder, Type::kYesNo, false},
      {"Open On Current Project", Section::kLinesOfCodeBuilder, Type::kYesNo, true},
      {"Include Comment", Section::kLinesOfCodeBuilder, Type::kYesNo, false},
      {"Explicit Arguments", Section::kLinesOfCodeBuilder, Type::kYesNo, false},
      {"Each Argument on a New Line", Section::kLinesOfCodeBuilder, Type::kYesNo, false},
      {"Add Case Else", Section::kSelectCaseFromEnumBuilder, Type::kYesNo, true},
      {"Insert Return Values", Section::kSelectCaseFromEnumBuilder, Type::kYesNo, false},
      {"Code Case Else", Section::kSelectCaseFromEnumBuilder, Type::kText,
       "Msgbox \"Missing Case\""},
      {"Declaration Indented", Section::kOther, Type::kYesNo, true},
      {"Module Name Constant", Section::kOther, Type::kText, "cstrModule"},
      {"Procedure Name Constant", Section::kOther, Type::kText, "cstrProcedure"},
      // A text item whose default is the mode number.
      {"Auto Prefix Variable Name", Section::kOther, Type::kText, 2},
      {"View Tavrin Window", Section::kOther, Type::kYesNo, false},
      {"View Code Explorer Window", Section::kOther, Type::kYesNo, false},
      {"View Tip Of The Day", Section::kOther, Type::kYesNo, false},
      {"ErrorHandle File", Section::kFileLocations, Type::kFilePath,
       "\\vbcode\\ErrorHandlers\\basErrorHandle.bas"},
      {"Collection Class Template", Section::kFileLocations, Type::kFilePath,
       "\\vbcode\\Templates\\CollectionClass\\CollectionClass.cls"},
      {"Procedure Header File", Section::kFileLocations, Type::kFilePath,
       "\\vbcode\\Fragments\\Headers And Comments\\ProcedureHeader.bas"},
      {"Module Header File", Section::kFileLocations, Type::kFilePath,
       "\\vbcode\\Fragments\\Headers And Comments\\ModuleHeader.bas"},
      {"Prefix Standards File", Section::kFileLocations, Type::kFilePath, "\\tvrtp.ini"},
      {"Library Folder", Section::kFileLocations, Type::kFolderPath, "\\vbcode\\Library\\"},
      {"Base Folder", Section::kFileLocations, Type::kFolderPath, "\\vbcode\\"},
  }};
  return items;
}

constexpr std::array<std::string_view, kSectionCount> kSectionNames = {
    "Developer",           "Error Handling",
    "File Locations",      "Other",
    "Scope Prefix",        "Argument Prefix",
    "Procedure Builder",   "Class Builder",
    "Property Builder",    "Method Builder",
    "Lines Of Code Builder", "Select Case From Enum Builder",
    "Const Builder",       "fragments/reference",
};

constexpr std::array<IniFile, kSectionCount> kSectionFiles = {
    IniFile::kTvrUsr, IniFile::kTvrUsr, IniFile::kTvrUsr,   IniFile::kTvrUsr,   IniFile::kTvrTp,
    IniFile::kTvrTp,  IniFile::kTvrUsr, IniFile::kTvrUsr,   IniFile::kTvrUsr,   IniFile::kTvrUsr,
    IniFile::kTvrUsr, IniFile::kTvrUsr, IniFile::kTvrUsr,   IniFile::kTvrRefra,
};

constexpr std::array<std::string_view, kIniFileCount> kFileNames = {
    "tvrusr.ini", "tvrtp.ini", "tvrrefra.ini", "tvrvars.ini"};

template <class Enum>
bool Known(Enum value, int count) {
  const int index = static_cast<int>(value);
  return index >= 0 && index < count;
}

void MissingCase(platform::Ui& ui, int id, std::string_view detail) {
  ui.MessageBox(std::string(resources::LoadResString(id)) + std::string(detail),
                platform::Buttons::kOk, platform::Icon::kExclamation, platform::kAppTitle);
}

}  // namespace

std::string IniFile2Name(IniFile file, platform::Ui& ui) {
  if (Known(file, kIniFileCount)) return std::string(kFileNames[static_cast<int>(file)]);
  MissingCase(ui, 2401, "");
  return "";
}

std::string Section2Name(Section section, platform::Ui& ui) {
  if (Known(section, kSectionCount)) return std::string(kSectionNames[static_cast<int>(section)]);
  MissingCase(ui, 2402, std::to_string(static_cast<int>(section)));
  return "";
}

std::optional<IniFile> Section2IniFile(Section section, platform::Ui& ui) {
  if (Known(section, kSectionCount)) return kSectionFiles[static_cast<int>(section)];
  // The name comes from Section2Name, which has already said it is missing.
  MissingCase(ui, 2403, Section2Name(section, ui));
  return std::nullopt;
}

std::string Item2Name(Item item, platform::Ui& ui) {
  if (Known(item, kItemCount)) return std::string(Items()[static_cast<int>(item)].key);
  MissingCase(ui, 2404, std::to_string(static_cast<int>(item)));
  return "";
}

std::optional<Section> ItemInSection(Item item, platform::Ui& ui) {
  if (Known(item, kItemCount)) return Items()[static_cast<int>(item)].section;
  MissingCase(ui, 2405, Item2Name(item, ui));
  return std::nullopt;
}

std::optional<IniItemType> Item2IniItemType(Item item, platform::Ui& ui) {
  if (Known(item, kItemCount)) return Items()[static_cast<int>(item)].type;
  MissingCase(ui, 2406, Item2Name(item, ui));
  return std::nullopt;
}

SettingValue ItemDefault(Item item) {
  if (!Known(item, kItemCount)) return std::string();
  return Items()[static_cast<int>(item)].default_value;
}

std::string_view IniItemTypeName(IniItemType type) {
  switch (type) {
    case IniItemType::kWholeNumber: return "whole number";
    case IniItemType::kYesNo: return "yes/no";
    case IniItemType::kDate: return "date";
    case IniItemType::kFilePath: return "file path";
    case IniItemType::kFolderPath: return "folder path";
    default: return "text";
  }
}

std::optional<Item> ItemOfKey(std::string_view key) {
  for (int i = 0; i < kItemCount; ++i)
    if (EqualsIgnoreCase(Items()[static_cast<std::size_t>(i)].key, key)) return static_cast<Item>(i);
  return std::nullopt;
}

std::string ValueAsText(const SettingValue& value) {
  if (const bool* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
  if (const int* number = std::get_if<int>(&value)) return std::to_string(*number);
  return std::get<std::string>(value);
}

std::string AutoPrefixModeName(AutoPrefixMode mode) {
  const int index = static_cast<int>(mode);
  if (index < 0 || index > 2) return "";
  return std::string(resources::LoadResString(2410 + index));
}

}  // namespace tavrin::settings
