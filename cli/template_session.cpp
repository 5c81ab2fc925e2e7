#include "cli/template_session.h"

#include "base/text.h"
#include "codegen/settings_environment.h"

namespace tavrin::cli {

codegen::TemplateEnvironment ToolTemplateEnvironment(const GlobalOptions& globals,
                                                     AddinSession& session) {
  const fragments::Settings settings = session.Load(/*interactive=*/false);
  codegen::TemplateEnvironment environment;
  environment.settings = codegen::TemplateSettingsFrom(settings);
  environment.read_code_file = codegen::CodeFileReader(settings, session.Files());
  environment.indent_unit = Blanks(globals.tab_width.value_or(4));
  environment.host = globals.host;
  return environment;
}

}  // namespace tavrin::cli
