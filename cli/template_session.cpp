#include "cli/template_session.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"

namespace tavrin::cli {

std::string CodeFileText(std::string_view bytes) {
  const std::string text = DecodeSource(bytes).text;
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(text)) lines.emplace_back(line);
  return JoinCrLf(lines);
}

codegen::TemplateEnvironment ToolTemplateEnvironment(const GlobalOptions& globals,
                                                     platform::FileSystem& files) {
  codegen::TemplateEnvironment environment;
  environment.indent_unit = Blanks(globals.tab_width.value_or(4));
  environment.host = globals.host;
  const std::string folder = globals.addin_dir;
  if (!folder.empty()) {
    environment.read_code_file =
        [&files, folder](std::string_view path) -> std::optional<std::string> {
      std::string relative(path);
      std::replace(relative.begin(), relative.end(), '\\', '/');
      Result<std::string> bytes = files.ReadFile(folder + "/" + relative);
      if (!bytes) return std::nullopt;
      return CodeFileText(*bytes);
    };
  }
  return environment;
}

}  // namespace tavrin::cli
