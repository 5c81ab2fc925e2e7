// One source file opened in the in-memory IDE for an editing command: its
// code pane is the active one, the position options give its selection, and
// the outcome is written as the edited file or as JSON.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/positions.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/file_system.h"

namespace tavrin::cli {

struct OutputOptions {
  std::string output_path;  // -o OUT
  bool in_place = false;    // -i
};

void AddOutputOptions(CLI::App& command, OutputOptions& options);

class SourceSession {
 public:
  // Raises UsageError when the file cannot be read or is no source file.
  SourceSession(platform::FileSystem& files, const std::string& path);

  ide::memory::MemoryVbe& Vbe() { return *vbe_; }
  std::shared_ptr<ide::ICodePane> Pane() { return pane_; }
  std::shared_ptr<ide::memory::MemoryComponent> Component() { return component_; }

  // The edited file to standard output, OUT or the file itself; with
  // `json` the code lines and the selection to standard output instead.
  void WriteResult(const OutputOptions& output, bool json, std::ostream& out);

 private:
  platform::FileSystem& files_;
  std::string path_;
  std::shared_ptr<ide::memory::MemoryVbe> vbe_;
  std::shared_ptr<ide::memory::MemoryComponent> component_;
  std::shared_ptr<ide::ICodePane> pane_;
};

// -i/--insert FILE with the caret in it (--caret, --select): the module a
// builder writes into, as the add-in writes into the active code pane.
struct InsertOptions {
  std::string file;
  PositionOptions position;
};

void AddInsertOptions(CLI::App& command, InsertOptions& options, const std::string& help);

// FILE opened with its pane active and the caret the options give; nullopt
// without -i. Raises UsageError when -i comes without a position.
std::optional<SourceSession> OpenInsertTarget(platform::FileSystem& files,
                                              const InsertOptions& options);

// Rewrites the file; with `json` prints its lines and the caret.
void WriteInsertTarget(SourceSession& target, bool json);

// The code lines and the selection as the tool prints them with --json.
std::string CodeAsJson(ide::ICodeModule& module, const ide::TextRange& selection);

}  // namespace tavrin::cli
