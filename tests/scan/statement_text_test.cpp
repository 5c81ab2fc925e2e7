#include "scan/statement_text.h"

#include <gtest/gtest.h>

namespace tavrin::scan {
namespace {

using Pieces = std::vector<std::string>;

TEST(SplitStatementsTest, Table) {
  const struct {
    std::string text;
    Pieces expected;
  } cases[] = {
      {"", {""}},
      {"  x = 1  ", {"x = 1"}},
      // Without ": " the comment stays.
      {"Public Sub Go() ' start", {"Public Sub Go() ' start"}},
      {"a:b", {"a:b"}},
      {"Public Sub Go() ' start: here", {"Public Sub Go()"}},
      {"a = 1: b = 2", {"a = 1", "b = 2"}},
      {"a = 1: b = 2:", {"a = 1", "b = 2"}},
      {"a: : b", {"a", "", "b"}},
      {"x = \"a: b\": y = 'c'", {"x = \"a: b\"", "y ="}},
      {"x = \"it's: here\"", {"x = \"it's: here\""}},
      {"' comment: only", {""}},
      // An unbalanced quote swallows the rest.
      {"x = \"a: b", {"x = \"a: b"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(SplitStatements(c.text), c.expected);
  }
}

TEST(ProcNameFromDeclTest, Table) {
  const struct {
    std::string text;
    std::string expected;
  } cases[] = {
      {"Public Function Foo (x)", "Foo"}, {"Sub Go()", "Go"},
      {"Sub  Go(a)", "Go"},               {"Sub Go", ""},
      {"", ""},                           {"(x)", ""},
      {"Function Count%(s$)", "Count%"},  {"Sub A(b(1))", "A"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(ProcNameFromDecl(c.text), c.expected);
  }
}

TEST(TypeFromTypeCharTest, EveryCharacterAndOthers) {
  const std::pair<char, std::string> cases[] = {
      {'!', "Single"}, {'#', "Double"}, {'$', "String"}, {'%', "Integer"},
      {'&', "Long"},   {'@', "Currency"}, {'x', ""},     {'\0', ""}};
  for (const auto& [c, expected] : cases) EXPECT_EQ(TypeFromTypeChar(c), expected) << c;
}

}  // namespace
}  // namespace tavrin::scan
