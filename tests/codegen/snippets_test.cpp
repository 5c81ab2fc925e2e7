#include "codegen/snippets.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "codegen/code_line_snippets.h"

namespace tavrin::codegen {
namespace {

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitCrLf(text)) lines.emplace_back(line);
  return lines;
}

using LineList = std::vector<std::string>;

TEST(SnippetsTest, IfFamilyBlocks) {
  const struct {
    IfForm form;
    int else_ifs;
    LineList expected;
  } cases[] = {
      {IfForm::kIfThen, 0, {"  If Then", "      ", "  End If"}},
      {IfForm::kIfThenElse, 0, {"  If Then", "      ", "  Else", "      ", "  End If"}},
      {IfForm::kIfThenElseIf, 2,
       {"  If Then", "      ", "  ElseIf Then", "      ", "  ElseIf Then", "      ", "  End If"}},
      {IfForm::kIfThenElseIf, 0, {"  If Then", "      ", "  End If"}},
      {IfForm::kIfThenElseIfElse, 0, {"  If Then", "      ", "  Else", "      ", "  End If"}},
      {IfForm::kIfThenElseIfElse, 1,
       {"  If Then", "      ", "  ElseIf Then", "      ", "  Else", "      ", "  End If"}},
  };
  for (const auto& c : cases) {
    const std::string text = IfBlockText(c.form, "  ", "    ", c.else_ifs);
    EXPECT_EQ(Lines(text), c.expected);
    EXPECT_FALSE(text.ends_with("\r\n"));
  }
}

TEST(SnippetsTest, CommandNamesSelectTheIfForm) {
  EXPECT_EQ(IfFormOf("If Then"), IfForm::kIfThen);
  EXPECT_EQ(IfFormOf("If Then ElseIf Else"), IfForm::kIfThenElseIfElse);
  EXPECT_EQ(IfFormOf("if then"), std::nullopt);
  EXPECT_TRUE(AsksElseIfCount(IfForm::kIfThenElseIf));
  EXPECT_FALSE(AsksElseIfCount(IfForm::kIfThenElse));
}

TEST(SnippetsTest, LoopFamilyBlocksAndCaretOffsets) {
  const struct {
    std::string_view command;
    LineList expected;
    int caret_offset;
  } cases[] = {
      {"IfDoLoopWhile", {"    Do While", "        ", "    Loop"}, 9},
      {"IfDoLoopUntil", {"    Do Until", "        ", "    Loop"}, 9},
      {"ForEachNext", {"    For Each In", "        ", "    Next"}, 9},
      {"ForNext", {"    For To", "        ", "    Next"}, 4},
      {"While", {"    While", "        ", "    Wend"}, 6},
  };
  for (const auto& c : cases) {
    const LoopForm* form = LoopFormOf(c.command);
    ASSERT_NE(form, nullptr) << c.command;
    EXPECT_EQ(Lines(LoopBlockText(*form, "    ", "    ")), c.expected) << c.command;
    EXPECT_EQ(form->caret_offset, c.caret_offset) << c.command;
  }
  EXPECT_EQ(LoopFormOf("Do Loop"), nullptr);
}

TEST(SnippetsTest, WithBlock) {
  EXPECT_EQ(Lines(WithBlockText("rs.Fields", "        ", "  ")),
            (LineList{"        With rs.Fields", "          ", "        End With"}));
}

TEST(SnippetsTest, EveryNamedCommandHasABuilder) {
  for (std::string_view name : SnippetCommandNames())
    EXPECT_TRUE(IfFormOf(name) || LoopFormOf(name) || name == "With" ||
                SelectCaseFormOf(name) || LineCommandOf(name) || name == "Exit" ||
                name == "ErrorHandling")
        << name;
}

}  // namespace
}  // namespace tavrin::codegen
