#include "builders/literal.h"

#include <gtest/gtest.h>

namespace tavrin::builders {
namespace {

TEST(LiteralTest, ValuesBecomeTheTypesLiteralOrAreRefused) {
  const struct {
    std::string value, type, literal;  // "" literal: refused
  } rows[] = {
      {"Stock", "String", "\"Stock\""},
      {"say \"hi\"", "String", "\"say \"\"hi\"\"\""},
      {"\"already\"", "String", "\"already\""},
      {"", "String", "\"\""},
      {"12/31/2026", "Date", "#12/31/2026#"},
      {"#1/2/2026 10:30 PM#", "Date", "#1/2/2026 10:30 PM#"},
      {"tomorrow", "Date", ""},
      {"true", "Boolean", "True"},
      {"yes", "Boolean", ""},
      {"255", "Byte", "255"},
      {"256", "Byte", ""},
      {"-1", "Byte", ""},
      {"&HFF", "Byte", "&HFF"},
      {"-32768", "Integer", "-32768"},
      {"32768", "Integer", ""},
      {"&HFFFF", "Integer", "&HFFFF"},
      {"2147483647", "Long", "2147483647"},
      {"2147483648", "Long", ""},
      {"1.5", "Long", ""},
      {"1.5E+40", "Single", ""},
      {"1.5E+40", "Double", "1.5E+40"},
      {"-0.25", "Single", "-0.25"},
      {"1234.5678", "Currency", "1234.5678"},
      {"1E3", "Currency", ""},
      {"abc", "Double", ""},
      {"", "Long", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.type + " " + row.value);
    const Literal literal = LiteralFor(row.value, row.type);
    EXPECT_EQ(literal.text, row.literal);
    EXPECT_EQ(literal.problem.empty(), !row.literal.empty());
  }
  EXPECT_EQ(LiteralFor("256", "Byte").problem, "The value 256 does not fit the type Byte.");
}

TEST(LiteralTest, PickedUpLiteralsSuggestATypeAndAName) {
  const struct {
    std::string literal, type, name;
  } rows[] = {
      {"\"max file size\"", "String", "MaxFileSize"},
      {"\"C:\\Temp\\log.txt\"", "String", "CTempLogTxt"},
      {"\"2 items\"", "String", "Items"},
      {"#1/2/2026#", "Date", ""},
      {"False", "Boolean", "False"},
      {"42", "Long", ""},
      {"4200000000", "Double", ""},
      {"3.14", "Double", ""},
      {"x + 1", "", "X1"},
      {"\"unclosed", "", "Unclosed"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.literal);
    EXPECT_EQ(LiteralType(row.literal), row.type);
    EXPECT_EQ(NameFromLiteral(row.literal), row.name);
  }
}

}  // namespace
}  // namespace tavrin::builders
