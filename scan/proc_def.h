// C4_ProcDef: one procedure of a code module (or of a library text) with its
// parsed declaration: name, kind, scope, return type and arguments.
//
// The parse keeps the historical reading of declarations on purpose, since
// records users have built rely on it: continuation lines are joined with no
// separator (so "F(a As Long) _" / "As Long" has no return type), "Static Sub"
// is not public and "Private Static Sub" is neither public nor static.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "ide/object_model.h"
#include "scan/proc_arguments.h"

namespace tavrin::scan {

// "Sub/Function", "Property Let", "Property Set", "Property Get" for the
// kinds 0 to 3; empty for any other number.
std::string ProcKindStrOf(std::int32_t kind);

class C4_ProcDef {
 public:
  // A procedure of a module. `vbe` gives the active project for GroupName
  // (may be null). IDE errors while reading are ignored; the failure that
  // comes back is a duplicate argument name, with the record filled as far
  // as it could be.
  Status init(ide::IVbe* vbe, std::string_view project, ide::IComponent& component,
              std::string_view name, ide::ProcKind kind);
  // A procedure taken from a library text.
  Status Init2(std::string_view code, std::string_view group_name);

  const std::string& Project() const { return project_; }
  void SetProject(std::string value) { project_ = std::move(value); }
  const std::string& ModuleName() const { return module_name_; }
  void SetModuleName(std::string value) { module_name_ = std::move(value); }
  const std::string& Name() const { return name_; }
  void SetName(std::string value) { name_ = std::move(value); }
  std::int32_t ProcKind() const { return proc_kind_; }
  void SetProcKind(std::int32_t value) { proc_kind_ = value; }
  const std::string& ProcKindStr() const { return proc_kind_str_; }
  std::int32_t ProcBodyLine() const { return proc_body_line_; }
  void SetProcBodyLine(std::int32_t value) { proc_body_line_ = value; }
  std::int32_t ProcCountLines() const { return proc_count_lines_; }
  void SetProcCountLines(std::int32_t value) { proc_count_lines_ = value; }
  std::int32_t ProcStartLine() const { return proc_start_line_; }
  void SetProcStartLine(std::int32_t value) { proc_start_line_ = value; }
  // The module's declarations section: the parse does nothing. Set by the
  // module scanner's owners that list the section beside the procedures.
  bool IsDeclarationSection() const { return is_declaration_section_; }
  void SetIsDeclarationSection(bool value) { is_declaration_section_ = value; }
  bool ProcIsPublic() const { return proc_is_public_; }
  void SetProcIsPublic(bool value) { proc_is_public_ = value; }
  bool ProcIsStatic() const { return proc_is_static_; }
  const std::string& ProcCode() const { return proc_code_; }
  bool ProcIsFunction() const { return proc_is_function_; }
  void SetProcIsFunction(bool value) { proc_is_function_ = value; }
  const std::string& ProcReturnType() const { return proc_return_type_; }
  void SetProcReturnType(std::string value) { proc_return_type_ = std::move(value); }
  const std::string& HelpStr() const { return help_str_; }
  void SetHelpStr(std::string value) { help_str_ = std::move(value); }
  const std::string& GroupName() const { return group_name_; }
  void SetGroupName(std::string value) { group_name_ = std::move(value); }
  const std::string& HelpFile() const { return help_file_; }
  void SetHelpFile(std::string value) { help_file_ = std::move(value); }
  std::int32_t HelpContext() const { return help_context_; }
  void SetHelpContext(std::int32_t value) { help_context_ = value; }
  std::int32_t ProcDefStartLine() const { return proc_def_start_line_; }
  void SetProcDefStartLine(std::int32_t value) { proc_def_start_line_ = value; }
  std::int32_t ProcDefCountOfLines() const { return proc_def_count_of_lines_; }
  void SetProcDefCountOfLines(std::int32_t value) { proc_def_count_of_lines_ = value; }
  // The declaration as written (physical lines, continuation marks kept).
  const std::string& ProcDef() const { return proc_def_; }
  // The declaration as one logical line.
  const std::string& OneLineProcDef() const { return one_line_proc_def_; }
  const C4_ProcArguments& ProcArguments() const { return proc_arguments_; }
  bool IsLibraryProcedure() const { return is_library_procedure_; }

 private:
  void LoadFromModule(ide::ICodeModule& module);
  void ParseDeclaration();

  std::string project_;
  std::string module_name_;
  std::string name_;
  std::int32_t proc_kind_ = 0;
  std::string proc_kind_str_;
  std::int32_t proc_body_line_ = 0;
  std::int32_t proc_count_lines_ = 0;
  std::int32_t proc_start_line_ = 0;
  bool is_declaration_section_ = false;
  bool proc_is_public_ = false;
  bool proc_is_static_ = false;
  std::string proc_code_;
  bool proc_is_function_ = false;
  std::string proc_return_type_;
  std::string help_str_;
  std::string group_name_;
  std::string help_file_;
  std::int32_t help_context_ = 0;
  std::int32_t proc_def_start_line_ = 0;
  std::int32_t proc_def_count_of_lines_ = 0;
  std::string proc_def_;
  std::string one_line_proc_def_;
  C4_ProcArguments proc_arguments_;
  bool is_library_procedure_ = false;
};

}  // namespace tavrin::scan
