#include "scan/proc_def.h"

#include "base/text.h"
#include "ide/ignore_errors.h"
#include "scan/statement_text.h"

namespace tavrin::scan {
namespace {

std::string FirstStatement(std::string_view text) {
  std::vector<std::string> pieces = SplitStatements(text);
  return pieces.empty() ? std::string() : std::move(pieces.front());
}

}  // namespace

std::string ProcKindStrOf(std::int32_t kind) {
  switch (kind) {
    case 0: return "Sub/Function";
    case 1: return "Property Let";
    case 2: return "Property Set";
    case 3: return "Property Get";
    default: return {};
  }
}

Status C4_ProcDef::init(ide::IVbe* vbe, std::string_view project, ide::IComponent& component,
                        std::string_view name, ide::ProcKind kind) {
  project_ = std::string(project);
  name_ = std::string(name);
  proc_kind_ = static_cast<std::int32_t>(kind);
  ide::IgnoreErrors([&] { module_name_ = component.Name(); });
  if (vbe) {
    ide::IgnoreErrors([&] {
      if (const auto active = vbe->ActiveVBProject();
          active && EqualsIgnoreCase(active->Name(), project_)) {
        group_name_ = project_;
      }
    });
  }
  proc_kind_str_ = ProcKindStrOf(proc_kind_);
  ide::IgnoreErrors([&] {
    if (const auto module = component.CodeModule()) LoadFromModule(*module);
  });
  ParseDeclaration();
  return proc_arguments_.init(one_line_proc_def_);
}

Status C4_ProcDef::Init2(std::string_view code, std::string_view group_name) {
  project_ = "Library";
  module_name_ = std::string(group_name);
  group_name_ = std::string(group_name);
  proc_kind_ = 0;
  proc_kind_str_ = ProcKindStrOf(0);
  proc_start_line_ = 1;
  proc_body_line_ = 1;
  proc_count_lines_ = static_cast<std::int32_t>(SplitCrLf(code).size());
  proc_code_ = std::string(code);
  ParseDeclaration();
  is_library_procedure_ = true;
  return proc_arguments_.init(one_line_proc_def_);
}

void C4_ProcDef::LoadFromModule(ide::ICodeModule& module) {
  const ide::ProcKind kind = static_cast<ide::ProcKind>(proc_kind_);
  ide::IgnoreErrors([&] { proc_start_line_ = module.ProcStartLine(name_, kind); });
  ide::IgnoreErrors([&] { proc_count_lines_ = module.ProcCountLines(name_, kind); });
  ide::IgnoreErrors([&] { proc_body_line_ = module.ProcBodyLine(name_, kind); });
  const int count = proc_count_lines_ - (proc_body_line_ - proc_start_line_);
  if (proc_body_line_ < 1 || count < 1) return;
  ide::IgnoreErrors([&] { proc_code_ = module.Lines(proc_body_line_, count); });
}

void C4_ProcDef::ParseDeclaration() {
  if (is_declaration_section_) return;
  std::string written;
  std::string joined;
  int line_count = 0;
  std::string_view rest = proc_code_;
  while (true) {
    const std::size_t break_at = rest.find(kCrLf);
    const std::string_view line = rest.substr(0, break_at);
    ++line_count;
    std::string_view trimmed = TrimBlanks(line);
    bool done = false;
    if (!trimmed.empty()) {
      const bool continues = trimmed.back() == '_';
      done = !continues;
      if (!written.empty()) written += kCrLf;
      written += line;
      if (continues) trimmed = TrimBlanks(trimmed.substr(0, trimmed.size() - 1));
      joined += trimmed;  // no separator: kept on purpose
    }
    if (done || break_at == std::string_view::npos) break;
    rest.remove_prefix(break_at + kCrLf.size());
  }

  proc_is_function_ = joined.find("Function ") != std::string::npos;
  proc_def_start_line_ = proc_body_line_;
  proc_def_count_of_lines_ = line_count;

  proc_is_public_ = true;
  if (joined.size() >= 6 && joined.starts_with("Public")) {
    proc_is_public_ = true;
    proc_is_static_ = false;
  }
  if (joined.starts_with("Static")) {
    proc_is_static_ = true;
    proc_is_public_ = false;
  }
  if (joined.size() >= 7 && joined.starts_with("Private")) {
    proc_is_public_ = false;
    proc_is_static_ = false;
  }

  proc_def_ = FirstStatement(written);
  one_line_proc_def_ = FirstStatement(joined);

  if (name_.empty()) name_ = ProcNameFromDecl(one_line_proc_def_);
  char type_char = '\0';
  if (!name_.empty() && kTypeChars.find(name_.back()) != std::string_view::npos) {
    type_char = name_.back();
    name_.pop_back();
  }
  if (!name_.empty() && proc_is_function_) {
    const std::size_t as = one_line_proc_def_.rfind(") As ");
    if (as != std::string::npos)
      proc_return_type_ = std::string(TrimBlanks(std::string_view(one_line_proc_def_).substr(as + 5)));
    if (proc_return_type_.empty() && type_char != '\0')
      proc_return_type_ = TypeFromTypeChar(type_char);
  }
}

}  // namespace tavrin::scan
