#include "cli/proc_record.h"

namespace tavrin::cli {

nlohmann::json ProcRecordJson(const scan::C4_ProcDef& def) {
  nlohmann::json args = nlohmann::json::array();
  for (const scan::C4_ProcArgument& arg : def.ProcArguments().Items()) {
    args.push_back({{"name", arg.Name},
                    {"passedBy", arg.PassedBy},
                    {"isOptional", arg.IsOptional},
                    {"isByVal", arg.IsPassedByVal},
                    {"isParamArray", arg.IsParamArray},
                    {"isArray", arg.IsArray},
                    {"type", arg.Type_},
                    {"defaultValue", arg.DefaultValue}});
  }
  return {{"name", def.Name()},
          {"kind", def.ProcKind()},
          {"kindStr", def.ProcKindStr()},
          {"isPublic", def.ProcIsPublic()},
          {"isStatic", def.ProcIsStatic()},
          {"isFunction", def.ProcIsFunction()},
          {"returnType", def.ProcReturnType()},
          {"startLine", def.ProcStartLine()},
          {"bodyLine", def.ProcBodyLine()},
          {"countLines", def.ProcCountLines()},
          {"defStartLine", def.ProcDefStartLine()},
          {"defCountOfLines", def.ProcDefCountOfLines()},
          {"procDef", def.ProcDef()},
          {"oneLineProcDef", def.OneLineProcDef()},
          {"argNameList", def.ProcArguments().ArgNameList()},
          {"args", std::move(args)}};
}

std::string ProcRecordLine(const scan::C4_ProcDef& def) {
  return std::to_string(def.ProcBodyLine()) + '\t' + def.ProcKindStr() + '\t' + def.Name() +
         '\t' + def.ProcArguments().ArgNameList() + '\t' + def.ProcReturnType();
}

std::string DumpJson(const nlohmann::json& json) {
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace tavrin::cli
