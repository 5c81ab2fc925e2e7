#include "transform/explicit_arguments.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "base/utf8.h"
#include "scan/statement_text.h"

namespace tavrin::transform {
namespace {

enum class Tok { kName, kDot, kOpen, kClose, kComma, kColon, kAssign, kEquals, kOther };

struct Token {
  Tok kind = Tok::kOther;
  std::size_t start = 0;
  std::size_t end = 0;
};

bool IsLetter(char c) {
  const auto u = static_cast<unsigned char>(c);
  return (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || u >= 0x80;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNameChar(char c) { return IsLetter(c) || IsDigit(c) || c == '_'; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// A "_" that continues the line: after a blank (or alone), before the line
// break.
bool IsContinuation(std::string_view text, std::size_t at) {
  if (text[at] != '_' || (at > 0 && !IsBlank(text[at - 1]) && text[at - 1] != '\n')) return false;
  std::size_t next = at + 1;
  while (next < text.size() && IsBlank(text[next])) ++next;
  return next == text.size() || text[next] == '\r' || text[next] == '\n';
}

bool EndsWithContinuation(std::string_view line) {
  const std::string_view trimmed = TrimRightBlanks(line);
  return !trimmed.empty() && IsContinuation(trimmed, trimmed.size() - 1);
}

// The words that open a statement that is no call, or stand before "(" as
// an operator: neither is the name of a procedure.
bool IsKeyword(std::string_view word) {
  static constexpr std::string_view kKeywords[] = {
      "AddressOf", "And",    "ByRef",    "ByVal",   "Call",       "Case",   "Close",
      "Const",     "Declare", "Dim",     "Do",      "Each",       "Else",   "ElseIf",
      "End",       "Enum",   "Eqv",      "Erase",   "Error",      "Event",  "Exit",
      "For",       "Friend", "Function", "Get",     "Global",     "GoSub",  "GoTo",
      "If",        "Imp",    "Implements", "In",    "Input",      "Is",     "Let",
      "Like",      "Line",   "Loop",     "Mod",     "New",        "Next",   "Not",
      "On",        "Open",   "Option",   "Or",      "Print",      "Private", "Property",
      "Public",    "Put",    "RaiseEvent", "ReDim", "Resume",     "Return", "Select",
      "Set",       "Static", "Step",     "Stop",    "Sub",        "Then",   "To",
      "Type",      "TypeOf", "Until",    "Wend",    "While",      "With",   "Write",
      "Xor"};
  return std::any_of(std::begin(kKeywords), std::end(kKeywords),
                     [&](std::string_view k) { return EqualsIgnoreCase(k, word); });
}

// The tokens of a statement's text up to its comment. Blanks, line breaks
// and continuation marks separate tokens; strings, numbers and operators
// are kOther.
std::vector<Token> Tokenize(std::string_view text) {
  std::vector<Token> tokens;
  std::size_t i = 0;
  const auto push = [&](Tok kind, std::size_t start, std::size_t end) {
    tokens.push_back({kind, start, end});
    i = end;
  };
  while (i < text.size()) {
    const char c = text[i];
    if (IsBlank(c) || c == '\r' || c == '\n' || (c == '_' && IsContinuation(text, i))) {
      ++i;
    } else if (c == '\'') {
      break;
    } else if (c == '"') {
      std::size_t end = i + 1;
      while (end < text.size()) {
        if (text[end] == '"' && (end + 1 >= text.size() || text[end + 1] != '"')) break;
        end += text[end] == '"' ? 2 : 1;
      }
      push(Tok::kOther, i, std::min(end + 1, text.size()));
    } else if (IsLetter(c) || c == '[') {
      std::size_t end = i + 1;
      if (c == '[') {
        while (end < text.size() && text[end] != ']') ++end;
        end = std::min(end + 1, text.size());
      } else {
        while (end < text.size() && IsNameChar(text[end])) ++end;
        if (end < text.size() && scan::kTypeChars.find(text[end]) != std::string_view::npos)
          ++end;
      }
      const bool opens_statement = tokens.empty() || tokens.back().kind == Tok::kColon;
      if (opens_statement && EqualsIgnoreCase(text.substr(i, end - i), "Rem")) break;
      push(Tok::kName, i, end);
    } else if (IsDigit(c) || (c == '&' && i + 1 < text.size() && IsLetter(text[i + 1]))) {
      std::size_t end = i + 1;
      while (end < text.size() && (IsNameChar(text[end]) || text[end] == '.')) ++end;
      push(Tok::kOther, i, end);
    } else if (c == ':') {
      const bool assign = i + 1 < text.size() && text[i + 1] == '=';
      push(assign ? Tok::kAssign : Tok::kColon, i, i + (assign ? 2 : 1));
    } else {
      const Tok kind = c == '.' ? Tok::kDot : c == '(' ? Tok::kOpen : c == ')' ? Tok::kClose
                       : c == ',' ? Tok::kComma : c == '=' ? Tok::kEquals : Tok::kOther;
      push(kind, i, i + 1);
    }
  }
  return tokens;
}

// A call found in a statement: its name and the text between the separators
// of its argument list (from `args_start` to `args_end`).
struct Call {
  CalledName name;
  std::size_t start = 0;  // the span that holds the caret when it is "at" the call
  std::size_t end = 0;
  std::size_t name_end = 0;  // a caret here is at this call and at no call inside it
  std::size_t args_start = 0;
  std::size_t args_end = 0;
  bool no_arguments = false;
};

class StatementReader {
 public:
  StatementReader(std::string_view text, const std::vector<Token>& tokens)
      : text_(text), tokens_(tokens) {}

  std::string_view TextOf(const Token& token) const {
    return text_.substr(token.start, token.end - token.start);
  }

  // The index of the ")" that closes the "(" at `open`; `end` when none.
  std::size_t Closing(std::size_t open, std::size_t end) const {
    int depth = 0;
    for (std::size_t i = open; i < end; ++i) {
      if (tokens_[i].kind == Tok::kOpen) ++depth;
      if (tokens_[i].kind == Tok::kClose && --depth == 0) return i;
    }
    return end;
  }

  // The dotted name that ends with the name at `last`: its qualifier and
  // the index of its first token.
  std::pair<std::string, std::size_t> Qualifier(std::size_t last, std::size_t begin) const {
    std::size_t first = last;
    while (first >= begin + 1 && tokens_[first - 1].kind == Tok::kDot) {
      if (first >= begin + 2 && tokens_[first - 2].kind == Tok::kName) {
        first -= 2;
      } else {
        --first;  // ".Save" in a With block
        break;
      }
    }
    if (first == last) return {"", first};
    if (tokens_[first].kind == Tok::kDot && first + 1 == last) return {".", first};
    const std::size_t from = tokens_[first].start;
    return {std::string(text_.substr(from, tokens_[last - 1].start - from)), first};
  }

  // Every call of the statement made of the tokens [begin, end).
  std::vector<Call> Calls(std::size_t begin, std::size_t end) const {
    std::vector<Call> calls;
    if (begin < end && IsDigit(text_[tokens_[begin].start])) ++begin;  // a line number
    if (begin >= end) return calls;
    // "Foo (a), b" is one call of Foo, not Foo(a).
    const std::size_t statement_name = AddStatementCall(begin, end, calls);
    for (std::size_t i = begin; i + 1 < end; ++i) {
      if (tokens_[i].kind != Tok::kName || tokens_[i + 1].kind != Tok::kOpen ||
          i == statement_name || IsKeyword(TextOf(tokens_[i])))
        continue;
      const std::size_t close = Closing(i + 1, end);
      auto [qualifier, first] = Qualifier(i, begin);
      Call call;
      call.name = {qualifier, std::string(TextOf(tokens_[i]))};
      call.start = tokens_[first].start;
      call.end = close < end ? tokens_[close].end : tokens_[end - 1].end;
      call.name_end = tokens_[i].end;
      call.args_start = tokens_[i + 1].end;
      call.args_end = close < end ? tokens_[close].start : tokens_[end - 1].end;
      call.no_arguments = i + 2 >= end || i + 2 == close;
      calls.push_back(std::move(call));
    }
    return calls;
  }

 private:
  // "Foo a, b" and "obj.Save a": a statement that opens with a name that is
  // no keyword and is not assigned to. Gives the index of its name, or
  // `end` when the statement is none.
  std::size_t AddStatementCall(std::size_t begin, std::size_t end, std::vector<Call>& calls) const {
    std::size_t i = begin;
    if (tokens_[i].kind == Tok::kDot) ++i;
    if (i >= end || tokens_[i].kind != Tok::kName || IsKeyword(TextOf(tokens_[i]))) return end;
    while (i + 2 < end && tokens_[i + 1].kind == Tok::kDot && tokens_[i + 2].kind == Tok::kName)
      i += 2;
    const std::size_t name = i;
    std::size_t after = name + 1;
    // The arguments stand apart from the name: "Foo(a)" is no call by place.
    if (after < end && tokens_[after].start == tokens_[name].end) return end;
    if (after < end && tokens_[after].kind == Tok::kOpen) {
      const std::size_t close = Closing(after, end);
      if (close + 1 < end && tokens_[close + 1].kind == Tok::kEquals) return end;  // x(1) = ...
    }
    if (after < end && (tokens_[after].kind == Tok::kEquals ||
                        tokens_[after].kind == Tok::kAssign))
      return end;
    Call call;
    call.name = {Qualifier(name, begin).first, std::string(TextOf(tokens_[name]))};
    call.start = tokens_[begin].start;
    call.end = tokens_[end - 1].end;
    call.name_end = tokens_[name].end;
    call.args_start = tokens_[name].end;
    call.args_end = call.end;
    call.no_arguments = after >= end;
    calls.push_back(std::move(call));
    return name;
  }

  std::string_view text_;
  const std::vector<Token>& tokens_;
};

// Where a statement separator stands: ":" or a single-line If's Then and
// Else, which open a statement of their own.
bool SeparatesStatements(const StatementReader& reader, const Token& token) {
  return token.kind == Tok::kColon ||
         (token.kind == Tok::kName &&
          (EqualsIgnoreCase(reader.TextOf(token), "Then") ||
           EqualsIgnoreCase(reader.TextOf(token), "Else")));
}

// The pieces of an argument list between its top-level commas.
std::vector<std::pair<std::size_t, std::size_t>> Pieces(const std::vector<Token>& tokens,
                                                        const Call& call) {
  std::vector<std::pair<std::size_t, std::size_t>> pieces;
  std::size_t from = call.args_start;
  int depth = 0;
  for (const Token& token : tokens) {
    if (token.start < call.args_start || token.end > call.args_end) continue;
    if (token.kind == Tok::kOpen) ++depth;
    if (token.kind == Tok::kClose) --depth;
    if (token.kind == Tok::kComma && depth == 0) {
      pieces.emplace_back(from, token.start);
      from = token.end;
    }
  }
  pieces.emplace_back(from, call.args_end);
  return pieces;
}

struct Edit {
  std::size_t at = 0;
  std::size_t erase = 0;
  std::string insert;
};

// The first character of a piece that is neither blank nor line break nor
// continuation mark; `end` when there is none.
std::size_t ContentStart(std::string_view text, std::size_t from, std::size_t end) {
  while (from < end && (IsBlank(text[from]) || text[from] == '\r' || text[from] == '\n' ||
                        (text[from] == '_' && IsContinuation(text, from))))
    ++from;
  return from;
}

bool HoldsLineBreak(std::string_view text, std::size_t from, std::size_t end) {
  return text.substr(from, end - from).find('\n') != std::string_view::npos;
}

std::string NameWithoutTypeChar(std::string name) {
  if (!name.empty() && scan::kTypeChars.find(name.back()) != std::string_view::npos)
    name.pop_back();
  return name;
}

Error NoArguments(const Call& call) {
  return Error{call.name.name + " is called without arguments: there is nothing to name."};
}

Result<std::vector<Edit>> NamingEdits(std::string_view text, const std::vector<Token>& tokens,
                                      const Call& call,
                                      const std::vector<scan::C4_ProcArgument>& declared) {
  if (call.no_arguments) return NoArguments(call);
  const auto pieces = Pieces(tokens, call);
  std::vector<Edit> edits;
  bool given_before = false;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto [from, to] = pieces[i];
    const std::size_t content = ContentStart(text, from, to);
    if (content != to) given_before = true;
    if (content == to) {
      // Left out: the comma before it goes with its blanks, but never a
      // line break; before the first argument given, the comma after it.
      if (given_before) {
        // At the end, a blank keeps the word that follows apart.
        const bool joins = i + 1 == pieces.size() && to < text.size() && IsNameChar(text[to]);
        edits.push_back({from - 1, HoldsLineBreak(text, from, to) ? 1 : to - from + 1,
                         joins ? " " : ""});
      } else if (i + 1 < pieces.size()) {
        std::size_t next = to + 1;
        while (next < text.size() && IsBlank(text[next])) ++next;
        if (next < text.size() && IsContinuation(text, next)) next = to + 1;
        edits.push_back({to, next - to, ""});
      }
      continue;
    }
    const auto first = std::find_if(tokens.begin(), tokens.end(),
                                    [&](const Token& t) { return t.start == content; });
    if (first != tokens.end() && first + 1 != tokens.end() && first->kind == Tok::kName &&
        (first + 1)->kind == Tok::kAssign)
      continue;  // named already
    if (i >= declared.size())
      return Error{"Too many arguments: " + call.name.name + " takes " +
                   std::to_string(declared.size()) + "."};
    if (declared[i].IsParamArray)
      return Error{"The values of " + call.name.name + "'s ParamArray " + declared[i].Name +
                   " cannot be named."};
    edits.push_back({content, 0, NameWithoutTypeChar(declared[i].Name) + ":="});
  }
  if (!given_before) return NoArguments(call);
  return edits;
}

// The calls of the statement that holds the caret (or the last one before
// it), in the order they are tried: those whose text holds the caret,
// innermost first, then the others from the left.
std::vector<Call> CallsInTurn(std::string_view text, const std::vector<Token>& tokens,
                              std::size_t caret) {
  const StatementReader reader(text, tokens);
  std::size_t begin = 0;
  std::size_t end = tokens.size();
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!SeparatesStatements(reader, tokens[i])) continue;
    if (tokens[i].end <= caret) {
      begin = i + 1;
    } else {
      end = i;
      break;
    }
  }
  std::vector<Call> calls = reader.Calls(begin, std::max(begin, end));
  // A caret past the statement's last word stands at its end.
  const std::size_t at = end > begin ? std::min(caret, tokens[end - 1].end) : caret;
  const auto holds = [&](const Call& call) { return call.start <= at && at <= call.end; };
  std::stable_sort(calls.begin(), calls.end(), [&](const Call& a, const Call& b) {
    if (holds(a) != holds(b)) return holds(a);
    if (holds(a)) return a.end - a.start < b.end - b.start;
    return a.start < b.start;
  });
  return calls;
}

// True when a run at `caret` over the rewritten text would pick `call` again
// (the first call `lookup` knows), so that a second run changes nothing.
bool PicksAgain(std::string_view text, std::size_t caret, const Call& call,
                const ArgumentsLookup& lookup) {
  for (const Call& other : CallsInTurn(text, Tokenize(text), caret))
    if (lookup(other.name)) return other.start == call.start && other.name_end == call.name_end;
  return false;
}

}  // namespace

Result<CallRewrite> ExplicitArguments(const std::vector<std::string_view>& lines, int line,
                                      int column, const ArgumentsLookup& lookup) {
  const int count = static_cast<int>(lines.size());
  if (line < 1 || line > count) return Error{std::string(kCalledProcedureMissing)};
  int first = line;
  while (first > 1 && EndsWithContinuation(lines[first - 2])) --first;
  int last = line;
  while (last < count && EndsWithContinuation(lines[last - 1])) ++last;
  std::string text;
  std::size_t caret = 0;
  for (int n = first; n <= last; ++n) {
    if (n > first) text += "\r\n";
    if (n == line) caret = text.size() + utf8::OffsetOfColumn(lines[n - 1], column);
    text += lines[n - 1];
  }

  const std::vector<Token> tokens = Tokenize(text);
  for (const Call& call : CallsInTurn(text, tokens, caret)) {
    const auto declared = lookup(call.name);
    if (!declared) continue;
    auto edits = NamingEdits(text, tokens, call, *declared);
    if (!edits) return Error{edits.error()};
    std::sort(edits->begin(), edits->end(),
              [](const Edit& a, const Edit& b) { return a.at > b.at; });
    for (const Edit& edit : *edits) {
      text.replace(edit.at, edit.erase, edit.insert);
      if (edit.at < caret)
        caret = caret - std::min(edit.erase, caret - edit.at) + edit.insert.size();
    }
    // Naming can bring the caret to the end of an inner call ("z(z(2), "
    // loses its trailing comma); it then goes to the end of the name
    // called, where a second run finds the same call. The edits all lie
    // after the name, so the name's offsets hold in the new text.
    if (!PicksAgain(text, caret, call, lookup)) caret = call.name_end;
    CallRewrite rewrite;
    rewrite.called = call.name;
    rewrite.first_line = first;
    rewrite.last_line = last;
    const std::string_view before = std::string_view(text).substr(0, caret);
    const std::size_t line_start = before.rfind('\n');
    rewrite.caret_line = first + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
    rewrite.caret_column =
        utf8::CharCount(line_start == std::string_view::npos ? before
                                                             : before.substr(line_start + 1)) +
        1;
    rewrite.text = std::move(text);
    return rewrite;
  }
  return Error{std::string(kCalledProcedureMissing)};
}

}  // namespace tavrin::transform
