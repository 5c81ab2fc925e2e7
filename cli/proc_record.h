// A parsed procedure as the tool prints it: the JSON record of `procs` and
// `decl`, and the one-line text form.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "scan/proc_def.h"

namespace tavrin::cli {

nlohmann::json ProcRecordJson(const scan::C4_ProcDef& def);

// Declaration line, kind, name, argument names and return type, tab-separated.
std::string ProcRecordLine(const scan::C4_ProcDef& def);

// JSON text that survives any bytes (invalid UTF-8 is replaced).
std::string DumpJson(const nlohmann::json& json);

}  // namespace tavrin::cli
