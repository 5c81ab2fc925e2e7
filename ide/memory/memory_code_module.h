// The code module of an in-memory component: the code lines of its source
// file, with the IDE's line, search and procedure semantics.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ide/memory/procedure_index.h"
#include "ide/memory/source_file.h"
#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryComponent;

class MemoryCodeModule : public ICodeModule {
 public:
  MemoryCodeModule(std::weak_ptr<MemoryComponent> component,
                   std::shared_ptr<SourceFile> source);

  std::shared_ptr<IComponent> Parent() override;
  std::string Lines(int start_line, int count) override;
  int CountOfLines() override;
  int CountOfDeclarationLines() override;
  void InsertLines(int line, std::string_view text) override;
  void ReplaceLine(int line, std::string_view text) override;
  void DeleteLines(int start_line, int count = 1) override;
  bool Find(std::string_view target, TextRange& range, FindOptions options = {}) override;
  ProcRef ProcOfLine(int line) override;
  int ProcStartLine(std::string_view name, ProcKind kind) override;
  int ProcBodyLine(std::string_view name, ProcKind kind) override;
  int ProcCountLines(std::string_view name, ProcKind kind) override;
  std::shared_ptr<ICodePane> CodePane() override;

 private:
  std::vector<std::string_view> LineViews() const;
  const ProcedureIndex& Index();
  const ProcedureSpan& Procedure(std::string_view name, ProcKind kind);

  std::weak_ptr<MemoryComponent> component_;
  std::shared_ptr<SourceFile> source_;
  // Built on first use, dropped by every edit.
  std::optional<ProcedureIndex> index_;
};

}  // namespace tavrin::ide::memory
