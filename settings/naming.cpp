#include "settings/naming.h"

#include <vector>

#include "base/text.h"

namespace tavrin::settings {
namespace {

bool IsUpperAscii(char c) { return c >= 'A' && c <= 'Z'; }

// The longest candidate that starts `name` and is followed by an upper-case
// letter; its length, or 0.
std::size_t LongestPrefixAt(std::string_view name, const std::vector<std::string>& candidates) {
  std::size_t longest = 0;
  for (const std::string& candidate : candidates) {
    if (candidate.empty() || candidate.size() <= longest || candidate.size() >= name.size())
      continue;
    if (name.starts_with(candidate) && IsUpperAscii(name[candidate.size()]))
      longest = candidate.size();
  }
  return longest;
}

// The typed name without a scope prefix and a tag part it already has: a
// scope prefix counts when a tag or an upper-case letter follows it, a tag
// when an upper-case letter follows it.
std::string_view BaseName(std::string_view typed, const NamingRules& rules,
                          const TypePrefixTable& prefixes) {
  std::vector<std::string> tags = {rules.const_tag};
  for (const TypePrefixRow& row : prefixes.Rows()) {
    for (std::size_t column = 1; column < 4; ++column) {
      const std::string& tag = row.columns[column];
      if (tag.empty()) continue;
      tags.push_back(tag);
      tags.push_back(rules.const_tag + tag);
      tags.push_back(tag + rules.const_tag);
    }
  }
  for (const std::string& scope : {rules.prefix_global, rules.prefix_module,
                                   rules.prefix_by_ref, rules.prefix_by_val}) {
    if (scope.empty() || !typed.starts_with(scope) || scope.size() >= typed.size()) continue;
    const std::string_view rest = typed.substr(scope.size());
    if (IsUpperAscii(rest.front()) || LongestPrefixAt(rest, tags) > 0) {
      typed = rest;
      break;
    }
  }
  typed.remove_prefix(LongestPrefixAt(typed, tags));
  return typed;
}

}  // namespace

NamingRules NamingRulesFrom(const ValueTable& values) {
  NamingRules rules;
  const int mode = values.WholeNumber(Item::kAutoPrefixVariableName);
  rules.mode = mode == 0   ? AutoPrefixMode::kNoAutoPrefix
               : mode == 1 ? AutoPrefixMode::kAlwaysAutoPrefix
                           : AutoPrefixMode::kBeforeCapitalChar;
  rules.prefix_global = values.Text(Item::kPrefixGlobal);
  rules.prefix_module = values.Text(Item::kPrefixModule);
  rules.prefix_by_ref = values.Text(Item::kPrefixByRef);
  rules.prefix_by_val = values.Text(Item::kPrefixByVal);
  rules.const_tag = values.Text(Item::kConstTag);
  rules.const_tag_before_type_tag = values.YesNo(Item::kConstTagBeforeTypeTag);
  rules.set_picked_up_name_ucase = values.YesNo(Item::kSetPickedUpNameUcase);
  return rules;
}

std::string ScopePrefix(const NamingRules& rules, int scope) {
  switch (scope) {
    case kScopeGlobal: return rules.prefix_global;
    case kScopeModule: return rules.prefix_module;
    case kScopeByRef: return rules.prefix_by_ref;
    case kScopeByVal: return rules.prefix_by_val;
    default: return "";
  }
}

std::string ComposeName(std::string_view typed, std::string_view type_name, int scope,
                        bool is_constant, const NamingRules& rules,
                        const TypePrefixTable& prefixes) {
  if (rules.mode == AutoPrefixMode::kNoAutoPrefix || typed.empty()) return std::string(typed);
  std::string base(BaseName(typed, rules, prefixes));
  if (is_constant && rules.set_picked_up_name_ucase) base = ToUpperAscii(base);
  if (rules.mode == AutoPrefixMode::kBeforeCapitalChar && base.front() != ToUpperAscii(base.front()))
    return std::string(typed);
  const bool argument = scope == kScopeByRef || scope == kScopeByVal;
  const TagUse use = is_constant ? TagUse::kConstant : argument ? TagUse::kArgument
                                                                : TagUse::kVariable;
  const std::string type_tag = prefixes.Tag(type_name, use);
  std::string tags = type_tag;
  if (is_constant)
    tags = rules.const_tag_before_type_tag ? rules.const_tag + type_tag : type_tag + rules.const_tag;
  return ScopePrefix(rules, scope) + tags + base;
}

}  // namespace tavrin::settings
