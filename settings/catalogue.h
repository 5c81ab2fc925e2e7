// The fixed catalogue of user settings: which INI file and section hold each
// item, its key, value type and default, and the mapping functions between
// these enumerations. A value the mapping does not know shows a "Missing
// Case in ..." message and answers an empty value.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/ui.h"

namespace tavrin::settings {

enum class IniFile { kTvrUsr, kTvrTp, kTvrRefra, kTvrVars };

enum class Section {
  kDeveloper,
  kErrorHandling,
  kFileLocations,
  kOther,
  kScopePrefix,
  kArgumentPrefix,
  kProcedureBuilder,
  kClassBuilder,
  kPropertyBuilder,
  kMethodBuilder,
  kLinesOfCodeBuilder,
  kSelectCaseFromEnumBuilder,
  kConstBuilder,
  kFragmentsReference,
};

// The seventh code is read as text; no item has it.
enum class IniItemType { kText, kWholeNumber, kYesNo, kDate, kFilePath, kFolderPath, kOther };

enum class Item {
  kDeveloper,
  kInitials,
  kOrganization,
  kCopyright,
  kDefaultErrorHandle,
  kErrorHandleProcedure,
  kErrorHandleModule,
  kErrorHandler,
  kExitHandler,
  kMakeProcedureConstantTrue,
  kMakeModuleConstantTrue,
  kPrefixModule,
  kPrefixGlobal,
  kPrefixByRef,
  kPrefixByVal,
  kAddErrorHandlingProperty,
  kAddPropertyConstant,
  kAddModuleConstantProperty,
  kSetPickedUpNameUcase,
  kConstTag,
  kConstTagBeforeTypeTag,
  kAddErrorHandlingMethod,
  kAddHeaderMethod,
  kAddMethodConstant,
  kAddModuleConstantMethod,
  kAddHourglassMethod,
  kAddErrorHandlingProcedure,
  kAddHeaderProcedure,
  kAddProcedureConstant,
  kAddModuleConstantProcedure,
  kAddHourglassProcedure,
  kArgumentsOnSeparateLines,
  kAddReturnStatement,
  kOpenOnCurrentProject,
  kIncludeComment,
  kExplicitArguments,
  kEachArgumentOnANewLine,
  kAddCaseElse,
  kInsertReturnValues,
  kCodeCaseElse,
  kDeclarationIndented,
  kModuleNameConstant,
  kProcedureNameConstant,
  kAutoPrefixVariableName,
  kViewTavrinWindow,
  kViewCodeExplorerWindow,
  kViewTipOfTheDay,
  kErrorHandleFile,
  kCollectionClassTemplate,
  kProcedureHeaderFile,
  kModuleHeaderFile,
  kPrefixStandardsFile,
  kLibraryFolder,
  kBaseFolder,
};

inline constexpr int kItemCount = static_cast<int>(Item::kBaseFolder) + 1;
inline constexpr int kSectionCount = static_cast<int>(Section::kFragmentsReference) + 1;
inline constexpr int kIniFileCount = static_cast<int>(IniFile::kTvrVars) + 1;

// Text, yes/no or whole number; a yes/no item may hold text when its
// default is the empty text.
using SettingValue = std::variant<std::string, bool, int>;

std::string IniFile2Name(IniFile file, platform::Ui& ui);
std::string Section2Name(Section section, platform::Ui& ui);
// nullopt is the empty answer after a Missing Case message.
std::optional<IniFile> Section2IniFile(Section section, platform::Ui& ui);
std::string Item2Name(Item item, platform::Ui& ui);
std::optional<Section> ItemInSection(Item item, platform::Ui& ui);
std::optional<IniItemType> Item2IniItemType(Item item, platform::Ui& ui);
SettingValue ItemDefault(Item item);

// "text", "whole number", "yes/no", "date", "file path", "folder path".
std::string_view IniItemTypeName(IniItemType type);

// The item of a key name (case-insensitive); nullopt when none.
std::optional<Item> ItemOfKey(std::string_view key);

// The value as the INI file holds it: "True"/"False", digits, or the text.
std::string ValueAsText(const SettingValue& value);

// The auto-prefix modes of `Auto Prefix Variable Name`.
enum class AutoPrefixMode { kNoAutoPrefix = 0, kAlwaysAutoPrefix = 1, kBeforeCapitalChar = 2 };
// "No Auto Prefix", "Always Auto Prefix", "Auto Prefix before capital char".
std::string AutoPrefixModeName(AutoPrefixMode mode);

}  // namespace tavrin::settings
