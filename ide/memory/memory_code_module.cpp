#include "ide/memory/memory_code_module.h"

#include "base/text.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/text_search.h"

namespace tavrin::ide::memory {
namespace {

[[noreturn]] void InvalidArgument() { throw Error(5, "Invalid procedure call or argument"); }
[[noreturn]] void OutOfRange() { throw Error(9, "Subscript out of range"); }

}  // namespace

MemoryCodeModule::MemoryCodeModule(std::weak_ptr<MemoryComponent> component,
                                   std::shared_ptr<SourceFile> source)
    : component_(std::move(component)), source_(std::move(source)) {}

std::shared_ptr<IComponent> MemoryCodeModule::Parent() { return component_.lock(); }

std::string MemoryCodeModule::Lines(int start_line, int count) {
  if (start_line < 1 || count < 0) InvalidArgument();
  const auto& code = source_->code();
  std::string text;
  const long long end = std::min<long long>(static_cast<long long>(start_line) + count - 1,
                                            static_cast<long long>(code.size()));
  for (long long line = start_line; line <= end; ++line) {
    if (line > start_line) text += kCrLf;
    text += code[static_cast<std::size_t>(line - 1)].text;
  }
  return text;
}

int MemoryCodeModule::CountOfLines() { return static_cast<int>(source_->code().size()); }

int MemoryCodeModule::CountOfDeclarationLines() { return Index().declaration_lines(); }

void MemoryCodeModule::InsertLines(int line, std::string_view text) {
  if (line < 1) InvalidArgument();
  index_.reset();
  source_->InsertCode(static_cast<std::size_t>(line - 1), SplitAnyLineBreak(text));
}

void MemoryCodeModule::ReplaceLine(int line, std::string_view text) {
  if (line < 1 || line > CountOfLines()) OutOfRange();
  index_.reset();
  auto pieces = SplitAnyLineBreak(text);
  source_->ReplaceCodeText(static_cast<std::size_t>(line - 1), pieces.front());
  pieces.erase(pieces.begin());
  source_->InsertCode(static_cast<std::size_t>(line), pieces);
}

void MemoryCodeModule::DeleteLines(int start_line, int count) {
  if (start_line < 1 || count < 1 ||
      static_cast<long long>(start_line) + count - 1 > CountOfLines()) {
    OutOfRange();
  }
  index_.reset();
  source_->EraseCode(static_cast<std::size_t>(start_line - 1), static_cast<std::size_t>(count));
}

bool MemoryCodeModule::Find(std::string_view target, TextRange& range, FindOptions options) {
  return FindInLines(LineViews(), target, range, options);
}

ProcRef MemoryCodeModule::ProcOfLine(int line) {
  if (line < 1 || line > CountOfLines()) OutOfRange();
  return Index().ProcOfLine(line);
}

int MemoryCodeModule::ProcStartLine(std::string_view name, ProcKind kind) {
  return Procedure(name, kind).start_line;
}

int MemoryCodeModule::ProcBodyLine(std::string_view name, ProcKind kind) {
  return Procedure(name, kind).body_line;
}

int MemoryCodeModule::ProcCountLines(std::string_view name, ProcKind kind) {
  const ProcedureSpan& span = Procedure(name, kind);
  return span.last_line - span.start_line + 1;
}

std::shared_ptr<ICodePane> MemoryCodeModule::CodePane() {
  auto component = component_.lock();
  if (!component) throw Error(91, "Object variable or With block variable not set");
  return component->CodePane();
}

std::vector<std::string_view> MemoryCodeModule::LineViews() const {
  std::vector<std::string_view> lines;
  lines.reserve(source_->code().size());
  for (const auto& line : source_->code()) lines.push_back(line.text);
  return lines;
}

const ProcedureIndex& MemoryCodeModule::Index() {
  if (!index_) index_ = ProcedureIndex::Build(LineViews());
  return *index_;
}

const ProcedureSpan& MemoryCodeModule::Procedure(std::string_view name, ProcKind kind) {
  const ProcedureSpan* span = Index().Find(name, kind);
  if (span == nullptr) throw Error(35, "Sub or Function not defined");
  return *span;
}

}  // namespace tavrin::ide::memory
