#include "cli/global_options.h"

#include <cstdio>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tavrin::cli {

GlobalOptionParser::GlobalOptionParser(CLI::App& app) {
  app.add_option("--addin-dir", options_.addin_dir,
                 "The add-in's folder: INI files and the code-folder tree");
  app.add_option("--tab-width", options_.tab_width,
                 "The IDE's tab width, giving the indent unit (default: four blanks)")
      ->check(CLI::Range(1, 32));
  app.add_option("--host", options_.host,
                 "The host the add-in runs in: VBRUN, Excel, Access, Word, ...");
  app.add_flag("--json", options_.json, "Machine-readable output");
  app.add_option("--answer", answer_texts_, "Answers an input box (repeat for several)");
  app.add_flag("--yes", yes_, "Answers a Yes/No box with Yes");
  app.add_flag("--no", no_, "Answers a Yes/No box with No");
  app.add_flag("--cancel", cancel_, "Cancels a box");
}

GlobalOptions GlobalOptionParser::Collect(const CLI::App& app) const {
  using Kind = platform::PresetAnswer::Kind;
  GlobalOptions options = options_;
  std::size_t next_text = 0;
  for (const CLI::Option* option : app.parse_order()) {
    const std::string name = option->get_name();
    if (name == "--answer" && next_text < answer_texts_.size())
      options.answers.push_back({Kind::kText, answer_texts_[next_text++]});
    else if (name == "--yes")
      options.answers.push_back({Kind::kYes, ""});
    else if (name == "--no")
      options.answers.push_back({Kind::kNo, ""});
    else if (name == "--cancel")
      options.answers.push_back({Kind::kCancel, ""});
  }
  return options;
}

bool StandardInputIsTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stdin)) != 0;
#else
  return isatty(fileno(stdin)) != 0;
#endif
}

}  // namespace tavrin::cli
