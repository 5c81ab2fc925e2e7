#include "ide/memory/procedure_index.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

class MemoryProceduresTest : public ::testing::Test {
 protected:
  std::shared_ptr<ICodeModule> Module(const std::vector<std::string>& lines) {
    std::string code;
    for (std::size_t i = 0; i < lines.size(); ++i) code += (i ? "\r\n" : "") + lines[i];
    return vbe_->AddProject("Project1")
        ->AddComponent(ComponentType::kClassModule, "Class1", code)
        ->CodeModule();
  }

  std::shared_ptr<MemoryVbe> vbe_ = MemoryVbe::Create();
};

struct Expected {
  const char* name;
  ProcKind kind;
  int start;
  int body;
  int count;
};

void ExpectProcedures(ICodeModule& module, const std::vector<Expected>& procedures) {
  for (const auto& p : procedures) {
    SCOPED_TRACE(p.name);
    EXPECT_EQ(module.ProcStartLine(p.name, p.kind), p.start);
    EXPECT_EQ(module.ProcBodyLine(p.name, p.kind), p.body);
    EXPECT_EQ(module.ProcCountLines(p.name, p.kind), p.count);
    for (int line = p.start; line < p.start + p.count; ++line) {
      const ProcRef ref = module.ProcOfLine(line);
      EXPECT_EQ(ref.name, p.name) << "line " << line;
      EXPECT_EQ(ref.kind, p.kind) << "line " << line;
    }
  }
}

TEST_F(MemoryProceduresTest, ProcedureLinesTable) {
  const struct {
    const char* label;
    std::vector<std::string> lines;
    int declaration_lines;
    std::vector<Expected> procedures;
  } cases[] = {
      {"comments above a procedure belong to it",
       {"Option Explicit",                                  // 1
        "Private mValue As Long",                           // 2
        "' after the declarations",                         // 3
        "",                                                 // 4
        "' Says hello.",                                    // 5
        "Public Sub Hello()",                               // 6
        "    MsgBox \"It's me\"",                           // 7
        "End Sub",                                          // 8
        "",                                                 // 9
        "Private Function Twice(ByVal n As Long) As Long",  // 10
        "    Twice = 2 * n",                                // 11
        "End Function",                                     // 12
        "",                                                 // 13
        ""},                                                // 14
       2,
       {{"Hello", ProcKind::kProc, 3, 6, 6}, {"Twice", ProcKind::kProc, 9, 10, 6}}},
      {"Property Get and Let of one name are told apart by kind",
       {"Private mName As String",                          // 1
        "Public Property Get Name() As String",             // 2
        "    Name = mName",                                 // 3
        "End Property",                                     // 4
        "Public Property Let Name(ByVal Value As String)",  // 5
        "    mName = Value",                                // 6
        "End Property",                                     // 7
        "Public Property Set Font(ByVal Value As Object)",  // 8
        "End Property",                                     // 9
        "Friend Static Function Counter() As Long",         // 10
        "End Function"},                                    // 11
       1,
       {{"Name", ProcKind::kGet, 2, 2, 3},
        {"Name", ProcKind::kLet, 5, 5, 3},
        {"Font", ProcKind::kSet, 8, 8, 2},
        {"Counter", ProcKind::kProc, 10, 10, 2}}},
      {"continued declarations count to their last line",
       {"Private Declare Function GetTickCount _",     // 1
        "    Lib \"kernel32\" () As Long",             // 2
        "",                                            // 3
        "Public Function Join3(ByVal a As String, _",  // 4
        "    ByVal b As String) As String",            // 5
        "End Function",                                // 6
        "Public _",                                    // 7
        "  Sub Split()",                               // 8
        "End Sub"},                                    // 9
       2,
       {{"Join3", ProcKind::kProc, 3, 4, 4}, {"Split", ProcKind::kProc, 7, 7, 3}}},
      {"declared procedures and lookalikes are not procedures",
       {"Private Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)",  // 1
        "Public Event Changed()",                                         // 2
        "Dim Sub_Total As Long",                                          // 3
        "' Sub NotCode()",                                                // 4
        "Sub Real()",                                                     // 5
        "    Sub_Total = 1: End Sub",                                     // 6 (no End line)
        "10  End Sub ' numbered"},                                        // 7
       3,
       {{"Real", ProcKind::kProc, 4, 5, 4}}},
      {"an unterminated procedure runs to the end",
       {"Option Explicit", "Sub A()", "  x = 1", "", "' tail"}, 1,
       {{"A", ProcKind::kProc, 2, 2, 4}}},
      {"a procedure without End stops at the next declaration",
       {"Sub A()", "  x = 1", "Sub B()", "End Sub"}, 0,
       {{"A", ProcKind::kProc, 1, 1, 2}, {"B", ProcKind::kProc, 3, 3, 2}}},
      {"labels and line numbers before End",
       {"Sub A()", "Done: End Sub", "Function B()", "20 End Function"}, 0,
       {{"A", ProcKind::kProc, 1, 1, 2}, {"B", ProcKind::kProc, 3, 3, 2}}},
      {"no procedures: all declarations",
       {"Option Explicit", "Dim a", "' trailing comment", ""}, 2, {}},
      {"an empty module", {}, 0, {}},
      {"just a comment", {"' just a comment"}, 0, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    auto module = Module(c.lines);
    EXPECT_EQ(module->CountOfDeclarationLines(), c.declaration_lines);
    ExpectProcedures(*module, c.procedures);
    const int first = c.procedures.empty() ? module->CountOfLines() + 1 : c.procedures[0].start;
    for (int line = 1; line < first; ++line) EXPECT_EQ(module->ProcOfLine(line).name, "") << line;
  }
}

TEST_F(MemoryProceduresTest, UnknownNameOrKindRaisesError35) {
  auto module = Module({"Private Declare Sub Sleep Lib \"kernel32\" ()", "' Sub NotCode()",
                        "Sub A()", "End Sub"});
  for (auto lookup : {+[](ICodeModule& m) { m.ProcStartLine("B", ProcKind::kProc); },
                      +[](ICodeModule& m) { m.ProcBodyLine("A", ProcKind::kGet); },
                      +[](ICodeModule& m) { m.ProcCountLines("A", ProcKind::kLet); },
                      +[](ICodeModule& m) { m.ProcStartLine("NotCode", ProcKind::kProc); },
                      +[](ICodeModule& m) { m.ProcStartLine("Sleep", ProcKind::kProc); }}) {
    try {
      lookup(*module);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 35);
    }
  }
  EXPECT_EQ(module->ProcBodyLine("a", ProcKind::kProc), 3);  // names ignore case
}

TEST_F(MemoryProceduresTest, EditsAreSeenByTheNextQuery) {
  auto module = Module({"Option Explicit", "Sub A()", "End Sub"});
  EXPECT_EQ(module->ProcBodyLine("A", ProcKind::kProc), 2);
  module->InsertLines(2, "' about A\r\n");
  EXPECT_EQ(module->ProcBodyLine("A", ProcKind::kProc), 4);
  EXPECT_EQ(module->ProcStartLine("A", ProcKind::kProc), 2);
  module->ReplaceLine(4, "Sub Renamed()");
  EXPECT_THROW(module->ProcBodyLine("A", ProcKind::kProc), Error);
  module->DeleteLines(1, 1);
  EXPECT_EQ(module->ProcBodyLine("Renamed", ProcKind::kProc), 3);
}

TEST_F(MemoryProceduresTest, SampleModuleProcedures) {
  auto project = vbe_->AddProject("P");
  auto component = project
                       ->AddSourceFile("basMain.bas",
                                       testing::ReadSourceTreeFile("sample/basMain.bas"))
                       .value();
  auto module = component->CodeModule();
  EXPECT_EQ(module->Lines(module->CountOfDeclarationLines(), 1),
            "Private mLastError As String");
  const int main_body = module->ProcBodyLine("Main", ProcKind::kProc);
  EXPECT_EQ(module->Lines(main_body, 1), "Public Sub Main()");
  EXPECT_EQ(module->Lines(module->ProcStartLine("Main", ProcKind::kProc), 1), "");
  const int last = module->ProcStartLine("Elapsed", ProcKind::kProc) +
                   module->ProcCountLines("Elapsed", ProcKind::kProc) - 1;
  EXPECT_EQ(last, module->CountOfLines());  // trailing blank line included
  EXPECT_EQ(module->ProcOfLine(module->CountOfLines()).name, "Elapsed");
  const int numbered = module->ProcBodyLine("StockValue", ProcKind::kProc);
  EXPECT_EQ(module->ProcOfLine(numbered + 5).name, "StockValue");
}

TEST_F(MemoryProceduresTest, ProcOfLineOutsideTheModuleIsOutOfRange) {
  auto module = Module({"Sub A()", "End Sub"});
  EXPECT_THROW(module->ProcOfLine(0), Error);
  EXPECT_THROW(module->ProcOfLine(3), Error);
}

// The listing walks a 270,000-line module procedure by procedure; it must
// not rebuild the index per query (the bench measures its speed).
TEST_F(MemoryProceduresTest, ListsTenThousandProceduresOfALargeModule) {
  std::string code = "Option Explicit\r\n";
  for (int i = 0; i < 10000; ++i) {
    code += "' Procedure " + std::to_string(i) + "\r\nPublic Function F" + std::to_string(i) +
            "(ByVal a As Long) As Long\r\n";
    for (int k = 0; k < 23; ++k) code += "    a = a + " + std::to_string(k) + "\r\n";
    code += "    F" + std::to_string(i) + " = a\r\nEnd Function\r\n\r\n";
  }
  auto module = vbe_->AddProject("Big")
                    ->AddComponent(ComponentType::kStdModule, "Big", code)
                    ->CodeModule();
  ASSERT_GT(module->CountOfLines(), 270000);
  int line = module->CountOfDeclarationLines() + 1;
  int listed = 0;
  while (line <= module->CountOfLines()) {
    const ProcRef ref = module->ProcOfLine(line);
    line = module->ProcStartLine(ref.name, ref.kind) + module->ProcCountLines(ref.name, ref.kind);
    ++listed;
  }
  EXPECT_EQ(listed, 10000);
  EXPECT_EQ(module->ProcOfLine(module->CountOfLines()).name, "F9999");
}

}  // namespace
}  // namespace tavrin::ide::memory
