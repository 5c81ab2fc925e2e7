#include "ide/memory/memory_code_module.h"

#include <gtest/gtest.h>

#include <functional>
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

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
  std::shared_ptr<MemoryComponent> component_;
};

TEST_F(MemoryCodeModuleTest, LinesJoinsWithCrLfAndReadsNothingPastTheEnd) {
  auto module = Module("a\nb\nc");
  const struct {
    int start, count;
    std::string expected;
  } cases[] = {{1, 3, "a\r\nb\r\nc"}, {2, 1, "b"}, {2, 0, ""}, {3, 5, "c"}, {4, 1, ""},
               {10, 2, ""}};
  for (const auto& c : cases) EXPECT_EQ(module->Lines(c.start, c.count), c.expected) << c.start;
}

TEST_F(MemoryCodeModuleTest, EditsSplitAtEveryLineBreak) {
  using Edit = std::function<void(ICodeModule&)>;
  const struct {
    const char* label;
    const char* code;
    Edit edit;
    Lines expected;
  } cases[] = {
      {"insert: every kind of break", "first\nlast", [](auto& m) { m.InsertLines(2, "a\r\nb\nc\rd"); },
       {"first", "a", "b", "c", "d", "last"}},
      {"insert: empty text is one empty line", "x\ny", [](auto& m) { m.InsertLines(1, ""); },
       {"", "x", "y"}},
      {"insert: a trailing break is an empty line", "x\ny",
       [](auto& m) { m.InsertLines(2, "a\r\n"); }, {"x", "a", "", "y"}},
      {"insert: Count + 1 appends", "x\ny", [](auto& m) { m.InsertLines(3, "z"); },
       {"x", "y", "z"}},
      {"insert: far past the end appends", "x\ny", [](auto& m) { m.InsertLines(99, "z"); },
       {"x", "y", "z"}},
      {"replace: breaks make several lines", "a\nb\nc",
       [](auto& m) { m.ReplaceLine(2, "x\r\ny"); }, {"a", "x", "y", "c"}},
      {"delete a range, then one line", "a\nb\nc\nd",
       [](auto& m) {
         m.DeleteLines(2, 2);
         m.DeleteLines(2);
       },
       {"a"}},
  };
  for (const auto& c : cases) {
    auto module = Module(c.code);
    c.edit(*module);
    EXPECT_EQ(testing::CodeLines(*module), c.expected) << c.label;
  }
}

TEST_F(MemoryCodeModuleTest, OutOfRangeArgumentsRaiseAndChangeNothing) {
  auto module = Module("a\nb");
  const struct {
    const char* label;
    std::function<void()> action;
    int error;
  } cases[] = {
      {"Lines from 0", [&] { module->Lines(0, 1); }, 5},
      {"Lines of -1", [&] { module->Lines(1, -1); }, 5},
      {"InsertLines at 0", [&] { module->InsertLines(0, "x"); }, 5},
      {"ReplaceLine 0", [&] { module->ReplaceLine(0, "x"); }, 9},
      {"ReplaceLine past the end", [&] { module->ReplaceLine(3, "x"); }, 9},
      {"DeleteLines from 0", [&] { module->DeleteLines(0, 1); }, 9},
      {"DeleteLines past the end", [&] { module->DeleteLines(2, 2); }, 9},
      {"DeleteLines of 0", [&] { module->DeleteLines(1, 0); }, 9},
      {"DeleteLines after the last", [&] { module->DeleteLines(3, 1); }, 9},
  };
  for (const auto& c : cases) EXPECT_EQ(testing::IdeErrorNumber(c.action), c.error) << c.label;
  EXPECT_EQ(testing::CodeLines(*module), (Lines{"a", "b"}));
}

TEST_F(MemoryCodeModuleTest, InsertIntoEmptyModule) {
  auto module = Module("");
  EXPECT_EQ(module->CountOfLines(), 0);
  module->InsertLines(1, "Option Explicit");
  EXPECT_EQ(component_->SourceBytes(), "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n");
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

// A match, or "none" with the range left as it was.
TEST_F(MemoryCodeModuleTest, FindTable) {
  const TextRange kAll{1, 1, -1, -1};
  const TextRange kNone{0, 0, 0, 0};
  const std::string pattern_code =
      "x = 12: y = Mid$(s, 3)\nLabel7: GoTo Label7\n' [note] caf\xC3\xA9!";
  const FindOptions like{.pattern_search = true};
  const struct {
    std::string code, target;
    TextRange range;
    FindOptions options;
    TextRange match;  // kNone: not found
  } cases[] = {
      {"Dim a\n  x = \"<cursor>\"\nEnd", "<cursor>", kAll, {}, {2, 8, 2, 16}},
      // Columns count characters, not bytes.
      {"' Caf\xC3\xA9 cr\xC3\xA8me x", "x", kAll, {}, {1, 14, 1, 15}},
      {"' Caf\xC3\xA9 cr\xC3\xA8me x", "cr\xC3\xA8me", kAll, {}, {1, 8, 1, 13}},
      {"abc", "zzz", {1, 2, 1, 3}, {}, kNone},
      // The range bounds the search.
      {"ab ab\nab\nab ab", "ab", {1, 2, -1, -1}, {}, {1, 4, 1, 6}},
      {"ab ab\nab\nab ab", "ab", {1, 5, -1, -1}, {}, {2, 1, 2, 3}},
      {"ab ab\nab\nab ab", "ab", {3, 1, 3, 2}, {}, kNone},  // ends before the match ends
      {"ab ab\nab\nab ab", "ab", {3, 1, 3, 3}, {}, {3, 1, 3, 3}},  // end one past the match
      {"ab ab\nab\nab ab", "ab", {3, 2, 3, 99}, {}, {3, 4, 3, 6}},
      {"ab ab\nab\nab ab", "ab", {2, 1, 99, 1}, {}, {2, 1, 2, 3}},  // end line past the end
      {"ab ab\nab\nab ab", "ab", {4, 1, -1, -1}, {}, kNone},
      // Case and whole words.
      {"Dim Total, SubTotal, total_x\ntotal = 1", "total", kAll, {}, {1, 5, 1, 10}},
      {"Dim Total, SubTotal, total_x\ntotal = 1", "total", kAll, {.match_case = true},
       {1, 22, 1, 27}},
      {"Dim Total, SubTotal, total_x\ntotal = 1", "total", kAll,
       {.whole_word = true, .match_case = true}, {2, 1, 2, 6}},
      {"Caf\xC3\xA9 Caf", "Caf", kAll, {.whole_word = true}, {1, 6, 1, 9}},
      // Never across lines.
      {"ab\ncd", "b\r\nc", kAll, {}, kNone},
      {"ab\ncd", "bc", kAll, {}, kNone},
      {"ab", "", kAll, {}, kNone},
      // Like wildcards.
      {pattern_code, "##", kAll, like, {1, 5, 1, 7}},
      {pattern_code, "M?d$", kAll, like, {1, 13, 1, 17}},
      {pattern_code, "(*)", kAll, like, {1, 17, 1, 23}},
      {pattern_code, "y*)", kAll, like, {1, 9, 1, 23}},
      {pattern_code, "Label#", kAll, {.whole_word = true, .pattern_search = true}, {2, 1, 2, 7}},
      {pattern_code, "[!a-z ]abel", kAll, {.match_case = true, .pattern_search = true},
       {2, 1, 2, 6}},
      {pattern_code, "[[]note]", kAll, like, {3, 3, 3, 9}},
      {pattern_code, "caf?!", kAll, like, {3, 10, 3, 15}},
      {pattern_code, "GOTO", kAll, like, {2, 9, 2, 13}},
      {pattern_code, "GOTO", kAll, {.match_case = true, .pattern_search = true}, kNone},
      {pattern_code, "[abc", kAll, like, kNone},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.code + " / " + c.target);
    auto module = Module(c.code);
    TextRange range = c.range;
    const bool found = c.match != kNone;
    EXPECT_EQ(module->Find(c.target, range, c.options), found);
    EXPECT_EQ(range, found ? c.match : c.range);
  }
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
  EXPECT_EQ(testing::CodeLines(*module), (Lines{"ab", "c", "d"}));
}

}  // namespace
}  // namespace tavrin::ide::memory
