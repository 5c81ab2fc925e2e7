// The property generator: a private member variable and the property
// procedures over it. An object has Get and Set, a Variant Get, Let and Set
// (its Get tells objects from values), anything else Get and Let; a
// read-only property has only its Get, a write-only one no Get.
#pragma once

#include <string>

namespace tavrin::builders {

enum class PropertyAccess { kReadWrite, kReadOnly, kWriteOnly };

struct PropertySpec {
  std::string name;      // "Count"
  std::string type;      // "Long"
  bool is_object = false;
  PropertyAccess access = PropertyAccess::kReadWrite;
  std::string member;    // "mlngCount"
  std::string argument;  // "vlngCount"
  // The error-trap line ("On Error GoTo ExitLabel"); "" for none. A GoTo
  // label gets its line before End Property.
  std::string error_trap;
  std::string procedure_constant;  // "cstrProcedure"; "" for none
  std::string indent = "    ";
};

// "Private mlngCount As Long".
std::string MemberDeclaration(const PropertySpec& spec);

// The procedures, Get first, a blank line between them, CR LF, no line
// break after the last.
std::string PropertyCode(const PropertySpec& spec);

}  // namespace tavrin::builders
