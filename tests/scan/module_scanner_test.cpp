#include "scan/module_scanner.h"

#include <gtest/gtest.h>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::scan {
namespace {

class ModuleScannerTest : public ::testing::Test {
 protected:
  std::shared_ptr<ide::memory::MemoryComponent> Module(std::string_view code) {
    if (!project_) project_ = vbe_->AddProject("Project1");
    return project_->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
  }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryProject> project_;
};

TEST_F(ModuleScannerTest, ListsEveryProcedureWithTheIdesLines) {
  const auto component = Module(
      "Option Explicit\r\n"                       // 1
      "\r\n"                                      // 2
      "' Starts here.\r\n"                        // 3
      "Sub Main()\r\n"                            // 4
      "End Sub\r\n"                               // 5
      "Property Get Name() As String\r\n"         // 6
      "End Property\r\n"                          // 7
      "Property Let Name(ByVal v As String)\r\n"  // 8
      "End Property\r\n"                          // 9
      "Private Function F(a As Long, _\r\n"       // 10
      "                   b As Long) As Long\r\n" // 11
      "End Function");                            // 12
  const auto entries = ListProcedures(*component->CodeModule());
  ASSERT_EQ(entries.size(), 4u);
  const struct {
    std::string name;
    ide::ProcKind kind;
    int start;
    int body;
    int count;
  } expected[] = {{"Main", ide::ProcKind::kProc, 2, 4, 4},
                  {"Name", ide::ProcKind::kGet, 6, 6, 2},
                  {"Name", ide::ProcKind::kLet, 8, 8, 2},
                  {"F", ide::ProcKind::kProc, 10, 10, 3}};
  for (std::size_t i = 0; i < entries.size(); ++i) {
    SCOPED_TRACE(expected[i].name);
    EXPECT_EQ(entries[i].name, expected[i].name);
    EXPECT_EQ(entries[i].kind, expected[i].kind);
    EXPECT_EQ(entries[i].start_line, expected[i].start);
    EXPECT_EQ(entries[i].body_line, expected[i].body);
    EXPECT_EQ(entries[i].count_lines, expected[i].count);
  }

  const auto scanned = ScanModule(vbe_.get(), *component);
  ASSERT_EQ(scanned.size(), 4u);
  EXPECT_EQ(scanned[3].def.ProcArguments().ArgNameList(), "a, b");
  EXPECT_EQ(scanned[3].def.ProcReturnType(), "Long");
  EXPECT_FALSE(scanned[3].def.ProcIsPublic());
  EXPECT_EQ(scanned[3].def.GroupName(), "Project1");
}

TEST_F(ModuleScannerTest, EmptyAndDeclarationOnlyModules) {
  for (const std::string code : {"", "Option Explicit", "\r\n\r\n", "' only: a comment"}) {
    SCOPED_TRACE(code);
    vbe_ = ide::memory::MemoryVbe::Create();
    project_ = nullptr;
    EXPECT_TRUE(ListProcedures(*Module(code)->CodeModule()).empty());
  }
}

TEST_F(ModuleScannerTest, ADuplicateArgumentKeepsTheRecordAndTheOthers) {
  const auto component = Module("Sub A(x, x)\r\nEnd Sub\r\nSub B(y)\r\nEnd Sub");
  const auto scanned = ScanModule(nullptr, *component);
  ASSERT_EQ(scanned.size(), 2u);
  EXPECT_FALSE(scanned[0].status);
  EXPECT_EQ(scanned[0].def.Name(), "A");
  EXPECT_TRUE(scanned[1].status);
}

TEST_F(ModuleScannerTest, AProcedureWrittenTwiceIsListedOnce) {
  const auto component =
      Module("Sub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\nsub a()\r\nEnd Sub");
  const auto entries = ListProcedures(*component->CodeModule());
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].name, "A");
  EXPECT_EQ(entries[1].name, "B");
}

TEST_F(ModuleScannerTest, TheProcedureAtALine) {
  const auto component = Module("Dim x\r\nSub A()\r\n  y = 1\r\nEnd Sub");
  EXPECT_FALSE(ScanProcedureAt(nullptr, *component, 1));
  const auto at = ScanProcedureAt(nullptr, *component, 3);
  ASSERT_TRUE(at);
  EXPECT_EQ(at->def.Name(), "A");
  EXPECT_FALSE(ScanProcedureAt(nullptr, *component, 99));
}

// Hostile declarations: nothing crashes, nothing hangs, the parse stays
// linear (the benchmark measures the speed).
TEST(HostileDeclarationTest, NeverCrashes) {
  std::string many_arguments = "Sub Many(";
  for (int i = 0; i < 10000; ++i) many_arguments += "a" + std::to_string(i) + " As Long, ";
  many_arguments += "z)";
  const std::string megabyte_line = "Sub Long(" + std::string(1 << 20, 'x') + ")";
  const std::string megabyte_quotes = "Sub Q(" + std::string(1 << 20, '"') + ")";
  const std::string megabyte_colons = "Sub C(a): " + std::string(1 << 20, ':');
  const std::string megabyte_continuations = [] {
    std::string text = "Sub K(";
    for (int i = 0; i < 100000; ++i) text += "a" + std::to_string(i) + ", _\r\n";
    return text + "z)";
  }();
  const std::string texts[] = {"",
                               "(",
                               ")",
                               "\"",
                               "Sub (",
                               "Sub X((((",
                               "Sub X))))",
                               "Sub X(\"a, b)",
                               "Function F(a\r\nAs Long",
                               "_",
                               "_\r\n_\r\n_",
                               "Optional",
                               "Sub X(Optional, ByVal, ParamArray)",
                               "Sub X(" + std::string(1000, ',') + ")",
                               many_arguments,
                               megabyte_line,
                               megabyte_quotes,
                               megabyte_colons,
                               megabyte_continuations};
  for (const std::string& text : texts) {
    C4_ProcDef def;
    (void)def.Init2(text, "G");
  }
  C4_ProcDef many;
  ASSERT_TRUE(many.Init2(many_arguments, "G"));
  EXPECT_EQ(many.ProcArguments().Count(), 10001);
  C4_ProcDef continued;
  ASSERT_TRUE(continued.Init2(megabyte_continuations, "G"));
  EXPECT_EQ(continued.ProcDefCountOfLines(), 100001);
  EXPECT_EQ(continued.ProcArguments().Count(), 100001);
}

}  // namespace
}  // namespace tavrin::scan
