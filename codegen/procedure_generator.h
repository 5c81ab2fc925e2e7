// The procedure generator: the text of a new procedure from the choices of
// the procedure builder, with its header, name constant, error handler,
// return line and hourglass lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "codegen/template_environment.h"

namespace tavrin::codegen {

// One argument as the user defined it.
struct clsArgument {
  std::string Name;
  bool IsParamArray = false;
  bool IsOptional = false;
  bool IsByVal = false;
  bool IsArray = false;
  std::string Type_;
  std::string DefaultValue;
  std::int32_t Position = 0;  // 1-based place in the list

  // "Optional ByVal Count As Long = 10", "Items() As String",
  // "ParamArray Values()".
  std::string ArgumentString() const;
};

// The arguments of a procedure, in the order they were added (their
// Position gives the order in the declaration).
class colArguments {
 public:
  void Add(clsArgument argument) { items_.push_back(std::move(argument)); }
  int Count() const { return static_cast<int>(items_.size()); }
  clsArgument& Item(int index) { return items_.at(index - 1); }
  const std::vector<clsArgument>& Items() const { return items_; }
  std::vector<clsArgument>& Items() { return items_; }
  // Takes out the argument at a Position; false when there is none.
  bool RemoveAtPosition(std::int32_t position);

 private:
  std::vector<clsArgument> items_;
};

// ArgumentsOrderIsBad's answers.
enum ArgumentOrder : std::int32_t {
  kOrderValid = 0,
  kRequiredAfterOptional = 1,
  kArgumentAfterParamArray = 2,
};

// The message the procedure builder shows for a bad order; "" for a valid one.
std::string ArgumentOrderMessage(std::int32_t order);

class clsProcedure {
 public:
  std::string ProcContent;    // when set, GenerateCode answers it unchanged
  std::string Accessibility;  // "Public", "Private", "Friend" or empty
  bool IsStatic = false;
  std::string ProcType;      // "Sub", "Function" or "Property"
  std::string PropertyType;  // "Get", "Let" or "Set", for a Property
  std::string Name;
  std::string ReturnType;
  colArguments Arguments;
  bool ArgumentsOnSeparateLines = false;
  bool AddHeader = false;
  std::string HeaderTemplate;
  bool AddProcNameConst = false;
  bool WithErrorHandler = false;
  bool WithReturnLine = false;
  bool WithHourglass = false;
  std::string DeclarationLine;  // set by GenerateCode
  // For the header's {DESCRIPTION} and the error handler's {MODULENAME}.
  std::string Description;
  std::string ModuleName;

  explicit clsProcedure(TemplateEnvironment environment = {})
      : environment_(std::move(environment)) {}

  std::string GenerateCode();
  std::string GetArgString(std::int32_t indent) const;
  void AddErrorHandler(std::string& code) const;
  void AddReturnLine(std::string& code) const;
  void AddHourglass(std::string& code) const;
  void ArgumentsRenumber(std::int32_t removed_position);
  std::int32_t ArgumentsOrderIsBad() const;

  const TemplateEnvironment& Environment() const { return environment_; }
  void SetEnvironment(TemplateEnvironment environment) { environment_ = std::move(environment); }

 private:
  // The arguments' texts by Position; positions outside 1..n are left out.
  std::vector<const clsArgument*> ArgumentsByPosition() const;
  bool ReturnsAValue() const;

  TemplateEnvironment environment_;
};

// The hourglass statements of a host: on and off; empty for an unknown host.
struct HourglassLines {
  std::string_view on;
  std::string_view off;
};
HourglassLines HourglassFor(std::string_view host);

}  // namespace tavrin::codegen
