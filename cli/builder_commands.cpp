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

std::string_view TitleOf(Builder builder) {
  switch (builder) {
    case Builder::kVariable: return builders::kVariableDialogTitle;
    case Builder::kConstant: return builders::kConstantDialogTitle;
    case Builder::kProperty: return builders::kPropertyDialogTitle;
    case Builder::kEnum: return builders::kEnumDialogTitle;
    case Builder::kType: return builders::kTypeDialogTitle;
  }
  return "";
}

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
  if (builder == Builder::kVariable) {
    builders::VariableDialog dialog(target, settings.Naming(), settings.type_prefixes);
    show(dialog);
    name = dialog.DeclaredName();
    text = dialog.Statement();
  } else if (builder == Builder::kConstant) {
    builders::ConstantDialog dialog(target, settings.Naming(), settings.type_prefixes);
    show(dialog);
    name = dialog.DeclaredName();
    text = dialog.Statement();
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
  host.Answer(std::string(TitleOf(builder)), ScriptOf(builder, a));
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

Command AddBuilderCommand(CLI::App& app, Builder builder, const char* word, const char* help) {
  auto a = std::make_shared<BuilderArguments>();
  CLI::App* command = app.add_subcommand(word, help);
  command->add_option("--name", a->name, "The name as typed; the naming rules add the prefixes")
      ->required();
  const bool block = builder == Builder::kEnum || builder == Builder::kType;
  if (block) {
    command->add_option("--members", a->members,
                        builder == Builder::kEnum ? "The members, e.g. \"Red, Green = 5\""
                                                  : "The members, e.g. \"X As Long, Y As Long\"")
        ->required();
    if (builder == Builder::kEnum)
      command->add_flag("--numbered", a->numbered, "Give every member its value");
  } else {
    command->add_option("--type", a->type, "The type (default String)");
  }
  if (builder != Builder::kProperty)
    command->add_option("--scope", a->scope,
                        block ? "module or global (default)" : "local, module or global");
  if (builder == Builder::kVariable) {
    command->add_flag("--new", a->is_new, "Declare it As New");
    command->add_flag("--array", a->is_array, "Declare an array");
    command->add_option("--bounds", a->bounds, "The array's bounds, e.g. \"1 To 10\"");
  }
  if (builder == Builder::kConstant)
    command->add_option("--value", a->value, "The value; a picked-up selection gives it too");
  if (builder == Builder::kProperty)
    command->add_option("--access", a->access, "read-write (default), read-only or write-only");
  command->add_flag("--class", a->in_class, "Without a file: build as in a class module");
  command->add_option("file", a->file, "A .bas, .cls, .frm or .ctl file to write into");
  AddPositionOptions(*command, a->position);
  AddOutputOptions(*command, a->output);
  return {command,
          [a, builder](const GlobalOptions& globals) { return RunBuilder(builder, globals, *a); }};
}

}  // namespace

Command AddVariableCommand(CLI::App& app) {
  return AddBuilderCommand(app, Builder::kVariable, "variable",
                           "Declares a variable named by the naming rules");
}

Command AddConstantCommand(CLI::App& app) {
  return AddBuilderCommand(app, Builder::kConstant, "constant",
                           "Declares a constant; a selected literal becomes its value");
}

Command AddEnumCommand(CLI::App& app) {
  return AddBuilderCommand(app, Builder::kEnum, "enum",
                           "Writes a new Enum at the end of the declarations");
}

Command AddTypeCommand(CLI::App& app) {
  return AddBuilderCommand(app, Builder::kType, "type",
                           "Writes a new user-defined Type at the end of the declarations");
}

Command AddPropertyCommand(CLI::App& app) {
  return AddBuilderCommand(app, Builder::kProperty, "property",
                           "Writes a property with its member variable into a class module");
}

}  // namespace tavrin::cli
