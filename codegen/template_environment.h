// What template expansion and procedure generation read from outside: the
// setting values, the indent unit, the host, the code-folder files and the
// IDE. One small struct, so the builders can fill it from the settings and
// tests can fill it by hand.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "ide/object_model.h"

namespace tavrin::codegen {

// The setting values the templates and the generator use, at their defaults.
struct TemplateSettings {
  std::string developer;     // {AUTHOR}
  std::string initials;      // {INITIALS}
  std::string organization;  // {COMPANYNAME}
  std::string copyright;     // {COPYRIGHT}
  std::string exit_label = "HandleExit";        // {HANDLEEXITLABEL}
  std::string error_label = "HandleError";      // {HANDLEERRORLABEL}
  std::string error_procedure = "ErrorHandle";  // {ERRORHANDLEPROCEDURE}
  std::string error_module = "basErrorHandle";
  std::string procedure_name_constant = "cstrProcedure";
  std::string procedure_header_file =
      "\\vbcode\\Fragments\\Headers And Comments\\ProcedureHeader.bas";
  std::string module_header_file = "\\vbcode\\Fragments\\Headers And Comments\\ModuleHeader.bas";
  // The error-handler template merged into procedures; the built-in one when
  // the file is missing or empty.
  std::string error_handler_file = "\\vbcode\\ErrorHandlers\\ErrorHandler.bas";
  // The code-folder root that {INCLUDE name} is read from.
  std::string base_folder = "\\vbcode\\";
};

struct TemplateEnvironment {
  TemplateSettings settings;
  std::string indent_unit = "    ";
  std::string host = "VBRUN";  // the host recorded at connection
  // Reads a file given as the settings write paths ("\vbcode\..."), as
  // UTF-8 text with CR LF line breaks; nullopt when there is none. Without
  // it no file is ever found.
  std::function<std::optional<std::string>(std::string_view path)> read_code_file;
  // The IDE, for the module and procedure at the caret; may be null.
  ide::IVbe* vbe = nullptr;
  // Run before {ERRORHANDLEPROCEDURE} is replaced: lets the add-in make sure
  // the error-handling module is there.
  std::function<void()> prepare_error_procedure;
  // {DATE} and {TIME}; empty: today and now in the system's formats.
  std::string date_text;
  std::string time_text;
};

}  // namespace tavrin::codegen
