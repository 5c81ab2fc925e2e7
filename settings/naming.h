// Naming a declaration by the user's standard: scope prefix, type tag (and
// for constants the constant tag), then the name the user typed.
#pragma once

#include <string>
#include <string_view>

#include "settings/catalogue.h"
#include "settings/type_prefixes.h"
#include "settings/value_table.h"

namespace tavrin::settings {

// The scope codes of the builders.
enum ScopeCode : int {
  kScopeLocal = 0,
  kScopeGlobal = 1,
  kScopeModule = 2,
  kScopeByRef = 4,
  kScopeByVal = 5,
};

struct NamingRules {
  AutoPrefixMode mode = AutoPrefixMode::kBeforeCapitalChar;
  std::string prefix_global = "g";
  std::string prefix_module = "m";
  std::string prefix_by_ref = "r";
  std::string prefix_by_val = "v";
  std::string const_tag = "c";
  bool const_tag_before_type_tag = true;
  bool set_picked_up_name_ucase = false;
};

NamingRules NamingRulesFrom(const ValueTable& values);

// The scope prefix of a scope code; "" for a local (any other code).
std::string ScopePrefix(const NamingRules& rules, int scope);

// The declared name for what the user typed. A prefix the user typed
// already (a scope prefix and/or a tag of the table, each followed by an
// upper-case letter, digit or underscore) is taken off first, so it is
// never doubled, and replaced by the right one.
std::string ComposeName(std::string_view typed, std::string_view type_name, int scope,
                        bool is_constant, const NamingRules& rules,
                        const TypePrefixTable& prefixes);

}  // namespace tavrin::settings
