#include "cli/source_session.h"

#include <iostream>
#include <ostream>

#include <nlohmann/json.hpp>

#include "base/text.h"
#include "cli/usage_error.h"
#include "ide/memory/component_kind.h"

namespace tavrin::cli {

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  auto* output = command.add_option("-o,--output", options.output_path,
                                    "Write the edited file to OUT");
  auto* in_place = command.add_flag("-i,--in-place", options.in_place,
                                    "Replace FILE with the edited file");
  output->excludes(in_place);
}

SourceSession::SourceSession(platform::FileSystem& files, const std::string& path)
    : files_(files), path_(path), vbe_(ide::memory::MemoryVbe::Create()) {
  if (!ide::memory::IsSourceFileName(path))
    throw UsageError("'" + path +
                     "' is not a Visual Basic source file (.bas, .cls, .frm, .ctl or .dsr)");
  auto component = vbe_->OpenFile(files, path);
  if (!component) throw UsageError(component.error());
  component_ = component.value();
  pane_ = component_->CodeModule()->CodePane();
  pane_->Show();
}

void SourceSession::WriteResult(const OutputOptions& output, bool json, std::ostream& out) {
  const std::string bytes = component_->SourceBytes();
  const std::string target = output.in_place ? path_ : output.output_path;
  if (!target.empty()) {
    if (const Status written = files_.WriteFile(target, bytes); !written)
      throw UsageError(written.error());
  }
  if (json) {
    out << CodeAsJson(*pane_->CodeModule(), pane_->GetSelection()) << '\n';
  } else if (target.empty()) {
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  out.flush();
}

void AddInsertOptions(CLI::App& command, InsertOptions& options, const std::string& help) {
  command.add_option("-i,--insert", options.file, help);
  AddPositionOptions(command, options.position);
}

std::optional<SourceSession> OpenInsertTarget(platform::FileSystem& files,
                                              const InsertOptions& options) {
  std::optional<SourceSession> target;
  if (options.file.empty()) return target;
  if (!HasPosition(options.position)) throw UsageError("--insert needs the caret: --caret L:C");
  target.emplace(files, options.file);
  target->Pane()->SetSelection(ResolvePosition(options.position, *target->Pane()->CodeModule()));
  return target;
}

void WriteInsertTarget(SourceSession& target, bool json) {
  OutputOptions output;
  output.in_place = true;
  target.WriteResult(output, json, std::cout);
}

std::string CodeAsJson(ide::ICodeModule& module, const ide::TextRange& selection) {
  nlohmann::json lines = nlohmann::json::array();
  const int count = module.CountOfLines();
  if (count > 0) {
    const std::string code = module.Lines(1, count);
    for (std::string_view line : SplitCrLf(code)) lines.push_back(line);
  }
  const nlohmann::json result = {
      {"lines", std::move(lines)},
      {"selection", {selection.start_line, selection.start_column, selection.end_line,
                     selection.end_column}}};
  return result.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace tavrin::cli
