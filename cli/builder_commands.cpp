// The declaration builders on the command line: `variable`, `constant` and
// `property` fill their dialog from options, as a user would, and either
// print the text or write it into a source file at the caret.
#include <iostream>
#include <memory>

#include "addin/declaration_builders.h"
#include "builders/block_dialogs.h"
#include "builders/constant_dialog.h"
#include "builders/property_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "builders/variable_dialog.h"
#include "cli/addin_session.h"
#include "cli/command.h"
#include "cli/positions.h"
#include "cli/proc_record.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/ide_options.h"
#include "platform/std_file_system.h"
#include "platform/terminal_ui.h"
#include "scan/module_text_scanner.h"

namespace tavrin::cli {
namespace {

using builders::DialogAction;

enum class Builder { kVariable, kConstant, kProperty, kEnum, kType };

struct BuilderArguments {
  std::string name;
  std::string type;
  std::string scope;   // local, module, global
  std::string value;   // a constant's
  std::string access;  // a property's: read-write, read-only, write-only
  std::string bounds;  // an array's
  std::string members;  // an enum's or type's
  bool numbered = false;
  bool is_new = false;
  bool is_array = false;
  bool in_class = false;  // without a file: build as in a class module
  std::string file;
  PositionOptions position;
  OutputOptions output;
};

struct BuilderInfo {
  const char* word;
  const char* help;
  std::string_view title;  // of the builder's dialog
};

const BuilderInfo& InfoOf(Builder builder) {
  static const BuilderInfo kInfo[] = {
      {"variable", "Declares a variable named by the naming rules",
       builders::kVariableDialogTitle},
      {"constant", "Declares a constant; a selected literal becomes its value",
       builders::kConstantDialogTitle},
      {"property", "Writes a property with its member variable into a class module",
       builders::kPropertyDialogTitle},
      {"enum", "Writes a new Enum at the end of the declarations", builders::kEnumDialogTitle},
      {"type", "Writes a new user-defined Type at the end of the declarations",
       builders::kTypeDialogTitle},
  };
  return kInfo[static_cast<int>(builder)];
}

constexpr unsigned Bit(Builder builder) { return 1u << static_cast<int>(builder); }
constexpr unsigned kVariableOnly = Bit(Builder::kVariable);
constexpr unsigned kBlocks = Bit(Builder::kEnum) | Bit(Builder::kType);
constexpr unsigned kAll = 0x1f;

// The options of the builders, each with the builders that take it.
struct TextOption {
  const char* flag;
  std::string BuilderArguments::*field;
  unsigned builders;
  const char* help;
  bool required = false;
};

const TextOption kTextOptions[] = {
    {"--name", &BuilderArguments::name, kAll,
     "The name as typed; the naming rules add the prefixes", true},
    {"--type", &BuilderArguments::type, kAll & ~kBlocks, "The type (default String)"},
    {"--scope", &BuilderArguments::scope, kVariableOnly | Bit(Builder::kConstant),
     "local, module or global"},
    {"--scope", &BuilderArguments::scope, kBlocks, "module or global (default)"},
    {"--bounds", &BuilderArguments::bounds, kVariableOnly,
     "The array's bounds, e.g. \"1 To 10\""},
    {"--value", &BuilderArguments::value, Bit(Builder::kConstant),
     "The value; a picked-up selection gives it too"},
    {"--access", &BuilderArguments::access, Bit(Builder::kProperty),
     "read-write (default), read-only or write-only"},
    {"--members", &BuilderArguments::members, Bit(Builder::kEnum),
     "The members, e.g. \"Red, Green = 5\"", true},
    {"--members", &BuilderArguments::members, Bit(Builder::kType),
     "The members, e.g. \"X As Long, Y As Long\"", true},
};

struct FlagOption {
  const char* flag;
  bool BuilderArguments::*field;
  unsigned builders;
  const char* help;
};

const FlagOption kFlagOptions[] = {
    {"--numbered", &BuilderArguments::numbered, Bit(Builder::kEnum),
     "Give every member its value"},
    {"--new", &BuilderArguments::is_new, kVariableOnly, "Declare it As New"},
    {"--array", &BuilderArguments::is_array, kVariableOnly, "Declare an array"},
    {"--class", &BuilderArguments::in_class, kAll, "Without a file: build as in a class module"},
};

std::string ScopeEntry(const std::string& scope) {
  if (scope == "local") return std::string(builders::kScopeLocal);
  if (scope == "module") return std::string(builders::kScopeModule);
  if (scope == "global") return std::string(builders::kScopeGlobal);
  throw UsageError("--scope must be local, module or global");
}

std::string AccessEntry(const std::string& access) {
  if (access == "read-write") return std::string(builders::kReadWrite);
  if (access == "read-only") return std::string(builders::kReadOnly);
  if (access == "write-only") return std::string(builders::kWriteOnly);
  throw UsageError("--access must be read-write, read-only or write-only");
}

// What a user would do in the dialog with these options.
builders::DialogScript ScriptOf(Builder builder, const BuilderArguments& a) {
  builders::DialogScript script = {DialogAction::Text("name", a.name)};
  if (!a.scope.empty() && builder != Builder::kProperty)
    script.push_back(DialogAction::Pick("scope", ScopeEntry(a.scope)));
  if (builder == Builder::kEnum || builder == Builder::kType) {
    script.push_back(DialogAction::Text("members", a.members));
    if (a.numbered) script.push_back(DialogAction::Check("numbered"));
  } else if (!a.type.empty()) {
    script.push_back(builder == Builder::kConstant ? DialogAction::Pick("type", a.type)
                                                   : DialogAction::Text("type", a.type));
  }
  if (builder == Builder::kVariable) {
    if (a.is_new) script.push_back(DialogAction::Check("new"));
    if (a.is_array || !a.bounds.empty()) {
      script.push_back(DialogAction::Check("array"));
      script.push_back(DialogAction::Text("bounds", a.bounds));
    }
  }
  if (builder == Builder::kConstant && !a.value.empty())
    script.push_back(DialogAction::Text("value", a.value));
  if (builder == Builder::kProperty && !a.access.empty())
    script.push_back(DialogAction::Pick("access", AccessEntry(a.access)));
  script.push_back(DialogAction::Ok());
  return script;
}

// A refused OK or a step the dialog could not take, as the tool's error.
void FailWhenNotConfirmed(const builders::ScriptedDialogHost& host) {
  if (!host.refusals.empty()) throw UsageError(host.refusals.back());
  if (!host.errors.empty()) throw UsageError(host.errors.back());
  throw UsageError("the builder was cancelled");
}

// Without a file: the text as for an empty procedure of a new module.
int PrintText(Builder builder, const BuilderArguments& a, const fragments::Settings& settings,
              builders::ScriptedDialogHost& host, bool json) {
  builders::DeclarationTarget target;
  target.module_name = a.in_class ? "Class1" : "Module1";
  target.standard_module = !a.in_class;
  target.module = scan::ScanModuleText("Sub Main()\r\nEnd Sub");
  target.caret_line = 2;
  std::string name, text;
  const auto show = [&](builders::DialogModel& dialog) {
    if (!host.Show(dialog)) FailWhenNotConfirmed(host);
  };
  const auto declare = [&](builders::DeclarationDialog&& dialog) {
    show(dialog);
    name = dialog.DeclaredName();
    text = dialog.Statement();
  };
  if (builder == Builder::kVariable) {
    declare(builders::VariableDialog(target, settings.Naming(), settings.type_prefixes));
  } else if (builder == Builder::kConstant) {
    declare(builders::ConstantDialog(target, settings.Naming(), settings.type_prefixes));
  } else if (builder == Builder::kEnum || builder == Builder::kType) {
    builders::BlockDialog dialog(target, builder == Builder::kEnum ? builders::BlockKind::kEnum
                                                                   : builders::BlockKind::kType);
    show(dialog);
    name = a.name;
    text = dialog.Code();
  } else {
    builders::PropertyDialog dialog(target, settings.Naming(), settings.type_prefixes,
                                    settings.values);
    show(dialog);
    name = dialog.Spec().name;
    text = dialog.MemberPlace().text + "\r\n\r\n" + builders::PropertyCode(dialog.Spec());
  }
  if (json) {
    std::cout << DumpJson({{"name", name}, {"text", text}}) << "\n";
  } else {
    std::cout << text << "\r\n";
  }
  return kDone;
}

int RunBuilder(Builder builder, const GlobalOptions& globals, const BuilderArguments& a) {
  builders::ScriptedDialogHost host;
  host.Answer(std::string(InfoOf(builder).title), ScriptOf(builder, a));
  AddinSession addin_session(globals);
  const fragments::Settings settings = addin_session.Load(/*interactive=*/false);
  if (a.file.empty()) return PrintText(builder, a, settings, host, globals.json);

  if (!HasPosition(a.position)) throw UsageError("writing into a file needs --caret L:C");
  platform::StdFileSystem files;
  SourceSession session(files, a.file);
  session.Pane()->SetSelection(ResolvePosition(a.position, *session.Pane()->CodeModule()));
  platform::TerminalUi ui(globals.answers, StandardInputIsTerminal(), std::cin, std::cerr);
  platform::FixedIdeOptions ide_options(globals.tab_width);
  addin::Context context{session.Vbe(), ui, ide_options};
  context.settings = &settings;
  context.dialogs = &host;
  bool written = false;
  switch (builder) {
    case Builder::kVariable: written = addin::AddVariable(context, ""); break;
    case Builder::kConstant: written = addin::AddConstant(context, ""); break;
    case Builder::kProperty: written = addin::AddProperty(context, ""); break;
    case Builder::kEnum: written = addin::AddBlock(context, builders::BlockKind::kEnum); break;
    case Builder::kType: written = addin::AddBlock(context, builders::BlockKind::kType); break;
  }
  if (!written) {
    if (host.shown.empty()) throw UsageError(std::string(builders::kPropertyInStandardModule));
    FailWhenNotConfirmed(host);
  }
  session.WriteResult(a.output, globals.json, std::cout);
  return kDone;
}

Command AddBuilderCommand(CLI::App& app, Builder builder) {
  auto a = std::make_shared<BuilderArguments>();
  CLI::App* command = app.add_subcommand(InfoOf(builder).word, InfoOf(builder).help);
  for (const TextOption& option : kTextOptions) {
    if ((option.builders & Bit(builder)) == 0) continue;
    auto* added = command->add_option(option.flag, (*a).*option.field, option.help);
    if (option.required) added->required();
  }
  for (const FlagOption& option : kFlagOptions)
    if ((option.builders & Bit(builder)) != 0)
      command->add_flag(option.flag, (*a).*option.field, option.help);
  command->add_option("file", a->file, "A .bas, .cls, .frm or .ctl file to write into");
  AddPositionOptions(*command, a->position);
  AddOutputOptions(*command, a->output);
  return {command,
          [a, builder](const GlobalOptions& globals) { return RunBuilder(builder, globals, *a); }};
}

}  // namespace

Command AddVariableCommand(CLI::App& app) { return AddBuilderCommand(app, Builder::kVariable); }
Command AddConstantCommand(CLI::App& app) { return AddBuilderCommand(app, Builder::kConstant); }
Command AddPropertyCommand(CLI::App& app) { return AddBuilderCommand(app, Builder::kProperty); }
Command AddEnumCommand(CLI::App& app) { return AddBuilderCommand(app, Builder::kEnum); }
Command AddTypeCommand(CLI::App& app) { return AddBuilderCommand(app, Builder::kType); }

}  // namespace tavrin::cli
