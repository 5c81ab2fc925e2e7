#include "transform/explicit_arguments.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace tavrin::transform {
namespace {

// Procedures known by name: Foo(Name, Other, Optional Third), Twice(n%),
// Log(ParamArray items()); "Data.Save(id)" only with its module named.
std::optional<std::vector<scan::C4_ProcArgument>> Known(const CalledName& called) {
  std::vector<std::string> declared;
  if (called.name == "Foo") declared = {"Name", "Other", "Optional Third = 3"};
  else if (called.name == "Twice") declared = {"n%"};
  else if (called.name == "Log") declared = {"Level", "ParamArray items()"};
  else if (called.name == "Save" && called.qualifier != "x") declared = {"id"};
  else if (called.name == "Tick") declared = {};
  else return std::nullopt;
  std::vector<scan::C4_ProcArgument> arguments;
  for (const std::string& text : declared) {
    arguments.emplace_back();
    arguments.back().init(text);
  }
  return arguments;
}

std::string Rewrite(std::string_view code, int line, int column) {
  const auto result = ExplicitArguments(SplitCrLf(code), line, column, Known);
  if (!result) return "! " + result.error();
  return result->text + " @" + std::to_string(result->caret_line) + ":" +
         std::to_string(result->caret_column);
}

TEST(ExplicitArgumentsTest, NamesTheArgumentsOfTheCallAtTheCaret) {
  const struct {
    std::string code;
    int line, column;
    std::string expected;
  } cases[] = {
      {"    Foo a, b", 1, 5, "    Foo Name:=a, Other:=b @1:5"},
      {"Foo a, , c", 1, 1, "Foo Name:=a, Third:=c @1:1"},
      {"Foo , b", 1, 7, "Foo Other:=b @1:5"},
      {"x = Foo(a, b)", 1, 1, "x = Foo(Name:=a, Other:=b) @1:1"},
      {"Call Foo(a, Other:=b)", 1, 11, "Call Foo(Name:=a, Other:=b) @1:17"},
      {"Set y = Data.Save(7)", 1, 1, "Set y = Data.Save(id:=7) @1:1"},
      {"obj.Save a ' Foo x", 1, 1, "obj.Save id:=a ' Foo x @1:1"},
      {"  .Save a", 1, 3, "  .Save id:=a @1:3"},
      {"Foo (a), Twice(b)", 1, 16, "Foo (a), Twice(n:=b) @1:16"},
      {"Foo (a), Twice(b)", 1, 2, "Foo Name:=(a), Other:=Twice(b) @1:2"},
      {"x = Len(Twice(2)) + Len(\"Foo(1)\")", 1, 1, "x = Len(Twice(n:=2)) + Len(\"Foo(1)\") @1:1"},
      {"If Twice(a) Then Foo b, c", 1, 22, "If Twice(a) Then Foo Name:=b, Other:=c @1:22"},
      {"x = 1: Foo a, b", 1, 2, "! The called procedure is missing"},
      {"10 Foo a, Mid(s, 1)", 1, 12, "10 Foo Name:=a, Other:=Mid(s, 1) @1:25"},
      {"Foo a, _\r\n    b, _\r\n    c", 2, 5,
       "Foo Name:=a, _\r\n    Other:=b, _\r\n    Third:=c @2:5"},
      {"Foo a, _\r\n    , c", 2, 1, "Foo Name:=a _\r\n    , Third:=c @2:1"},
      {"Log 1, 2", 1, 1, "! The values of Log's ParamArray items cannot be named."},
      {"Twice 1, 2", 1, 1, "! Too many arguments: Twice takes 1."},
      {"Tick", 1, 1, "! Tick is called without arguments: there is nothing to name."},
      {"x.Save 1", 1, 1, "! The called procedure is missing"},
      {"x(1) = Bar(2)", 1, 1, "! The called procedure is missing"},
  };
  for (const auto& c : cases) EXPECT_EQ(Rewrite(c.code, c.line, c.column), c.expected) << c.code;
}

TEST(ExplicitArgumentsTest, RewritingTwiceChangesNothingMore) {
  // Again at the caret the first run left; nested and unclosed calls, where
  // dropping a trailing comma puts the caret at the end of an inner call.
  const struct {
    std::string code;
    int column;
  } cases[] = {{"Foo a, , c", 1}, {"x = Foo(a, _\r\n  b)", 1}, {"x = Twice(Twice(2), ", 21},
               {"Foo Twice(2), ", 15}};
  for (const auto& [code, column] : cases) {
    const auto once = ExplicitArguments(SplitCrLf(code), 1, column, Known);
    ASSERT_TRUE(once) << code;
    const auto twice =
        ExplicitArguments(SplitCrLf(once->text), once->caret_line, once->caret_column, Known);
    ASSERT_TRUE(twice);
    EXPECT_EQ(twice->text, once->text);
  }
}

}  // namespace
}  // namespace tavrin::transform
