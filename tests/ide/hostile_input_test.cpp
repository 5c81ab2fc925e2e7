// Arbitrary input must never crash the in-memory IDE nor lose bytes.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::ide::memory {
namespace {

// Pieces of VB source that stress the parsers when thrown together.
const std::vector<std::string> kPieces = {
    "Sub ", "Function ", "Property Get ", "Property Let ", "End Sub", "End Property",
    "Private ", "Static ", "Begin VB.Form F", "Begin ", "End", "BeginProperty Font",
    "EndProperty", "Attribute ", "VERSION 5.00", "Object = x", " _", "_", "'", "Rem ",
    "\"", "\"\"", ":", "10 ", "Label:", "=", "Tabs = 3", "Tab = 9", "Caption = \"&A\"",
    "\r\n", "\n", "\r", " ", "\t", "x", "\xC3\xA9", "\xC3", "\x80", "\xFF", "(", ")",
};

std::string RandomSource(std::mt19937& random) {
  std::uniform_int_distribution<std::size_t> piece(0, kPieces.size() - 1);
  std::uniform_int_distribution<int> length(0, 60);
  std::string text;
  for (int i = length(random); i > 0; --i) text += kPieces[piece(random)];
  return text;
}

void Exercise(MemoryComponent& component) {
  auto module = component.CodeModule();
  const int count = module->CountOfLines();
  module->CountOfDeclarationLines();
  for (int line = 1; line <= count; ++line) {
    const ProcRef ref = module->ProcOfLine(line);
    if (ref.name.empty()) continue;
    EXPECT_GE(module->ProcStartLine(ref.name, ref.kind), 1);
    EXPECT_LE(module->ProcStartLine(ref.name, ref.kind) + module->ProcCountLines(ref.name, ref.kind) - 1,
              count);
  }
  for (const char* pattern : {"*", "[!a]?", "#", "x*_"}) {
    TextRange range{1, 1, -1, -1};
    module->Find(pattern, range, {.pattern_search = true});
  }
  if (auto designer = component.Designer()) {
    auto controls = designer->VBControls();
    for (int i = 1; i <= controls->Count(); ++i) {
      auto properties = controls->Item(i)->Properties();
      for (int k = 1; k <= properties->Count(); ++k) properties->Item(k)->Value();
    }
  }
}

TEST(MemoryHostileInputTest, RandomSourcesRoundTripAndAnswerEveryQuery) {
  std::mt19937 random(20240611);
  auto vbe = MemoryVbe::Create();
  auto project = vbe->AddProject("P");
  int loaded = 0;
  for (int i = 0; i < 2000; ++i) {
    const std::string bytes = RandomSource(random);
    for (const char* name : {"M.bas", "F.frm"}) {
      auto component = project->AddSourceFile(name, bytes);
      if (!component) continue;  // an unclosed designer block is refused
      ++loaded;
      ASSERT_EQ((*component)->SourceBytes(), bytes);
      Exercise(**component);
    }
  }
  EXPECT_GT(loaded, 1000);
}

TEST(MemoryHostileInputTest, RandomEditsKeepTheModuleConsistent) {
  std::mt19937 random(7);
  auto vbe = MemoryVbe::Create();
  auto project = vbe->AddProject("P");
  auto loaded = project->AddSourceFile("M.bas", RandomSource(random));
  while (!loaded) loaded = project->AddSourceFile("M.bas", RandomSource(random));
  auto component = *loaded;
  auto module = component->CodeModule();
  component->CodePane()->Show();
  std::uniform_int_distribution<int> action(0, 4);
  for (int i = 0; i < 3000; ++i) {
    const int count = module->CountOfLines();
    std::uniform_int_distribution<int> line(1, count + 2);
    try {
      switch (action(random)) {
        case 0: module->InsertLines(line(random), RandomSource(random)); break;
        case 1: module->ReplaceLine(line(random), RandomSource(random)); break;
        case 2: module->DeleteLines(line(random), 1 + action(random)); break;
        case 3:
          component->CodePane()->SetSelection({line(random), line(random), line(random), 1});
          vbe->SendKeys("ab{BS}{ENTER}{DEL}{LEFT}{TAB}");
          break;
        default: Exercise(*component); break;
      }
    } catch (const Error& error) {
      EXPECT_TRUE(error.number() == 5 || error.number() == 9) << error.what();
    }
    // What is saved loads back to the same bytes (unless the edits made a
    // header out of code, e.g. an unclosed Begin on the first line).
    const std::string bytes = component->SourceBytes();
    auto reloaded = project->AddSourceFile("M.bas", bytes);
    if (reloaded) {
      ASSERT_EQ((*reloaded)->SourceBytes(), bytes);
    }
  }
}

}  // namespace
}  // namespace tavrin::ide::memory
