#include "settings/naming.h"

#include <gtest/gtest.h>

namespace tavrin::settings {
namespace {

TypePrefixTable Table() {
  return TypePrefixTable({ParseTypePrefixRow("Long Prefix", "lng"),
                          ParseTypePrefixRow("String Prefix", "str,,s"),
                          ParseTypePrefixRow("Boolean Prefix", "bln,bool,f,Yes or no")});
}

TEST(TypePrefixTest, RowsComeFromKeyAndValue) {
  struct Case {
    std::string_view key, value;
    std::array<std::string, 5> columns;
  };
  const Case cases[] = {
      {"Integer Prefix", "int", {"Integer", "int", "", "", ""}},
      {" Long  PREFIX ", "lng,,a,b,c,d", {"Long", "lng", "", "a", "b"}},
      {"My prefix Type", "x", {"MyType", "x", "", "", ""}},
      {"Variant", "var", {"Variant", "var", "", "", ""}},
      {"Object Prefix", "", {"Object", "", "", "", ""}},
      {"Date Prefix", ",,,", {"Date", "", "", "", ""}},
  };
  for (const Case& c : cases) EXPECT_EQ(ParseTypePrefixRow(c.key, c.value).columns, c.columns);
}

TEST(TypePrefixTest, TagsByUse) {
  const TypePrefixTable table = Table();
  EXPECT_EQ(table.Tag("long", TagUse::kConstant), "lng");
  EXPECT_EQ(table.Tag("String", TagUse::kArgument), "s");
  EXPECT_EQ(table.Tag("Boolean", TagUse::kConstant), "bool");
  EXPECT_EQ(table.Tag("Boolean", TagUse::kVariable), "bln");
  EXPECT_EQ(table.Tag("clsThing", TagUse::kVariable), "");
}

TEST(NamingTest, ComposesNames) {
  struct Case {
    std::string_view typed, type;
    int scope;
    bool constant;
    std::string_view expected;
  };
  const Case cases[] = {
      {"Count", "Long", kScopeModule, false, "mlngCount"},
      {"MaxItems", "Long", kScopeGlobal, true, "gclngMaxItems"},
      {"count", "Long", kScopeModule, false, "count"},  // lower case: as typed
      {"_Count", "Long", kScopeModule, false, "mlng_Count"},
      {"2nd", "Long", kScopeLocal, false, "lng2nd"},
      {"Name", "String", kScopeByVal, false, "vsName"},
      {"Name", "String", kScopeByRef, false, "rsName"},
      {"Name", "String", 3, false, "strName"},  // another code: local
      {"Thing", "clsThing", kScopeModule, false, "mThing"},
      // Prefixes the user typed are not doubled, and are corrected.
      {"mlngCount", "Long", kScopeModule, false, "mlngCount"},
      {"glngCount", "Long", kScopeModule, false, "mlngCount"},
      {"strName", "Long", kScopeLocal, false, "lngName"},
      {"gclngMax", "Long", kScopeGlobal, true, "gclngMax"},
      {"message", "String", kScopeModule, false, "message"},
      {"mName", "String", kScopeModule, false, "mstrName"},
      {"m", "Long", kScopeModule, false, "m"},
      {"", "Long", kScopeModule, false, ""},
  };
  const NamingRules rules;
  for (const Case& c : cases)
    EXPECT_EQ(ComposeName(c.typed, c.type, c.scope, c.constant, rules, Table()), c.expected)
        << c.typed;
}

TEST(NamingTest, FollowsTheRules) {
  NamingRules rules;
  rules.mode = AutoPrefixMode::kAlwaysAutoPrefix;
  EXPECT_EQ(ComposeName("count", "Long", kScopeModule, false, rules, Table()), "mlngcount");
  rules.mode = AutoPrefixMode::kNoAutoPrefix;
  EXPECT_EQ(ComposeName("Count", "Long", kScopeModule, false, rules, Table()), "Count");
  rules = NamingRules();
  rules.prefix_module = "";  // an empty prefix is no prefix
  EXPECT_EQ(ComposeName("Count", "Long", kScopeModule, false, rules, Table()), "lngCount");
  rules = NamingRules();
  rules.const_tag_before_type_tag = false;
  EXPECT_EQ(ComposeName("Max", "Long", kScopeGlobal, true, rules, Table()), "glngcMax");
  rules = NamingRules();
  rules.set_picked_up_name_ucase = true;
  EXPECT_EQ(ComposeName("maxItems", "Long", kScopeLocal, true, rules, Table()), "clngMAXITEMS");
  EXPECT_EQ(ComposeName("maxItems", "Long", kScopeLocal, false, rules, Table()), "maxItems");
}

TEST(NamingTest, RulesComeFromTheValueTable) {
  ValueTable values;
  values.Set(Item::kPrefixModule, std::string(""));
  values.Set(Item::kAutoPrefixVariableName, std::string("1"));
  values.Set(Item::kConstTagBeforeTypeTag, false);
  const NamingRules rules = NamingRulesFrom(values);
  EXPECT_EQ(rules.prefix_module, "");
  EXPECT_EQ(rules.prefix_global, "g");
  EXPECT_EQ(rules.mode, AutoPrefixMode::kAlwaysAutoPrefix);
  EXPECT_FALSE(rules.const_tag_before_type_tag);
  EXPECT_EQ(AutoPrefixModeName(rules.mode), "Always Auto Prefix");
}

}  // namespace
}  // namespace tavrin::settings
