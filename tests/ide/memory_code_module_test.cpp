#include "ide/memory/memory_code_module.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/code_lines.h"
#include "tests/support/ide_error.h"

namespace tavrin::ide::memory {
namespace {

using Lines = std::vector<std::string>;

class MemoryCodeModuleTest : public ::testing::Test {
 protected:
  std::shared_ptr<ICodeModule> Module(std::string_view code) {
    component_ = vbe_->AddProject("Project1")->AddComponent(ComponentType::kStdModule, "Module1",
                                                            code);
    return component_->CodeModule();
  }

  Lines All(ICodeModule& module) { return testing::CodeLines(module); }


  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<MemoryComponent> component_;
};

TEST_F(MemoryCodeModuleTest, LinesJoinsWithCrLfWithoutATrailingBreak) {
  auto module = Module("a\nb\nc");
  EXPECT_EQ(module->Lines(1, 3), "a\r\nb\r\nc");
  EXPECT_EQ(module->Lines(2, 1), "b");
  EXPECT_EQ(module->Lines(2, 0), "");
}

TEST_F(MemoryCodeModuleTest, LinesPastTheEndReadAsNothing) {
  auto module = Module("a\nb");
  EXPECT_EQ(module->Lines(2, 5), "b");
  EXPECT_EQ(module->Lines(3, 1), "");
  EXPECT_EQ(module->Lines(10, 2), "");
}

TEST_F(MemoryCodeModuleTest, LinesRejectsStartBelowOneAndNegativeCount) {
  auto module = Module("a");
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->Lines(0, 1); }), 5);
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->Lines(1, -1); }), 5);
}

TEST_F(MemoryCodeModuleTest, InsertLinesSplitsAtEveryKindOfLineBreak) {
  auto module = Module("first\nlast");
  module->InsertLines(2, "a\r\nb\nc\rd");
  EXPECT_EQ(All(*module), (Lines{"first", "a", "b", "c", "d", "last"}));
}

TEST_F(MemoryCodeModuleTest, InsertLinesEdgeCases) {
  struct Case {
    const char* label;
    int line;
    const char* text;
    Lines expected;
  };
  const Case cases[] = {
      {"empty text inserts one empty line", 1, "", {"", "x", "y"}},
      {"trailing break inserts an empty line", 2, "a\r\n", {"x", "a", "", "y"}},
      {"Count + 1 appends", 3, "z", {"x", "y", "z"}},
      {"far past the end appends", 99, "z", {"x", "y", "z"}},
  };
  for (const auto& test : cases) {
    auto module = Module("x\ny");
    module->InsertLines(test.line, test.text);
    EXPECT_EQ(All(*module), test.expected) << test.label;
  }
  auto module = Module("x");
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->InsertLines(0, "a"); }), 5);
}

TEST_F(MemoryCodeModuleTest, InsertIntoEmptyModule) {
  auto module = Module("");
  EXPECT_EQ(module->CountOfLines(), 0);
  module->InsertLines(1, "Option Explicit");
  EXPECT_EQ(All(*module), (Lines{"Option Explicit"}));
  EXPECT_EQ(component_->SourceBytes(), "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n");
}

TEST_F(MemoryCodeModuleTest, ReplaceLineWithBreaksBecomesSeveralLines) {
  auto module = Module("a\nb\nc");
  module->ReplaceLine(2, "x\r\ny");
  EXPECT_EQ(All(*module), (Lines{"a", "x", "y", "c"}));
}

TEST_F(MemoryCodeModuleTest, ReplaceLineOutsideTheModuleIsOutOfRange) {
  auto module = Module("a");
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->ReplaceLine(0, "x"); }), 9);
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->ReplaceLine(2, "x"); }), 9);
}

TEST_F(MemoryCodeModuleTest, DeleteLinesRemovesARange) {
  auto module = Module("a\nb\nc\nd");
  module->DeleteLines(2, 2);
  EXPECT_EQ(All(*module), (Lines{"a", "d"}));
  module->DeleteLines(2);
  EXPECT_EQ(All(*module), (Lines{"a"}));
}

TEST_F(MemoryCodeModuleTest, DeleteLinesRangeMustLieInTheModule) {
  auto module = Module("a\nb");
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->DeleteLines(0, 1); }), 9);
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->DeleteLines(2, 2); }), 9);
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->DeleteLines(1, 0); }), 9);
  EXPECT_EQ(testing::IdeErrorNumber([&] { module->DeleteLines(3, 1); }), 9);
  EXPECT_EQ(All(*module), (Lines{"a", "b"}));
}

TEST_F(MemoryCodeModuleTest, HiddenAttributeStaysWithItsReplacedLineAndGoesWithItsDeletedLine) {
  auto project = vbe_->AddProject("P");
  auto component =
      project
          ->AddSourceFile("C.cls",
                          "Attribute VB_Name = \"C\"\r\nPublic Property Get Value() As Long\r\n"
                          "Attribute Value.VB_UserMemId = 0\r\n    Value = 1\r\nEnd Property\r\n")
          .value();
  auto module = component->CodeModule();
  module->ReplaceLine(1, "Public Property Get Value() As Integer");
  EXPECT_EQ(component->SourceBytes(),
            "Attribute VB_Name = \"C\"\r\nPublic Property Get Value() As Integer\r\n"
            "Attribute Value.VB_UserMemId = 0\r\n    Value = 1\r\nEnd Property\r\n");
  module->DeleteLines(1, 3);
  EXPECT_EQ(component->SourceBytes(), "Attribute VB_Name = \"C\"\r\n");
}

// Find ---------------------------------------------------------------------

TEST_F(MemoryCodeModuleTest, FindSetsTheRangeToTheMatch) {
  auto module = Module("Dim a\n  x = \"<cursor>\"\nEnd");
  TextRange range{1, 1, -1, -1};
  ASSERT_TRUE(module->Find("<cursor>", range));
  EXPECT_EQ(range, (TextRange{2, 8, 2, 16}));
}

TEST_F(MemoryCodeModuleTest, FindCountsColumnsInCharacters) {
  auto module = Module("' Caf\xC3\xA9 cr\xC3\xA8me x");
  TextRange range{1, 1, -1, -1};
  ASSERT_TRUE(module->Find("x", range));
  EXPECT_EQ(range, (TextRange{1, 14, 1, 15}));
  range = {1, 1, -1, -1};
  ASSERT_TRUE(module->Find("cr\xC3\xA8me", range));
  EXPECT_EQ(range, (TextRange{1, 8, 1, 13}));
}

TEST_F(MemoryCodeModuleTest, FindFailureLeavesTheRangeUnchanged) {
  auto module = Module("abc");
  TextRange range{1, 2, 1, 3};
  EXPECT_FALSE(module->Find("zzz", range));
  EXPECT_EQ(range, (TextRange{1, 2, 1, 3}));
}

TEST_F(MemoryCodeModuleTest, FindHonoursTheRange) {
  auto module = Module("ab ab\nab\nab ab");
  struct Case {
    TextRange range;
    bool found;
    TextRange match;
  };
  const Case cases[] = {
      {{1, 2, -1, -1}, true, {1, 4, 1, 6}},
      {{1, 5, -1, -1}, true, {2, 1, 2, 3}},
      {{3, 1, 3, 2}, false, {}},         // ends before the match ends
      {{3, 1, 3, 3}, true, {3, 1, 3, 3}},  // end column is one past the match
      {{3, 2, 3, 99}, true, {3, 4, 3, 6}},
      {{2, 1, 99, 1}, true, {2, 1, 2, 3}},  // end line past the end: to the end
      {{4, 1, -1, -1}, false, {}},
  };
  for (const auto& test : cases) {
    TextRange range = test.range;
    EXPECT_EQ(module->Find("ab", range), test.found)
        << test.range.start_line << ":" << test.range.start_column;
    if (test.found) {
      EXPECT_EQ(range, test.match);
    }
  }
}

TEST_F(MemoryCodeModuleTest, FindMatchCaseAndWholeWord) {
  auto module = Module("Dim Total, SubTotal, total_x\ntotal = 1");
  TextRange range{1, 1, -1, -1};
  ASSERT_TRUE(module->Find("total", range));
  EXPECT_EQ(range, (TextRange{1, 5, 1, 10}));

  range = {1, 1, -1, -1};
  ASSERT_TRUE(module->Find("total", range, {.match_case = true}));
  EXPECT_EQ(range, (TextRange{1, 22, 1, 27}));

  range = {1, 1, -1, -1};
  ASSERT_TRUE(module->Find("total", range, {.whole_word = true, .match_case = true}));
  EXPECT_EQ(range, (TextRange{2, 1, 2, 6}));
}

TEST_F(MemoryCodeModuleTest, WholeWordTakesAccentedLettersAsLetters) {
  auto module = Module("Caf\xC3\xA9 Caf");
  TextRange range{1, 1, -1, -1};
  ASSERT_TRUE(module->Find("Caf", range, {.whole_word = true}));
  EXPECT_EQ(range, (TextRange{1, 6, 1, 9}));
}

TEST_F(MemoryCodeModuleTest, FindNeverSpansLines) {
  auto module = Module("ab\ncd");
  TextRange range{1, 1, -1, -1};
  EXPECT_FALSE(module->Find("b\r\nc", range));
  EXPECT_FALSE(module->Find("bc", range));
}

TEST_F(MemoryCodeModuleTest, PatternSearchUsesLikeWildcards) {
  auto module = Module("x = 12: y = Mid$(s, 3)\nLabel7: GoTo Label7\n' [note] caf\xC3\xA9!");
  struct Case {
    const char* pattern;
    FindOptions options;
    TextRange match;
  };
  const Case cases[] = {
      {"##", {.pattern_search = true}, {1, 5, 1, 7}},
      {"M?d$", {.pattern_search = true}, {1, 13, 1, 17}},
      {"(*)", {.pattern_search = true}, {1, 17, 1, 23}},
      {"y*)", {.pattern_search = true}, {1, 9, 1, 23}},
      {"Label#", {.whole_word = true, .pattern_search = true}, {2, 1, 2, 7}},
      {"[!a-z ]abel", {.match_case = true, .pattern_search = true}, {2, 1, 2, 6}},
      {"[[]note]", {.pattern_search = true}, {3, 3, 3, 9}},
      {"caf?!", {.pattern_search = true}, {3, 10, 3, 15}},
      {"GOTO", {.pattern_search = true}, {2, 9, 2, 13}},
  };
  for (const auto& test : cases) {
    TextRange range{1, 1, -1, -1};
    ASSERT_TRUE(module->Find(test.pattern, range, test.options)) << test.pattern;
    EXPECT_EQ(range, test.match) << test.pattern;
  }
  TextRange range{1, 1, -1, -1};
  EXPECT_FALSE(module->Find("GOTO", range, {.match_case = true, .pattern_search = true}));
  EXPECT_FALSE(module->Find("[abc", range, {.pattern_search = true}));
  EXPECT_FALSE(module->Find("", range));
}

TEST_F(MemoryCodeModuleTest, FindLoopRemovesEveryMarker) {
  auto module = Module("a<cursor>b\nc\nd<cursor>");
  TextRange range{1, 1, -1, -1};
  int found = 0;
  while (module->Find("<cursor>", range)) {
    const std::string line = module->Lines(range.start_line, 1);
    module->ReplaceLine(range.start_line,
                        line.substr(0, range.start_column - 1) + line.substr(range.end_column - 1));
    range = {range.start_line, range.start_column, -1, -1};
    ++found;
  }
  EXPECT_EQ(found, 2);
  EXPECT_EQ(All(*module), (Lines{"ab", "c", "d"}));
}

}  // namespace
}  // namespace tavrin::ide::memory
