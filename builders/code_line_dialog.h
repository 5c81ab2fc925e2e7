// The code line builder: picks a procedure by module and name, takes a value
// for each of its arguments and previews the call line that OK inserts.
#pragma once

#include <string>
#include <vector>

#include "builders/dialog.h"
#include "codegen/call_line.h"
#include "settings/value_table.h"

namespace tavrin::builders {

inline constexpr std::string_view kCodeLineDialogTitle = "Insert Line Of Code";
// The argument fields are "arg1" to "arg<kArgumentFields>"; those past the
// picked procedure's arguments are hidden.
inline constexpr int kArgumentFields = 12;

struct CallableModule {
  std::string name;
  std::vector<codegen::Callable> procedures;
};

// The check boxes' defaults: the "Lines Of Code Builder" settings.
codegen::CallOptions CallOptionsFrom(const settings::ValueTable& values);

// "arg1" for the first argument.
std::string ArgumentFieldId(int index);

class CodeLineDialog : public DialogModel {
 public:
  // `current_module` is selected at first when listed; `margin` is the
  // caret line's; `variables` are offered for a Function's result.
  CodeLineDialog(std::vector<CallableModule> modules, std::string_view current_module,
                 codegen::CallOptions options, std::string margin,
                 std::vector<std::string> variables = {});

  std::string Title() const override { return std::string(kCodeLineDialogTitle); }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  // The picked procedure; null when there is none.
  const codegen::Callable* Picked() const;
  // The call with its "<cursor>" marker.
  std::string Code() const;

 private:
  Field& F(std::string_view id) { return *FindField(fields_, id); }
  const Field& F(std::string_view id) const;
  void FillProcedures();
  void ShowArguments();
  void Refresh();
  std::vector<std::string> Values() const;
  codegen::CallOptions Options() const;

  std::vector<CallableModule> modules_;
  std::string margin_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
