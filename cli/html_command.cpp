// `html FILE`: the module's code, or one procedure's, as a coloured page.
#include <iostream>
#include <memory>

#include "cli/addin_session.h"
#include "cli/command.h"
#include "cli/source_session.h"
#include "cli/usage_error.h"
#include "platform/browser.h"
#ifndef _WIN32
#include "platform/shell_posix.h"
#endif
#include "platform/std_file_system.h"
#include "transform/code_text.h"
#include "transform/code_to_html.h"
#include "transform/html_page.h"

namespace tavrin::cli {
namespace {

struct HtmlArguments {
  std::string file;
  std::string procedure;
  bool fragment = false;
  std::string template_path;
  std::string output_path;
  bool open = false;
};

std::string TemplatePath(const GlobalOptions& globals, const HtmlArguments& arguments,
                         platform::FileSystem& files) {
  if (arguments.template_path.empty()) {
    const std::string folder = AddinFolder(globals);
    return folder.empty() ? std::string()
                          : transform::JoinPath(folder, transform::kHtmlTemplateFileName);
  }
  if (!files.FileExists(arguments.template_path))
    throw UsageError("the template '" + arguments.template_path + "' does not exist");
  return arguments.template_path;
}

int RunHtml(const GlobalOptions& globals, const HtmlArguments& arguments) {
  platform::StdFileSystem files;
  SourceSession session(files, arguments.file);
  const auto component = session.Component();
  const auto module = component->CodeModule();
  std::string code = transform::ModuleCodeText(*module);
  std::string procedure;
  if (!arguments.procedure.empty()) {
    auto found = transform::ProcedureCodeText(*module, arguments.procedure);
    if (!found)
      throw UsageError("'" + arguments.file + "' has no procedure '" + arguments.procedure + "'");
    code = std::move(found->text);
    procedure = std::move(found->name);
  }
  const std::string html = transform::ConvertCodeToHtml(code);

  platform::PortableBrowser browser;
#ifndef _WIN32
  if (arguments.open) {
    platform::PosixShell shell;
    transform::HtmlPageServices services{files, shell, browser, AddinFolder(globals)};
    const auto shown = transform::ShowHtmlPage(services, html, component->Name(), procedure);
    if (!shown) throw UsageError(shown.error());
    std::cout << *shown << '\n';
    return kDone;
  }
#endif
  std::string bytes = html;
  if (!arguments.fragment) {
    auto page = transform::BuildHtmlPage(files, browser, TemplatePath(globals, arguments, files),
                                         html, component->Name(), procedure);
    if (!page) throw UsageError(page.error());
    bytes = std::move(*page);
  }
  if (!arguments.output_path.empty()) {
    if (const Status written = files.WriteFile(arguments.output_path, bytes); !written)
      throw UsageError(written.error());
  } else {
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    std::cout.flush();
  }
  return kDone;
}

}  // namespace

Command AddHtmlCommand(CLI::App& app) {
  auto arguments = std::make_shared<HtmlArguments>();
  CLI::App* command =
      app.add_subcommand("html", "The module's code (or one procedure's) as a coloured page");
  command->add_option("file", arguments->file, "A .bas, .cls, .frm, .ctl or .dsr file")
      ->required();
  command->add_option("--procedure", arguments->procedure, "Only this procedure");
  auto* fragment =
      command->add_flag("--fragment", arguments->fragment, "Only the fragment, no page");
  auto* page_template = command->add_option(
      "--template", arguments->template_path,
      "The page template (default: vb2htmltemplate.htm in the add-in's folder)");
  [[maybe_unused]] auto* output =
      command->add_option("-o,--output", arguments->output_path, "Write to OUT");
  fragment->excludes(page_template);
#ifndef _WIN32
  // The Windows tool gets --open with the Windows shell.
  auto* open = command->add_flag(
      "--open", arguments->open, "Write vb2html.htm to the temporary folder and open it");
  open->excludes(fragment)->excludes(page_template)->excludes(output);
#endif
  return {command, [arguments](const GlobalOptions& globals) {
            return RunHtml(globals, *arguments);
          }};
}

}  // namespace tavrin::cli
