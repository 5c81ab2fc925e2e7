// Random declarations and modules never crash the parser or the scanner, and
// what they answer holds together.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "base/text.h"
#include "scan/module_scanner.h"

namespace tavrin::scan {
namespace {

const std::vector<std::string> kPieces = {
    "Public ", "Private ", "Friend ", "Static ", "Sub ", "Function ", "Property Get ",
    "Property Let ", "End Sub", "End Function", "End Property", "Declare ", "Optional ",
    "ByVal ", "ByRef ", "ParamArray ", "As ", "Long", "String", "=", " = ", "\"", ",", "(",
    ")", "()", ") As ", " _", "_", "\r\n", ":", ": ", "'", "x", "Name", "%", "$", "&",
    "\xC3\xA9", " ", "\t",
};

std::string RandomText(std::mt19937& random, int max_pieces) {
  std::uniform_int_distribution<std::size_t> piece(0, kPieces.size() - 1);
  std::uniform_int_distribution<int> length(0, max_pieces);
  std::string text;
  for (int i = length(random); i > 0; --i) text += kPieces[piece(random)];
  return text;
}

TEST(RandomDeclarationTest, LibraryTextsHoldTogether) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 3000; ++round) {
    const std::string text = RandomText(random, 40);
    SCOPED_TRACE(text);
    C4_ProcDef def;
    const Status status = def.Init2(text, "G");
    EXPECT_GE(def.ProcDefCountOfLines(), 1);
    EXPECT_EQ(def.ProcCode(), text);
    const C4_ProcArguments& arguments = def.ProcArguments();
    std::set<std::string> names;
    for (const C4_ProcArgument& argument : arguments.Items()) {
      // Every argument is findable by its name, and names are distinct.
      EXPECT_EQ(arguments.Find(argument.Name), &argument);
      EXPECT_TRUE(names.insert(ToUpperAscii(argument.Name)).second);
      EXPECT_TRUE(argument.PassedBy == "ByVal" || argument.PassedBy == "ByRef" ||
                  argument.ArgDef.empty());
    }
    if (!status) {
      EXPECT_NE(status.error().find("used twice"), std::string::npos);
    }
  }
}

TEST(RandomDeclarationTest, ModulesListEachProcedureOnceInLineOrder) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    const auto vbe = ide::memory::MemoryVbe::Create();
    const auto component = vbe->AddProject("P")->AddComponent(
        ide::ComponentType::kStdModule, "M", RandomText(random, 200));
    const auto entries = ListProcedures(*component->CodeModule());
    int last_body = 0;
    for (const ProcedureEntry& entry : entries) {
      EXPECT_GT(entry.body_line, last_body);
      EXPECT_LE(entry.start_line, entry.body_line);
      last_body = entry.body_line;
    }
    EXPECT_EQ(ScanModule(vbe.get(), *component).size(), entries.size());
  }
}

}  // namespace
}  // namespace tavrin::scan
