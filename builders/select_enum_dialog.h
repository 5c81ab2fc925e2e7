// Select From Enum ("&From Enum..."): a Select Case over an expression with
// one Case per member of an enum of the open projects or of a referenced
// library, optionally a Case Else with its code, and in a Function or
// Property Get the return value to assign in every Case.
#pragma once

#include <string>
#include <vector>

#include "builders/declaration_target.h"
#include "builders/dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kSelectEnumDialogTitle = "Select Case From Enum";

// An enum the dialog offers, with where it is declared (a module or a
// library) and its members in order.
struct EnumChoice {
  std::string name;
  std::string source;
  std::vector<std::string> members;

  std::string Entry() const { return name + " (" + source + ")"; }
};

// The enums visible at the caret: those of the module (Private ones too),
// the public ones of the open projects, then the libraries', each once.
std::vector<EnumChoice> EnumChoices(const DeclarationTarget& target);

// The "Select Case From Enum Builder" settings.
struct SelectEnumDefaults {
  bool add_case_else = true;
  std::string code_case_else = "Msgbox \"Missing Case\"";
  bool insert_return_values = false;
};

class SelectEnumDialog : public DialogModel {
 public:
  // `margin` is the blanks before the Select Case line. Shown only when
  // there is an enum to choose (Enums() is not empty).
  SelectEnumDialog(DeclarationTarget target, SelectEnumDefaults defaults, std::string margin);

  std::string Title() const override { return std::string(kSelectEnumDialogTitle); }
  std::string HelpTopic() const override { return "code-lines.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  const std::vector<EnumChoice>& Enums() const { return enums_; }
  // Selects the enum of that name (the first, case ignored); false when
  // none has it.
  bool SelectEnum(std::string_view name);
  // The block, every line with the margin, "<cursor>" where the caret goes:
  // the expression when none was given, else the first Case's body.
  std::string Code() const;

 private:
  const Field& F(std::string_view id) const;
  const EnumChoice* Chosen() const;
  // The procedure's name when the return value can be assigned.
  std::string ReturnTarget() const;

  DeclarationTarget target_;
  std::string margin_;
  std::vector<EnumChoice> enums_;
  std::vector<Field> fields_;
};

// The message when no enum is visible at the caret.
std::string NoEnumMessage();

}  // namespace tavrin::builders
