// What the module and project scanners find: the named things a module
// declares, each with its kind, scope, type and line.
#pragma once

#include <string>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::scan {

enum class DeclKind {
  kVariable,
  kConstant,
  kEnum,
  kEnumMember,
  kType,
  kTypeMember,
  kDeclare,
  kArgument,
  kLabel,
  // What only the project scanner reports.
  kClass,      // a class, form or user control module
  kProcedure,  // a public procedure; `type` is its return type
};

// Where a name is visible: in its procedure, in its module, or in the
// project (Public, Global, Friend, and what is public by default).
enum class DeclScope { kLocal, kModule, kGlobal };

struct Declaration {
  DeclKind kind = DeclKind::kVariable;
  DeclScope scope = DeclScope::kModule;
  std::string name;
  // The declared type ("Long", "Collection", "tPoint"); "Variant" for a
  // variable without one; for a Declare Function its return type; for a
  // constant without one "".
  std::string type;
  std::string value;   // a constant's or enum member's value as written
  std::string parent;  // the enum or type of a member
  std::string bounds;  // an array's bounds as written ("" for "()")
  // A library procedure's arguments as a declaration writes them
  // ("ByVal Number As Long, Optional Base"); the code's procedures are
  // read from their declaration line instead.
  std::string arguments;
  bool is_array = false;
  bool is_new = false;       // As New
  bool with_events = false;  // WithEvents
  bool is_static = false;    // a local declared with Static
  int line = 0;              // the first physical line of the statement
  int end_line = 0;          // an enum's or type's End line; 0 when missing
};

struct ScannedProc {
  std::string name;
  ide::ProcKind kind = ide::ProcKind::kProc;
  DeclScope scope = DeclScope::kGlobal;
  bool is_function = false;
  std::string return_type;
  int line = 0;      // the declaration's first line
  int body_line = 0; // the first line after the declaration (continuations included)
  int end_line = 0;  // the End line; the module's last line when missing
  // The last line of the declarations at the top of the body (Dim, Static,
  // Const before the first other statement); the declaration's last line
  // when there are none.
  int last_declaration_line = 0;
  std::vector<Declaration> locals;  // arguments, variables, constants, labels
};

struct ModuleScan {
  std::vector<Declaration> declarations;  // the declaration area
  std::vector<ScannedProc> procedures;
  // The last line of the last statement of the declaration area; 0 when it
  // holds none.
  int last_declaration_line = 0;
};

}  // namespace tavrin::scan
