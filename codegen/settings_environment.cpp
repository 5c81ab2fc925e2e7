#include "codegen/settings_environment.h"

#include <vector>

#include "base/encoding.h"
#include "base/text.h"

namespace tavrin::codegen {

TemplateSettings TemplateSettingsFrom(const fragments::Settings& settings) {
  using settings::Item;
  TemplateSettings values;
  values.developer = settings.Text(Item::kDeveloper);
  values.initials = settings.Text(Item::kInitials);
  values.organization = settings.Text(Item::kOrganization);
  values.copyright = settings.Text(Item::kCopyright);
  values.exit_label = settings.Text(Item::kExitHandler);
  values.error_label = settings.Text(Item::kErrorHandler);
  values.error_procedure = settings.Text(Item::kErrorHandleProcedure);
  values.error_module = settings.Text(Item::kErrorHandleModule);
  values.procedure_name_constant = settings.Text(Item::kProcedureNameConstant);
  values.procedure_header_file = settings.Text(Item::kProcedureHeaderFile);
  values.module_header_file = settings.Text(Item::kModuleHeaderFile);
  values.base_folder = settings.Text(Item::kBaseFolder);
  return values;
}

std::string CodeFileText(std::string_view bytes) {
  const std::string text = DecodeSource(bytes).text;
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(text)) lines.emplace_back(line);
  return JoinCrLf(lines);
}

std::function<std::optional<std::string>(std::string_view)> CodeFileReader(
    const fragments::Settings& settings, platform::FileSystem& files) {
  return [folders = settings.folders, &files](std::string_view path) -> std::optional<std::string> {
    if (path.empty()) return std::nullopt;
    Result<std::string> bytes = files.ReadFile(folders.FileSetting(path));
    if (!bytes) return std::nullopt;
    return CodeFileText(*bytes);
  };
}

}  // namespace tavrin::codegen
