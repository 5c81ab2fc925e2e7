// tavrin: the add-in's builders and transformations over exported Visual
// Basic source files.
#include <iostream>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "cli/command.h"
#include "cli/usage_error.h"
#include "ide/object_model.h"
#include "platform/command_line.h"
#include "platform/terminal_ui.h"
#include "tavrin_version.h"

namespace {

int Fail(std::string_view message) {
  std::cerr << "tavrin: " << message << '\n';
  return tavrin::cli::kBadInput;
}

} // namespace

int main(int argc, char **argv) {
  using namespace tavrin::cli;
#ifdef _WIN32
  // Source files are written byte for byte, CR LF included.
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  CLI::App app{
      "Builds and transforms Visual Basic code in exported source files.",
      "tavrin"};
  app.set_version_flag("--version", "tavrin " TAVRIN_VERSION);
  app.require_subcommand(0, 1);
  app.fallthrough();
  GlobalOptionParser global_options(app);
  std::vector<Command> commands = {
      AddSnippetCommand(app),    AddLinesCommand(app),
      AddCommentCommand(app),    AddHtmlCommand(app),
      AddAccessKeysCommand(app), AddSettingsCommand(app),
      AddNameCommand(app),       AddPathCommand(app),
      AddFoldersCommand(app),    AddIniCommand(app),
      AddCommandsCommand(app),   AddProcsCommand(app),
      AddDeclCommand(app),       AddProcedureCommand(app),
      AddHeaderCommand(app),     AddTemplateCommand(app),
      AddTreeCommand(app),       AddFindCommand(app),
      AddTabOrderCommand(app),   AddVariableCommand(app),
      AddConstantCommand(app),   AddPropertyCommand(app),
      AddEnumCommand(app),       AddTypeCommand(app),
      AddCallCommand(app),       AddFragmentsCommand(app),
      AddFragmentCommand(app),   AddExplicitArgsCommand(app),
      AddSelectEnumCommand(app), AddClassCommand(app),
      AddControlsCommand(app)};

  const std::vector<std::string> arguments = tavrin::platform::Utf8Arguments(argc, argv);
  std::vector<const char*> argument_pointers;
  for (const auto& argument : arguments) argument_pointers.push_back(argument.c_str());

  try {
    app.parse(static_cast<int>(argument_pointers.size()), argument_pointers.data());
  } catch (const CLI::CallForHelp &help) {
    return app.exit(help);
  } catch (const CLI::CallForAllHelp &help) {
    return app.exit(help);
  } catch (const CLI::CallForVersion &version) {
    return app.exit(version);
  } catch (const CLI::ParseError &error) {
    return Fail(error.what());
  }

  const GlobalOptions globals = global_options.Collect(app);
  try {
    for (const Command &command : commands)
      if (command.app->parsed())
        return command.run(globals);
    return Fail("no command given; see tavrin --help");
  } catch (const UsageError &error) {
    return Fail(error.what());
  } catch (const tavrin::platform::UnansweredQuestion &error) {
    return Fail(error.what());
  } catch (const tavrin::ide::Error &error) {
    return Fail(std::string("the IDE model raised error ") +
                std::to_string(error.number()) + ": " + error.what());
  } catch (const std::exception &error) {
    return Fail(std::string("internal error: ") + error.what());
  }
}
