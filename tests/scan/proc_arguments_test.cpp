#include "scan/proc_arguments.h"

#include <gtest/gtest.h>

namespace tavrin::scan {
namespace {

struct Expected {
  std::string name;
  std::string passed_by;
  bool optional = false;
  bool by_val = false;
  bool param_array = false;
  bool array = false;
  std::string type;
  std::string default_value;
};

TEST(ProcArgumentTest, Table) {
  const struct {
    std::string text;
    Expected expected;
  } cases[] = {
      {"a", {"a", "ByRef", false, false, false, false, "Variant", ""}},
      {"ByVal w As Double", {"w", "ByVal", false, true, false, false, "Double", ""}},
      {"ByRef w As Double", {"w", "ByRef", false, false, false, false, "Double", ""}},
      {"Optional h As Double = 1", {"h", "ByRef", true, false, false, false, "Double", "1"}},
      {"Optional ByVal s As String = \"a, b\"",
       {"s", "ByVal", true, true, false, false, "String", "\"a, b\""}},
      {"ParamArray items() As Variant", {"items", "ByRef", false, false, true, true, "Variant", ""}},
      {"s$", {"s$", "ByRef", false, false, false, false, "Variant", ""}},
      {"a() As Long", {"a", "ByRef", false, false, false, true, "Long", ""}},
      {"a(1 To 3) As Long", {"a", "ByRef", false, false, false, true, "Long", ""}},
      {"x = 5", {"x", "ByRef", false, false, false, false, "Variant", "5"}},
      {"Optional x", {"x", "ByRef", true, false, false, false, "Variant", ""}},
      // Kept on purpose: the prefix words need no blank after them ...
      {"ByValue As Long", {"ue", "ByVal", false, true, false, false, "Long", ""}},
      {"Optionality As Long", {"ity", "ByRef", true, false, false, false, "Long", ""}},
      // ... and a one-character default right after "=" is dropped.
      {"x As Long=5", {"x", "ByRef", false, false, false, false, "Long", ""}},
      {"x As Long = 5", {"x", "ByRef", false, false, false, false, "Long", "5"}},
      {"x As Long=55", {"x", "ByRef", false, false, false, false, "Long", "55"}},
      // Short texts: "ByVal" alone is a name, "Optional" alone too.
      {"ByVal", {"ByVal", "ByRef", false, false, false, false, "Variant", ""}},
      {"Optional", {"Optional", "ByRef", false, false, false, false, "Variant", ""}},
      // An array without ")" keeps its text, whose first two characters
      // stand where "As" would.
      {"a(1 As Long", {"a", "ByRef", false, false, false, true, "As Long", ""}},
      {"", {"", "", false, false, false, false, "", ""}},
      {"x A", {"x", "ByRef", false, false, false, false, "", ""}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    C4_ProcArgument argument;
    argument.init(c.text);
    EXPECT_EQ(argument.ArgDef, c.text);
    EXPECT_EQ(argument.Name, c.expected.name);
    EXPECT_EQ(argument.PassedBy, c.expected.passed_by);
    EXPECT_EQ(argument.IsOptional, c.expected.optional);
    EXPECT_EQ(argument.IsPassedByVal, c.expected.by_val);
    EXPECT_EQ(argument.IsParamArray, c.expected.param_array);
    EXPECT_EQ(argument.IsArray, c.expected.array);
    EXPECT_EQ(argument.Type_, c.expected.type);
    EXPECT_EQ(argument.DefaultValue, c.expected.default_value);
    EXPECT_FALSE(argument.IsEnum);
  }
}

TEST(ProcArgumentsTest, ListsAndNameLists) {
  const struct {
    std::string declaration;
    std::string arg_list_text;
    std::string name_list;
  } cases[] = {
      {"Sub X()", "", ""},
      // One character between the parentheses gives nothing (kept on purpose).
      {"Sub X(a)", "", ""},
      {"Sub X(ab)", "ab", "ab"},
      {"Function Area(ByVal w As Double, Optional h As Double = 1) As Double",
       "ByVal w As Double, Optional h As Double = 1", "w, [h]"},
      {"Sub X(a, Optional b, Optional c)", "a, Optional b, Optional c", "a, [b], [c]"},
      // Quoted parentheses and commas do not count.
      {"Sub X(Optional s = \"(,)\", t)", "Optional s = \"(,)\", t", "[s], t"},
      {"Sub X(\"(\")", "\"(\"", "\""},
      // A trailing comma gives an argument with an empty name.
      {"Sub X(a, )", "a, ", "a, "},
      {"Sub X", "", ""},
      {"Sub X(", "", ""},
      {"Sub X)(", "", ""},
      {"", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.declaration);
    C4_ProcArguments arguments;
    ASSERT_TRUE(arguments.init(c.declaration));
    EXPECT_EQ(arguments.ArgListText(), c.arg_list_text);
    EXPECT_EQ(arguments.ArgNameList(), c.name_list);
  }
}

TEST(ProcArgumentsTest, CommasInsideParenthesesSplitToo) {
  C4_ProcArguments arguments;
  ASSERT_TRUE(arguments.init("Sub X(a(1, 2) As Long)"));
  ASSERT_EQ(arguments.Count(), 2);
  EXPECT_EQ(arguments.Item(1).Name, "a");
  EXPECT_EQ(arguments.Item(2).Name, "2)");
}

TEST(ProcArgumentsTest, ADuplicateNameIsAnErrorAndKeepsTheArgumentsBefore) {
  const std::pair<std::string, int> cases[] = {
      {"Sub X(a, b, A)", 2}, {"Sub X(a, b, a As Long)", 2}, {"Sub X(,, x)", 1}};
  for (const auto& [declaration, kept] : cases) {
    SCOPED_TRACE(declaration);
    C4_ProcArguments arguments;
    const Status status = arguments.init(declaration);
    EXPECT_FALSE(status);
    EXPECT_NE(status.error().find("used twice"), std::string::npos);
    EXPECT_EQ(arguments.Count(), kept);
  }
}

TEST(ProcArgumentsTest, FindIgnoresCase) {
  C4_ProcArguments arguments;
  ASSERT_TRUE(arguments.init("Sub X(Count As Long, b)"));
  ASSERT_NE(arguments.Find("COUNT"), nullptr);
  EXPECT_EQ(arguments.Find("count")->Type_, "Long");
  EXPECT_EQ(arguments.Find("c"), nullptr);
}

}  // namespace
}  // namespace tavrin::scan
