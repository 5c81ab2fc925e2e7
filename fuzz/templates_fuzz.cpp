// Template expansion over arbitrary templates that include each other: the
// input is split at "\n--\n" into the files A.bas, B.bas, ...; A.bas is
// expanded with every placeholder and include. Cycles and deep or wide
// include trees must end (a hang fails by libFuzzer's timeout) with a
// result of bounded size.
#include <cstdint>
#include <map>
#include <string>

#include "fuzz/fuzz_support.h"
#include "codegen/templates.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrin;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  std::map<std::string, std::string, std::less<>> files;
  std::size_t start = 0;
  for (char name = 'A'; start <= input.size() && name <= 'Z'; ++name) {
    const std::size_t end = std::min(input.find("\n--\n", start), input.size());
    files[std::string("\\vbcode\\") + name + ".bas"] = std::string(input.substr(start, end - start));
    start = end + 4;
  }

  codegen::TemplateEnvironment environment;
  environment.date_text = "2026-11-21";
  environment.time_text = "12:00";
  environment.read_code_file = [&files](std::string_view path) -> std::optional<std::string> {
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return found->second;
  };

  std::string text = files.begin()->second;
  codegen::ExpandIncludes(environment, text, "Module1", "Main", "Sub");
  fuzz::Check(text.size() <= (std::size_t{32} << 20), "includes stay bounded");
  std::string procedure = files.begin()->second;
  codegen::ExpandProcedureTemplate(environment, procedure, "Module1", "Main", "Sub");
  return 0;
}
