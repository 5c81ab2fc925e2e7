#include "scan/proc_arguments.h"

#include "base/text.h"
#include "base/utf8.h"

namespace tavrin::scan {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// Mid(text, position) trimmed, 1-based; nothing past the end.
std::string_view TrimmedFrom(std::string_view text, std::size_t position) {
  return position > text.size() ? std::string_view{} : TrimBlanks(text.substr(position - 1));
}

bool IsNameEnd(char c) { return c == '(' || c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

void C4_ProcArgument::init(std::string_view arg_text) {
  ArgDef = std::string(arg_text);
  if (TrimBlanks(arg_text).empty()) return;
  std::string_view s = arg_text;
  if (TrimBlanks(arg_text).size() > 8 && s.starts_with("Optional")) {
    IsOptional = true;
    s = TrimmedFrom(s, 9);
  }
  IsPassedByVal = false;
  PassedBy = "ByRef";
  if (s.size() > 5) {
    if (s.starts_with("ByVal")) {
      IsPassedByVal = true;
      PassedBy = "ByVal";
      s = TrimmedFrom(s, 6);
    } else if (s.starts_with("ByRef")) {
      s = TrimmedFrom(s, 6);
    }
  }
  if (s.size() > 10 && s.starts_with("ParamArray")) {
    IsParamArray = true;
    s = TrimmedFrom(s, 11);
  }
  std::size_t name_end = 0;
  while (name_end < s.size() && !IsNameEnd(s[name_end])) ++name_end;
  Name = std::string(TrimBlanks(s.substr(0, name_end)));
  s = s.size() == Name.size() ? std::string_view{} : TrimBlanks(s.substr(name_end));
  if (s.starts_with("(")) {
    IsArray = true;
    const std::size_t close = s.find(')');
    // Without ")" the text stays as it is, as the position search gives 0.
    s = close == kNone ? s : TrimmedFrom(s, close + 2);
  }
  if (s.empty()) {
    Type_ = "Variant";
  } else if (s.starts_with("=")) {
    Type_ = "Variant";
    s = TrimmedFrom(s, 2);
  } else {
    s = TrimmedFrom(s, 3);  // the word "As", not looked at
    const std::size_t equals = s.find('=');
    Type_ = std::string(TrimBlanks(s.substr(0, equals)));
    if (equals == kNone || utf8::CharCount(s.substr(equals + 1)) <= 1)
      s = {};
    else
      s = TrimBlanks(s.substr(equals + 1));
  }
  if (!s.empty()) DefaultValue = std::string(s);
}

std::vector<std::string> SplitArgumentList(std::string_view text) {
  std::vector<std::string> pieces;
  std::string current;
  bool in_quotes = false;
  for (const char c : text) {
    if (c == '"') in_quotes = !in_quotes;
    if (c == ',' && !in_quotes) {
      pieces.emplace_back(TrimBlanks(current));
      current.clear();
    } else {
      current += c;
    }
  }
  if (!current.empty()) pieces.push_back(std::move(current));
  return pieces;
}

Status C4_ProcArguments::init(std::string_view declaration_text) {
  const std::string_view text = declaration_text;
  bool in_quotes = false;
  std::size_t open = kNone;
  for (std::size_t i = 0; i < text.size() && open == kNone; ++i) {
    if (text[i] == '"') in_quotes = !in_quotes;
    else if (text[i] == '(' && !in_quotes) open = i;
  }
  std::size_t close = kNone;
  for (std::size_t i = text.size(); i > 0 && close == kNone; --i) {
    if (text[i - 1] == '"') in_quotes = !in_quotes;
    else if (text[i - 1] == ')' && !in_quotes) close = i - 1;
  }
  // Positions are compared 1-based as the list was always read: one
  // character between the parentheses gives no argument.
  if (open == kNone || close == kNone || open + 2 >= close) return {};
  arg_list_text_ = std::string(text.substr(open + 1, close - open - 1));
  for (const std::string& piece : SplitArgumentList(arg_list_text_)) {
    C4_ProcArgument argument;
    argument.init(TrimBlanks(piece));
    if (Status added = Add(std::move(argument)); !added) return added;
  }
  return {};
}

Status C4_ProcArguments::Add(C4_ProcArgument argument) {
  const auto [it, inserted] = by_name_.try_emplace(ToUpperAscii(argument.Name), items_.size());
  if (!inserted)
    return Error{"the argument name '" + argument.Name + "' is used twice"};
  if (!items_.empty()) arg_name_list_ += ", ";
  arg_name_list_ += argument.IsOptional ? "[" + argument.Name + "]" : argument.Name;
  items_.push_back(std::move(argument));
  return {};
}

const C4_ProcArgument* C4_ProcArguments::Find(std::string_view name) const {
  const auto it = by_name_.find(ToUpperAscii(name));
  return it == by_name_.end() ? nullptr : &items_[it->second];
}

}  // namespace tavrin::scan
