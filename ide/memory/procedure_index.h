// Where the declarations section and each procedure of a module lie, as the
// IDE reports them through ProcOfLine, ProcStartLine, ProcBodyLine,
// ProcCountLines and CountOfDeclarationLines.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

struct ProcedureSpan {
  std::string name;
  ProcKind kind = ProcKind::kProc;
  int start_line = 0;  // first line, comments and blank lines above included
  int body_line = 0;   // the declaration
  int last_line = 0;   // the End line, or the module's last line for the last
};

// A procedure declaration at the start of a (logical) line.
struct ProcDeclaration {
  std::string name;
  ProcKind kind = ProcKind::kProc;
};

std::optional<ProcDeclaration> ParseProcDeclaration(std::string_view statement);
bool IsProcEnd(std::string_view line);
// True for a line that holds neither a statement nor a label: blank, or a
// whole-line comment.
bool IsBlankOrComment(std::string_view line);
bool EndsWithContinuation(std::string_view line);

class ProcedureIndex {
 public:
  static ProcedureIndex Build(const std::vector<std::string_view>& lines);

  int declaration_lines() const { return declaration_lines_; }
  const std::vector<ProcedureSpan>& procedures() const { return procedures_; }
  // nullptr when the module has no such procedure.
  const ProcedureSpan* Find(std::string_view name, ProcKind kind) const;
  // The procedure holding a line (1-based); an empty name in the declarations.
  ProcRef ProcOfLine(int line) const;

 private:
  int declaration_lines_ = 0;
  std::vector<ProcedureSpan> procedures_;
  std::unordered_map<std::string, std::size_t> by_key_;
};

}  // namespace tavrin::ide::memory
