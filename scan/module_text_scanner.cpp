#include "scan/module_text_scanner.h"

#include <algorithm>

#include "base/text.h"
#include "scan/statement_text.h"

namespace tavrin::scan {
namespace {

bool IsNameChar(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Takes `word` off the front of `text` when it stands there as a whole word.
bool TakeWord(std::string_view& text, std::string_view word) {
  if (text.size() < word.size() || !StartsWithIgnoreCase(text, word)) return false;
  if (text.size() > word.size() && IsNameChar(text[word.size()])) return false;
  text = TrimLeftBlanks(text.substr(word.size()));
  return true;
}

// Takes a name off the front of `text`.
std::string_view TakeName(std::string_view& text) {
  std::size_t end = 0;
  if (!text.empty() && text[0] == '[') {  // an escaped name: [Name]
    end = text.find(']');
    end = end == std::string_view::npos ? text.size() : end + 1;
  } else {
    while (end < text.size() && IsNameChar(text[end])) ++end;
  }
  const std::string_view name = text.substr(0, end);
  text = text.substr(end);
  return name;
}

// The text up to an apostrophe outside quotes.
std::string_view WithoutComment(std::string_view line) {
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') quoted = !quoted;
    if (line[i] == '\'' && !quoted) return line.substr(0, i);
  }
  return line;
}

// The parts between `separator`s outside brackets and quotes, trimmed.
std::vector<std::string_view> SplitOutside(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  int depth = 0;
  bool quoted = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    const char c = i < text.size() ? text[i] : separator;
    if (c == '"') quoted = !quoted;
    if (quoted && i < text.size()) continue;
    if (c == '(') ++depth;
    if (c == ')') --depth;
    // ":=" names an argument; it separates nothing.
    const bool named = separator == ':' && i + 1 < text.size() && text[i + 1] == '=';
    if (c == separator && (depth <= 0 || i == text.size()) && !named) {
      parts.push_back(TrimBlanks(text.substr(start, i - start)));
      start = i + 1;
    }
  }
  return parts;
}

// The text between the bracket at `open` and its match; `rest` gets what
// follows the closing bracket.
std::string_view Bracketed(std::string_view text, std::size_t open, std::string_view& rest) {
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = open; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (quoted) continue;
    if (text[i] == '(') ++depth;
    if (text[i] == ')' && --depth == 0) {
      rest = TrimLeftBlanks(text.substr(i + 1));
      return text.substr(open + 1, i - open - 1);
    }
  }
  rest = {};
  return text.substr(std::min(open + 1, text.size()));
}

// "As [New] Type [* 10]" at the front of `text`: fills the declaration's
// type and New flag; the rest (an "= value") stays in `text`.
void TakeAsClause(std::string_view& text, Declaration& declaration) {
  if (!TakeWord(text, "As")) return;
  declaration.is_new = TakeWord(text, "New");
  std::size_t end = 0;
  while (end < text.size() && (IsNameChar(text[end]) || text[end] == '.')) ++end;
  declaration.type = std::string(text.substr(0, end));
  text = TrimLeftBlanks(text.substr(end));
  if (text.starts_with("*")) {  // a fixed-length string
    text = TrimLeftBlanks(text.substr(1));
    std::size_t length = 0;
    while (length < text.size() && (IsNameChar(text[length]))) ++length;
    declaration.type += " * " + std::string(text.substr(0, length));
    text = TrimLeftBlanks(text.substr(length));
  }
}

// One declarator: "name[$][(bounds)] [As [New] Type] [= value]".
Declaration ParseDeclarator(std::string_view text, DeclKind kind, DeclScope scope, int line) {
  Declaration declaration;
  declaration.kind = kind;
  declaration.scope = scope;
  declaration.line = line;
  declaration.name = std::string(TakeName(text));
  if (!text.empty() && kTypeChars.find(text[0]) != std::string_view::npos) {
    declaration.type = TypeFromTypeChar(text[0]);
    text = text.substr(1);
  }
  text = TrimLeftBlanks(text);
  if (text.starts_with("(")) {
    declaration.is_array = true;
    declaration.bounds = std::string(TrimBlanks(Bracketed(text, 0, text)));
  }
  TakeAsClause(text, declaration);
  if (text.starts_with("=")) declaration.value = std::string(TrimBlanks(text.substr(1)));
  if (declaration.type.empty() && kind != DeclKind::kConstant) declaration.type = "Variant";
  return declaration;
}

// "[Public|Private|Friend] [Static] Sub|Function|Property ..."
bool StartsProcedure(std::string_view text) {
  if (!TakeWord(text, "Public") && !TakeWord(text, "Private")) TakeWord(text, "Friend");
  TakeWord(text, "Static");
  return TakeWord(text, "Sub") || TakeWord(text, "Function") || TakeWord(text, "Property");
}

class Scanner {
 public:
  ModuleScan Run(std::string_view code);

 private:
  void LogicalLine(std::string_view text, int first, int last);
  void Statement(std::string_view text);
  void BlockMember(std::string_view text);
  bool ProcedureStart(std::string_view text, DeclScope scope);
  void Arguments(std::string_view list);
  void Declare(std::string_view text, DeclScope scope);
  void Add(Declaration declaration);
  void Declarators(std::string_view text, DeclKind kind, DeclScope scope, bool is_static,
                   bool with_events);

  ModuleScan scan_;
  ScannedProc* proc_ = nullptr;  // the procedure being read
  bool body_started_ = false;    // a statement other than a declaration was met
  DeclKind block_ = DeclKind::kVariable;  // kEnum or kType inside a block
  bool in_block_ = false;
  Declaration block_decl_;
  std::size_t block_index_ = 0;  // the block's entry in the declarations
  bool line_start_ = false;      // the statement is the first of its line
  int line_ = 0;       // the first line of the current statement
  int last_line_ = 0;  // its last line
};

void Scanner::Add(Declaration declaration) {
  if (declaration.name.empty()) return;
  if (proc_)
    proc_->locals.push_back(std::move(declaration));
  else
    scan_.declarations.push_back(std::move(declaration));
}

void Scanner::Declarators(std::string_view text, DeclKind kind, DeclScope scope, bool is_static,
                          bool with_events) {
  for (std::string_view part : SplitOutside(text, ',')) {
    Declaration declaration = ParseDeclarator(part, kind, scope, line_);
    declaration.is_static = is_static;
    declaration.with_events = with_events;
    Add(std::move(declaration));
  }
}

void Scanner::Arguments(std::string_view list) {
  for (std::string_view part : SplitOutside(list, ',')) {
    while (TakeWord(part, "Optional") || TakeWord(part, "ByVal") || TakeWord(part, "ByRef") ||
           TakeWord(part, "ParamArray")) {
    }
    if (!part.empty()) Add(ParseDeclarator(part, DeclKind::kArgument, DeclScope::kLocal, line_));
  }
}

bool Scanner::ProcedureStart(std::string_view text, DeclScope scope) {
  TakeWord(text, "Static");
  ScannedProc proc;
  if (TakeWord(text, "Sub")) {
  } else if (TakeWord(text, "Function")) {
    proc.is_function = true;
  } else if (TakeWord(text, "Property")) {
    if (TakeWord(text, "Get")) {
      proc.kind = ide::ProcKind::kGet;
      proc.is_function = true;
    } else if (TakeWord(text, "Let")) {
      proc.kind = ide::ProcKind::kLet;
    } else if (TakeWord(text, "Set")) {
      proc.kind = ide::ProcKind::kSet;
    } else {
      return false;
    }
  } else {
    return false;
  }
  proc.name = std::string(TakeName(text));
  if (proc.name.empty()) return false;
  if (!text.empty() && kTypeChars.find(text[0]) != std::string_view::npos) {
    proc.return_type = TypeFromTypeChar(text[0]);
    text = text.substr(1);
  }
  proc.scope = scope;
  proc.line = line_;
  proc.body_line = last_line_ + 1;
  proc.last_declaration_line = last_line_;
  scan_.procedures.push_back(std::move(proc));
  proc_ = &scan_.procedures.back();
  body_started_ = false;
  text = TrimLeftBlanks(text);
  if (text.starts_with("(")) {
    Arguments(Bracketed(text, 0, text));
    Declaration returns;
    TakeAsClause(text, returns);
    if (!returns.type.empty()) proc_->return_type = returns.type;
  }
  if (proc_->is_function && proc_->return_type.empty()) proc_->return_type = "Variant";
  return true;
}

void Scanner::Declare(std::string_view text, DeclScope scope) {
  TakeWord(text, "PtrSafe");
  Declaration declaration;
  declaration.kind = DeclKind::kDeclare;
  declaration.scope = scope;
  declaration.line = line_;
  const bool function = TakeWord(text, "Function");
  if (!function && !TakeWord(text, "Sub")) return;
  declaration.name = std::string(TakeName(text));
  if (!text.empty() && kTypeChars.find(text[0]) != std::string_view::npos)
    declaration.type = TypeFromTypeChar(text[0]);
  std::string_view rest;
  const std::size_t open = text.find('(');
  if (open != std::string_view::npos) Bracketed(text, open, rest);
  if (function) {
    Declaration returns;
    TakeAsClause(rest, returns);
    if (!returns.type.empty()) declaration.type = returns.type;
    if (declaration.type.empty()) declaration.type = "Variant";
  }
  Add(std::move(declaration));
}

void Scanner::BlockMember(std::string_view text) {
  if (TakeWord(text, "End")) {
    if (TakeWord(text, block_ == DeclKind::kEnum ? "Enum" : "Type")) {
      in_block_ = false;
      if (block_index_ < scan_.declarations.size() &&
          scan_.declarations[block_index_].kind == block_)
        scan_.declarations[block_index_].end_line = last_line_;
    }
    return;
  }
  Declaration member = ParseDeclarator(text, block_ == DeclKind::kEnum ? DeclKind::kEnumMember
                                                                     : DeclKind::kTypeMember,
                                       block_decl_.scope, line_);
  member.parent = block_decl_.name;
  if (block_ == DeclKind::kEnum) member.type = block_decl_.name;
  Add(std::move(member));
}

void Scanner::Statement(std::string_view text) {
  if (text.empty()) return;
  // A procedure that opens inside an Enum or Type without its End line
  // ends the block (which stays without an end line), as the IDE still
  // lists the procedure.
  if (in_block_ && !(line_start_ && StartsProcedure(text))) return BlockMember(text);
  in_block_ = false;
  if (proc_ && TakeWord(text, "End")) {
    if (TakeWord(text, "Sub") || TakeWord(text, "Function") || TakeWord(text, "Property")) {
      proc_->end_line = last_line_;
      proc_ = nullptr;
    }
    return;
  }
  const std::string_view whole = text;
  // A procedure that opens before the last one ended ends it.
  if (proc_ && line_start_ && proc_->line < line_ && StartsProcedure(text)) {
    proc_->end_line = line_ - 1;
    proc_ = nullptr;
  }
  // Without a keyword: module-level Enum, Type, Declare and procedures are
  // public, constants private; inside a procedure everything is local.
  DeclScope scope = proc_ ? DeclScope::kLocal : DeclScope::kGlobal;
  bool keyword = false;
  bool is_static = false;
  if (TakeWord(text, "Public") || TakeWord(text, "Global") || TakeWord(text, "Friend")) {
    keyword = true;
  } else if (TakeWord(text, "Private")) {
    scope = DeclScope::kModule;
    keyword = true;
  } else if (TakeWord(text, "Dim")) {
    scope = proc_ ? DeclScope::kLocal : DeclScope::kModule;
    keyword = true;
  } else if (TakeWord(text, "Static")) {
    is_static = true;
    keyword = true;
  }
  const bool declaration_statement =
      proc_ && !body_started_ && (keyword || StartsWithIgnoreCase(text, "Const "));
  if (proc_) {
    if (declaration_statement)
      proc_->last_declaration_line = last_line_;
    else
      body_started_ = true;
  }
  // A procedure opens a line; after a ":" it would not compile.
  if (!proc_ && line_start_ && ProcedureStart(is_static ? whole : text, scope)) return;
  if (TakeWord(text, "Const")) {
    if (!keyword && !proc_) scope = DeclScope::kModule;
    return Declarators(text, DeclKind::kConstant, scope, false, false);
  }
  bool is_enum = false;
  if (!proc_ && ((is_enum = TakeWord(text, "Enum")) || TakeWord(text, "Type"))) {
    block_ = is_enum ? DeclKind::kEnum : DeclKind::kType;
    block_decl_ = {};
    block_decl_.kind = block_;
    block_decl_.scope = scope;
    block_decl_.line = line_;
    block_decl_.name = std::string(TakeName(text));
    block_decl_.type = block_decl_.name;
    in_block_ = true;
    block_index_ = scan_.declarations.size();
    return Add(block_decl_);
  }
  if (!proc_ && TakeWord(text, "Declare")) return Declare(text, scope);
  if (TakeWord(text, "Event") || TakeWord(text, "Implements") || !keyword) return;
  const bool with_events = TakeWord(text, "WithEvents");
  Declarators(text, DeclKind::kVariable, scope, is_static, with_events);
}

void Scanner::LogicalLine(std::string_view text, int first, int last) {
  line_ = first;
  last_line_ = last;
  text = TrimBlanks(WithoutComment(text));
  if (text.empty() || StartsWithIgnoreCase(text, "Attribute ")) return;
  // A line number or a label opens the line.
  if (IsDigit(text[0])) {
    std::size_t end = 0;
    while (end < text.size() && IsDigit(text[end])) ++end;
    text = TrimLeftBlanks(text.substr(end));
  } else {
    std::string_view rest = text;
    const std::string_view name = TakeName(rest);
    if (!name.empty() && rest.starts_with(":") && !rest.starts_with(":=")) {
      // A procedure that opens after the label ends the one before it.
      if (proc_ && proc_->line < first && StartsProcedure(TrimLeftBlanks(rest.substr(1)))) {
        proc_->end_line = first - 1;
        proc_ = nullptr;
      }
      if (proc_) {
        Declaration label;
        label.kind = DeclKind::kLabel;
        label.scope = DeclScope::kLocal;
        label.name = std::string(name);
        label.line = first;
        Add(std::move(label));
        body_started_ = true;
      }
      text = TrimLeftBlanks(rest.substr(1));
    }
  }
  if (StartsWithIgnoreCase(text, "Rem ") || EqualsIgnoreCase(text, "Rem")) return;
  line_start_ = true;
  if (text.find(':') == std::string_view::npos) return Statement(text);
  for (std::string_view statement : SplitOutside(text, ':')) {
    if (StartsWithIgnoreCase(statement, "Rem ")) break;
    Statement(statement);
    line_start_ = false;
  }
}

ModuleScan Scanner::Run(std::string_view code) {
  std::string joined;
  int first = 0;
  int number = 0;
  for (std::string_view line : SplitAnyLineBreak(code)) {
    ++number;
    std::string_view trimmed = TrimRightBlanks(line);
    const bool continues = trimmed.ends_with(" _") || trimmed == "_";
    if (continues) trimmed.remove_suffix(1);
    if (joined.empty() && !continues) {
      // The common case: a line on its own, read without a copy.
      LogicalLine(trimmed, number, number);
      if (!proc_ && scan_.procedures.empty() && !IsBlankOrEmpty(WithoutComment(trimmed)))
        scan_.last_declaration_line = number;
      continue;
    }
    if (joined.empty()) first = number;
    joined += trimmed;
    if (continues) continue;
    LogicalLine(joined, first, number);
    if (!proc_ && scan_.procedures.empty()) scan_.last_declaration_line = number;
    joined.clear();
  }
  if (!joined.empty()) LogicalLine(joined, first, number);
  if (proc_) proc_->end_line = number;
  return std::move(scan_);
}

}  // namespace

ModuleScan ScanModuleText(std::string_view code) { return Scanner().Run(code); }

const ScannedProc* ProcedureAtLine(const ModuleScan& scan, int line) {
  const auto after = std::upper_bound(
      scan.procedures.begin(), scan.procedures.end(), line,
      [](int at, const ScannedProc& proc) { return at < proc.line; });
  if (after == scan.procedures.begin()) return nullptr;
  const ScannedProc& proc = *(after - 1);
  return line <= proc.end_line ? &proc : nullptr;
}

std::vector<const Declaration*> DeclarationsInScope(const ModuleScan& scan, int line) {
  std::vector<const Declaration*> visible;
  if (const ScannedProc* proc = ProcedureAtLine(scan, line))
    for (const Declaration& local : proc->locals) visible.push_back(&local);
  for (const Declaration& declaration : scan.declarations) visible.push_back(&declaration);
  return visible;
}

}  // namespace tavrin::scan
