#include "scan/statement_text.h"

#include "base/text.h"

namespace tavrin::scan {

std::vector<std::string> SplitStatements(std::string_view text) {
  std::vector<std::string> pieces;
  if (text.find(": ") == std::string_view::npos) {
    pieces.emplace_back(TrimBlanks(text));
    return pieces;
  }
  std::string current;
  bool in_quotes = false;
  bool stored_at_comment = false;
  for (const char c : text) {
    if (c == '"') {
      in_quotes = !in_quotes;
      current += c;
    } else if (!in_quotes && c == '\'') {
      pieces.emplace_back(TrimBlanks(current));
      stored_at_comment = true;
      break;
    } else if (!in_quotes && c == ':') {
      pieces.emplace_back(TrimBlanks(current));
      current.clear();
    } else {
      current += c;
    }
  }
  if (!stored_at_comment && !current.empty()) pieces.emplace_back(TrimBlanks(current));
  return pieces;
}

std::string ProcNameFromDecl(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return {};
  const std::string_view head = TrimBlanks(text.substr(0, open));
  const std::size_t blank = head.rfind(' ');
  return std::string(blank == std::string_view::npos ? head : head.substr(blank + 1));
}

std::string TypeFromTypeChar(char type_char) {
  switch (type_char) {
    case '!': return "Single";
    case '#': return "Double";
    case '$': return "String";
    case '%': return "Integer";
    case '&': return "Long";
    case '@': return "Currency";
    default: return {};
  }
}

}  // namespace tavrin::scan
