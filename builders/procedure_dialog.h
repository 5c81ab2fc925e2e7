// The procedure builder: name, kind, access, return type, the arguments and
// the options of a new procedure, with a preview of the very text the
// generator writes. The argument dialog defines one argument.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"
#include "codegen/procedure_generator.h"
#include "settings/value_table.h"

namespace tavrin::builders {

inline constexpr std::string_view kArgumentDialogTitle = "Argument";
inline constexpr std::string_view kProcedureDialogTitle = "Add Procedure";

class ArgumentDialog : public DialogModel {
 public:
  // `types`: the return-type combo's items; `argument`: the one edited.
  ArgumentDialog(std::vector<std::string> types, codegen::clsArgument argument = {});

  std::string Title() const override { return std::string(kArgumentDialogTitle); }
  std::string HelpTopic() const override { return "procedures.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  // The argument as the fields define it (Position left as given).
  codegen::clsArgument Argument();

 private:
  void Enable();

  codegen::clsArgument argument_;
  std::vector<Field> fields_;
};

// What the builder needs to know of the module it writes into.
struct ProcedureTarget {
  bool standard_module = true;       // else a class, form or user control
  std::vector<std::string> classes;  // the classes of the open projects
  std::string module_name;
};

class ProcedureDialog : public DialogModel {
 public:
  ProcedureDialog(ProcedureTarget target, const settings::ValueTable& values,
                  codegen::TemplateEnvironment environment);

  std::string Title() const override { return std::string(kProcedureDialogTitle); }
  std::string HelpTopic() const override { return "procedures.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  void Pressed(std::string_view id, DialogHost& host) override;
  std::optional<Refusal> Accept() override;

  // The procedure as the fields define it.
  codegen::clsProcedure Procedure() const;
  // The text the generator writes for it.
  std::string Code() const;

 private:
  Field& F(std::string_view id) { return *FindField(fields_, id); }
  const Field& F(std::string_view id) const;
  void Refresh();  // enables fields, rebuilds the list and the preview

  ProcedureTarget target_;
  codegen::TemplateEnvironment environment_;
  std::vector<Field> fields_;
  std::vector<codegen::clsArgument> arguments_;  // in declaration order
};

// The simple types of the type combos.
const std::vector<std::string>& SimpleTypes();

}  // namespace tavrin::builders
