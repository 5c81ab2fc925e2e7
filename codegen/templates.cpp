#include "codegen/templates.h"

#include <algorithm>
#include <ctime>
#include <iomanip>
#include <locale>
#include <sstream>
#include <vector>

#include "base/text.h"
#include "ide/ignore_errors.h"
#include "resources/string_table.h"

namespace tavrin::codegen {
namespace {

constexpr std::string_view kIncludeDirective = "{INCLUDE ";
// Bounds for user-written include trees: past them the remaining
// directives stay as written, instead of exhausting time or memory (a file
// that includes the next one twice, forty levels deep, would not end).
constexpr int kMaxIncludeDepth = 32;
constexpr std::size_t kMaxIncludedBytes = 16u << 20;

// One expansion with its includes: the files being included (to leave a
// cycle as written) and the bytes included so far.
struct IncludeState {
  std::vector<std::string> including;
  std::size_t included_bytes = 0;
};
constexpr int kBuiltInErrorHandler = 1102;

// Today or now in the system's formats ("%x", "%X" of the user's locale).
std::string LocalTimeText(const char* format) {
  const std::time_t now = std::time(nullptr);
  // Commands run one at a time on the IDE's thread: the shared buffer of
  // localtime is safe here.
  const std::tm local = *std::localtime(&now);
  std::ostringstream out;
  try {
    out.imbue(std::locale(""));
  } catch (const std::runtime_error&) {
    // An unknown locale in the environment: the classic formats.
  }
  out << std::put_time(&local, format);
  return out.str();
}

std::string DateText(const TemplateEnvironment& environment) {
  return environment.date_text.empty() ? LocalTimeText("%x") : environment.date_text;
}

std::string TimeText(const TemplateEnvironment& environment) {
  return environment.time_text.empty() ? LocalTimeText("%X") : environment.time_text;
}

bool Contains(std::string_view text, std::string_view placeholder) {
  return FindIgnoreCase(text, placeholder) != std::string_view::npos;
}

void Replace(std::string& text, std::string_view placeholder, std::string_view value) {
  if (Contains(text, placeholder)) text = ReplacePlaceholder(text, placeholder, value);
}

std::optional<std::string> ReadCodeFile(const TemplateEnvironment& environment,
                                        std::string_view path) {
  if (path.empty() || !environment.read_code_file) return std::nullopt;
  return environment.read_code_file(path);
}

// The active code pane, or null; IDE errors count as no pane.
std::shared_ptr<ide::ICodePane> ActivePane(const TemplateEnvironment& environment) {
  std::shared_ptr<ide::ICodePane> pane;
  if (environment.vbe) ide::IgnoreErrors([&] { pane = environment.vbe->ActiveCodePane(); });
  return pane;
}

std::string ActiveModuleName(const TemplateEnvironment& environment) {
  std::string name;
  ide::IgnoreErrors([&] {
    if (const auto pane = ActivePane(environment))
      if (const auto component = pane->CodeModule()->Parent()) name = component->Name();
  });
  return name;
}

// The procedure at the caret of the active pane, with its declaration line.
struct CaretProcedure {
  std::string name;
  std::string declaration_line;
};

CaretProcedure ProcedureAtCaret(const TemplateEnvironment& environment) {
  CaretProcedure found;
  ide::IgnoreErrors([&] {
    if (const auto pane = ActivePane(environment)) {
      const auto module = pane->CodeModule();
      const ide::ProcRef proc = module->ProcOfLine(pane->GetSelection().start_line);
      found.name = proc.name;
      if (!proc.name.empty())
        found.declaration_line = module->Lines(module->ProcBodyLine(proc.name, proc.kind), 1);
    }
  });
  return found;
}

void ExpandIncludesAt(const TemplateEnvironment& environment, std::string& text,
                      std::string_view module_name, std::string_view procedure_name,
                      std::string_view procedure_type, IncludeState& state);

void ExpandTemplate(const TemplateEnvironment& environment, std::string& text,
                    std::string_view module_name, std::string_view procedure_name,
                    std::string_view procedure_type, IncludeState& state) {
  const TemplateSettings& settings = environment.settings;
  Replace(text, "{AUTHOR}", settings.developer);
  Replace(text, "{INITIALS}", settings.initials);
  Replace(text, "{COMPANYNAME}", settings.organization);
  Replace(text, "{COPYRIGHT}", settings.copyright);
  if (Contains(text, "{DATE}")) Replace(text, "{DATE}", DateText(environment));
  if (Contains(text, "{TIME}")) Replace(text, "{TIME}", TimeText(environment));
  Replace(text, "{DESCRIPTION}", "");
  // Templates are written with four-blank indents and follow the tab width.
  text = ReplaceAll(text, "    ", environment.indent_unit);
  Replace(text, "{HANDLEEXITLABEL}", settings.exit_label);
  Replace(text, "{HANDLEERRORLABEL}", settings.error_label);
  if (Contains(text, "{ERRORHANDLEPROCEDURE}")) {
    if (environment.prepare_error_procedure) environment.prepare_error_procedure();
    Replace(text, "{ERRORHANDLEPROCEDURE}", settings.error_procedure);
  }
  if (Contains(text, "{MODULENAME}")) {
    Replace(text, "{MODULENAME}",
            module_name.empty() ? ActiveModuleName(environment) : std::string(module_name));
  }
  std::optional<CaretProcedure> at_caret;
  if (Contains(text, "{PROCEDURENAME}")) {
    if (procedure_name.empty()) at_caret = ProcedureAtCaret(environment);
    Replace(text, "{PROCEDURENAME}", procedure_name.empty() ? at_caret->name : procedure_name);
  }
  if (Contains(text, "{PROCEDURETYPE}")) {
    std::string type(procedure_type);
    if (type.empty()) {
      if (!at_caret) at_caret = ProcedureAtCaret(environment);
      type = ProcedureTypeOf(at_caret->name, at_caret->declaration_line);
    }
    Replace(text, "{PROCEDURETYPE}", type);
  }
  if (Contains(text, kIncludeDirective))
    ExpandIncludesAt(environment, text, module_name, procedure_name, procedure_type, state);
}

void ExpandIncludesAt(const TemplateEnvironment& environment, std::string& text,
                      std::string_view module_name, std::string_view procedure_name,
                      std::string_view procedure_type, IncludeState& state) {
  // Built piece by piece, so many directives cost no more than one pass.
  std::string result;
  std::size_t copied = 0;
  std::size_t from = 0;
  while (true) {
    const std::size_t start = FindIgnoreCase(text, kIncludeDirective, from);
    if (start == std::string::npos) break;
    const std::size_t name_start = start + kIncludeDirective.size();
    const std::size_t close = text.find('}', name_start);
    if (close == std::string::npos) break;
    const std::string name = text.substr(name_start, close - name_start);
    from = start + 1;
    const bool cycle =
        std::any_of(state.including.begin(), state.including.end(),
                    [&](const std::string& each) { return EqualsIgnoreCase(each, name); });
    if (cycle || static_cast<int>(state.including.size()) >= kMaxIncludeDepth) continue;
    if (state.included_bytes > kMaxIncludedBytes) break;
    std::optional<std::string> included =
        ReadCodeFile(environment, environment.settings.base_folder + name);
    if (!included || included->empty()) continue;
    state.included_bytes += included->size();
    state.including.push_back(name);
    ExpandTemplate(environment, *included, module_name, procedure_name, procedure_type, state);
    state.including.pop_back();
    state.included_bytes += included->size();
    if (state.included_bytes > kMaxIncludedBytes) break;
    result.append(text, copied, start - copied).append(*included);
    // What the included text holds was resolved inside it; go on after it.
    copied = from = close + 1;
  }
  if (copied == 0) return;
  result.append(text, copied, std::string::npos);
  text = std::move(result);
}

// A header line gets the unit in front unless it is empty.
std::string IndentLines(std::string_view text, std::string_view unit) {
  std::string indented;
  for (std::string_view line : SplitCrLf(text)) {
    if (!line.empty()) indented.append(unit).append(line);
    indented.append(kCrLf);
  }
  indented.resize(indented.size() - kCrLf.size());
  return indented;
}

std::string WithCrLfLineBreaks(std::string_view text) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(text)) lines.emplace_back(line);
  return JoinCrLf(lines);
}

}  // namespace

std::string ReplacePlaceholder(std::string_view text, std::string_view placeholder,
                               std::string_view value) {
  if (placeholder.empty()) return std::string(text);
  std::string result;
  std::size_t from = 0;
  while (true) {
    const std::size_t hit = FindIgnoreCase(text, placeholder, from);
    if (hit == std::string_view::npos) break;
    result.append(text.substr(from, hit - from)).append(value);
    from = hit + placeholder.size();
  }
  result.append(text.substr(from));
  return result;
}

std::string ExpandHeaderText(const TemplateEnvironment& environment, std::string_view text,
                             HeaderKind kind, std::string_view name,
                             std::string_view description) {
  std::string header = WithCrLfLineBreaks(text);
  // Trailing line breaks of the file are the header's own one.
  while (header.size() >= kCrLf.size() &&
         std::string_view(header).substr(header.size() - kCrLf.size()) == kCrLf) {
    header.resize(header.size() - kCrLf.size());
  }
  if (header.empty()) return {};
  const TemplateSettings& settings = environment.settings;
  Replace(header, "{AUTHOR}", settings.developer);
  Replace(header, "{INITIALS}", settings.initials);
  Replace(header, "{COMPANYNAME}", settings.organization);
  Replace(header, "{COPYRIGHT}", settings.copyright);
  Replace(header, "{MODULENAME}", name);
  Replace(header, "{PROCEDURENAME}", name);
  if (Contains(header, "{DATE}")) Replace(header, "{DATE}", DateText(environment));
  if (Contains(header, "{TIME}")) Replace(header, "{TIME}", TimeText(environment));
  Replace(header, "{DESCRIPTION}", description);
  if (kind == HeaderKind::kProcedure) header = IndentLines(header, environment.indent_unit);
  return header.append(kCrLf);
}

std::string ExpandHeader(const TemplateEnvironment& environment, HeaderKind kind,
                         std::string_view name, std::string_view description) {
  const std::string& path = kind == HeaderKind::kProcedure
                                ? environment.settings.procedure_header_file
                                : environment.settings.module_header_file;
  const std::optional<std::string> text = ReadCodeFile(environment, path);
  if (!text) return {};
  return ExpandHeaderText(environment, *text, kind, name, description);
}

bool ExpandProcedureTemplate(const TemplateEnvironment& environment, std::string& text,
                             std::string_view module_name, std::string_view procedure_name,
                             std::string_view procedure_type) {
  IncludeState state;
  ExpandTemplate(environment, text, module_name, procedure_name, procedure_type, state);
  return true;
}

void ExpandIncludes(const TemplateEnvironment& environment, std::string& text,
                    std::string_view module_name, std::string_view procedure_name,
                    std::string_view procedure_type) {
  IncludeState state;
  ExpandIncludesAt(environment, text, module_name, procedure_name, procedure_type, state);
}

std::string ProcedureTypeOf(std::string_view procedure_name, std::string_view declaration_line) {
  const std::string name_open = std::string(procedure_name) + "(";
  const std::size_t at = FindIgnoreCase(declaration_line, name_open);
  const std::string_view before =
      at == std::string_view::npos ? std::string_view{} : declaration_line.substr(0, at);
  if (Contains(before, "Function")) return "Function";
  if (Contains(before, "Property")) return "Property";
  return "Sub";
}

std::string ErrorHandlerTemplate(const TemplateEnvironment& environment) {
  if (auto text = ReadCodeFile(environment, environment.settings.error_handler_file);
      text && !text->empty()) {
    return WithCrLfLineBreaks(*text);
  }
  return std::string(resources::LoadResString(kBuiltInErrorHandler));
}

}  // namespace tavrin::codegen
