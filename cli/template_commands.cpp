#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/template_session.h"
#include "cli/usage_error.h"
#include "codegen/settings_environment.h"
#include "codegen/templates.h"

namespace tavrin::cli {
namespace {

void Print(std::string_view text) {
  std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

struct HeaderArguments {
  std::string kind;
  std::string name;
  std::string description;
};

int RunHeader(const GlobalOptions& globals, const HeaderArguments& arguments) {
  AddinSession session(globals);
  const codegen::TemplateEnvironment environment = ToolTemplateEnvironment(globals, session);
  const codegen::HeaderKind kind = arguments.kind == "module" ? codegen::HeaderKind::kModule
                                                             : codegen::HeaderKind::kProcedure;
  Print(codegen::ExpandHeader(environment, kind, arguments.name, arguments.description));
  return kDone;
}

struct TemplateArguments {
  std::string file;
  std::string module;
  std::string procedure;
  std::string type;
};

int RunTemplate(const GlobalOptions& globals, const TemplateArguments& arguments) {
  AddinSession session(globals);
  Result<std::string> bytes = session.Files().ReadFile(arguments.file);
  if (!bytes) throw UsageError(bytes.error());
  std::string text = codegen::CodeFileText(*bytes);
  const codegen::TemplateEnvironment environment = ToolTemplateEnvironment(globals, session);
  codegen::ExpandProcedureTemplate(environment, text, arguments.module, arguments.procedure,
                                   arguments.type);
  Print(text);
  return kDone;
}

}  // namespace

Command AddHeaderCommand(CLI::App& app) {
  auto arguments = std::make_shared<HeaderArguments>();
  CLI::App* command = app.add_subcommand("header", "Prints an expanded header");
  command->add_option("kind", arguments->kind, "procedure or module")
      ->required()
      ->check(CLI::IsMember({"procedure", "module"}));
  command->add_option("name", arguments->name, "The procedure's or module's name")->required();
  command->add_option("--description", arguments->description, "The header's description");
  return {command, [arguments](const GlobalOptions& globals) {
            return RunHeader(globals, *arguments);
          }};
}

Command AddTemplateCommand(CLI::App& app) {
  auto arguments = std::make_shared<TemplateArguments>();
  CLI::App* command = app.add_subcommand("template", "Prints a template file expanded");
  command->add_option("file", arguments->file, "The template file")->required();
  command->add_option("--module", arguments->module, "The module's name");
  command->add_option("--procedure", arguments->procedure, "The procedure's name");
  command->add_option("--type", arguments->type, "Function, Property or Sub");
  return {command, [arguments](const GlobalOptions& globals) {
            return RunTemplate(globals, *arguments);
          }};
}

}  // namespace tavrin::cli
