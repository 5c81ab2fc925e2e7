#include <iostream>
#include <memory>
#include <optional>

#include "addin/code_line_commands.h"
#include "addin/procedure_builder.h"
#include "base/text.h"
#include "base/utf8.h"
#include "cli/answer_file.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/source_session.h"
#include "cli/template_session.h"
#include "cli/usage_error.h"
#include "codegen/procedure_generator.h"
#include "codegen/templates.h"
#include "ide/memory/memory_vbe.h"
#include "platform/std_file_system.h"
#include "scan/proc_arguments.h"

namespace tavrin::cli {
namespace {

struct ProcedureArguments {
  std::string name;
  std::string type = "Sub";
  std::string property;
  std::string access = "Public";
  bool is_static = false;
  std::string returns;
  std::vector<std::string> args;
  bool separate_lines = false;
  bool header = false;
  std::string description;
  std::string module;
  bool name_constant = false;
  bool error_handler = false;
  bool return_line = false;
  bool hourglass = false;
  InsertOptions insert;  // the module the procedure goes into
  std::string answers;  // answers to the procedure builder's dialogs
};

// Inserts into the module at the caret as the add-in does: below the
// procedure at the caret, never inside one; the file is rewritten.
void InsertIntoModule(const GlobalOptions& globals, SourceSession& target,
                      const std::string& code, const codegen::clsProcedure& procedure) {
  const auto pane = target.Pane();
  const auto module = pane->CodeModule();
  const ide::ProcKind kind = procedure.PropertyType == "Get"   ? ide::ProcKind::kGet
                             : procedure.PropertyType == "Let" ? ide::ProcKind::kLet
                             : procedure.PropertyType == "Set" ? ide::ProcKind::kSet
                                                               : ide::ProcKind::kProc;
  const int line = addin::InsertProcedureText(*module, pane->GetSelection().start_line, code,
                                              procedure.Name, kind);
  const int column = utf8::CharCount(module->Lines(line, 1)) + 1;
  pane->SetSelection({line, column, line, column});
  WriteInsertTarget(target, globals.json);
}

// The procedure builder answered from a file, writing into the module at
// the caret (or printing what it would write).
int RunProcedureBuilder(const GlobalOptions& globals, const ProcedureArguments& arguments,
                        std::optional<SourceSession>& target) {
  builders::ScriptedDialogHost host;
  LoadAnswerFile(arguments.answers, host);
  AddinSession session(globals);
  const fragments::Settings settings = session.Load(/*interactive=*/false);
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  const auto vbe = ide::memory::MemoryVbe::Create();
  addin::Context context{target ? target->Vbe() : *vbe, ui, ide_options, &settings,
                         &session.Files(), &host};
  builders::ProcedureTarget module;
  module.module_name = arguments.module;
  if (target) module = addin::ProcedureTargetOf(target->Vbe(), *target->Pane()->CodeModule());
  builders::ProcedureDialog dialog(module, settings.values, addin::TemplateEnvironmentOf(context));
  const bool confirmed = host.Show(dialog);
  CheckAnswered(host, confirmed);
  if (!confirmed) return kDone;
  if (!target) {
    const std::string code = dialog.Code();
    std::cout.write(code.data(), static_cast<std::streamsize>(code.size()));
    return kDone;
  }
  InsertIntoModule(globals, *target, dialog.Code(), dialog.Procedure());
  return kDone;
}

// An argument written in Visual Basic syntax, read by the declaration parser.
codegen::clsArgument ArgumentFrom(std::string_view text, int position) {
  scan::C4_ProcArgument parsed;
  parsed.init(TrimBlanks(text));
  if (parsed.Name.empty())
    throw UsageError("argument " + std::to_string(position) + " has no name: '" +
                     std::string(text) + "'");
  codegen::clsArgument argument;
  argument.Name = parsed.Name;
  argument.IsParamArray = parsed.IsParamArray;
  argument.IsOptional = parsed.IsOptional;
  argument.IsByVal = parsed.IsPassedByVal;
  argument.IsArray = parsed.IsArray;
  // The parser answers "Variant" when no type is written; keep it unwritten.
  const bool type_written = FindIgnoreCase(parsed.ArgDef, " As ") != std::string::npos;
  argument.Type_ = type_written ? parsed.Type_ : "";
  argument.DefaultValue = parsed.DefaultValue;
  argument.Position = position;
  return argument;
}

std::string OneLine(std::string text) { return ReplaceAll(text, "\r\n", " "); }

int RunProcedure(const GlobalOptions& globals, const ProcedureArguments& arguments) {
  platform::StdFileSystem files;
  std::optional<SourceSession> target = OpenInsertTarget(files, arguments.insert);
  if (!arguments.answers.empty()) return RunProcedureBuilder(globals, arguments, target);
  if (arguments.name.empty()) throw UsageError("procedure needs --name, or --answers");
  if (arguments.type != "Sub" && arguments.type != "Function" && arguments.type != "Property")
    throw UsageError("--type must be Sub, Function or Property");
  if (arguments.type == "Property" && arguments.property != "Get" &&
      arguments.property != "Let" && arguments.property != "Set")
    throw UsageError("a Property needs --property Get, Let or Set");
  if (!arguments.access.empty() && arguments.access != "Public" &&
      arguments.access != "Private" && arguments.access != "Friend")
    throw UsageError("--access must be Public, Private or Friend");

  codegen::clsProcedure procedure;
  procedure.Name = arguments.name;
  procedure.ProcType = arguments.type;
  procedure.PropertyType = arguments.property;
  procedure.Accessibility = arguments.access;
  procedure.IsStatic = arguments.is_static;
  procedure.ReturnType = arguments.returns;
  procedure.ArgumentsOnSeparateLines = arguments.separate_lines;
  procedure.Description = arguments.description;
  procedure.ModuleName = arguments.module;
  procedure.AddProcNameConst = arguments.name_constant;
  procedure.WithErrorHandler = arguments.error_handler;
  procedure.WithReturnLine = arguments.return_line;
  procedure.WithHourglass = arguments.hourglass;
  procedure.AddHeader = arguments.header;
  scan::C4_ProcArguments names;  // keyed like the declaration parser keys them
  for (std::size_t i = 0; i < arguments.args.size(); ++i) {
    codegen::clsArgument argument = ArgumentFrom(arguments.args[i], static_cast<int>(i) + 1);
    scan::C4_ProcArgument key;
    key.Name = argument.Name;
    if (const Status added = names.Add(key); !added) throw UsageError(added.error());
    procedure.Arguments.Add(std::move(argument));
  }
  if (const auto order = procedure.ArgumentsOrderIsBad(); order != codegen::kOrderValid)
    throw UsageError(OneLine(codegen::ArgumentOrderMessage(order)));

  // Only good input reaches the add-in's folder, which the first use seeds.
  AddinSession session(globals);
  codegen::TemplateEnvironment environment = ToolTemplateEnvironment(globals, session);
  if (arguments.header) {
    procedure.HeaderTemplate =
        environment.read_code_file(environment.settings.procedure_header_file).value_or("");
  }
  procedure.SetEnvironment(std::move(environment));
  const std::string code = procedure.GenerateCode();
  if (target) {
    InsertIntoModule(globals, *target, code, procedure);
    return kDone;
  }
  std::cout.write(code.data(), static_cast<std::streamsize>(code.size()));
  return kDone;
}

}  // namespace

Command AddProcedureCommand(CLI::App& app) {
  auto a = std::make_shared<ProcedureArguments>();
  CLI::App* command = app.add_subcommand("procedure", "Prints a generated procedure");
  command->add_option("--name", a->name, "The procedure's name");
  command->add_option("--type", a->type, "Sub, Function or Property (default Sub)");
  command->add_option("--property", a->property, "Get, Let or Set, for a Property");
  command->add_option("--access", a->access, "Public (default), Private or Friend");
  command->add_flag("--static", a->is_static, "Declare it Static");
  command->add_option("--returns", a->returns, "The return type");
  command->add_option("--arg", a->args,
                      "An argument in Visual Basic syntax, e.g. \"Optional ByVal n As Long = 1\"");
  command->add_flag("--separate-lines", a->separate_lines,
                    "Put the second and later arguments on continuation lines");
  command->add_flag("--header", a->header, "Add the procedure header");
  command->add_option("--description", a->description, "The header's description");
  command->add_option("--module", a->module, "The module's name, for the error handler");
  command->add_flag("--name-constant", a->name_constant, "Add the procedure-name constant");
  command->add_flag("--error-handler", a->error_handler, "Merge the error handler");
  command->add_flag("--return-line", a->return_line, "Merge the return line");
  command->add_flag("--hourglass", a->hourglass, "Merge the hourglass lines of the host");
  AddInsertOptions(*command, a->insert,
                   "Insert into this module at the caret, below the procedure there");
  command->add_option("--answers", a->answers,
                      "A JSON answer file for the dialogs \"Add Procedure\" and \"Argument\"");
  return {command, [a](const GlobalOptions& globals) { return RunProcedure(globals, *a); }};
}

}  // namespace tavrin::cli
