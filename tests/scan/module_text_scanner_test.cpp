#include "scan/module_text_scanner.h"

#include <gtest/gtest.h>

#include "scan/project_scanner.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::scan {
namespace {


// "kind scope name type [parent] @line" for compact comparison.
std::string Describe(const Declaration& d) {
  static const char* kKinds[] = {"var",   "const", "enum",     "member", "type", "field",
                                 "declare", "arg", "label", "class", "proc"};
  static const char* kScopes[] = {"local", "module", "global"};
  std::string text = std::string(kKinds[static_cast<int>(d.kind)]) + " " +
                     kScopes[static_cast<int>(d.scope)] + " " + d.name + " " + d.type;
  if (!d.parent.empty()) text += " in " + d.parent;
  if (!d.value.empty()) text += " = " + d.value;
  if (d.is_array) text += " (" + d.bounds + ")";
  if (d.is_new) text += " new";
  if (d.with_events) text += " events";
  if (d.is_static) text += " static";
  return text + " @" + std::to_string(d.line);
}

std::vector<std::string> Describe(const std::vector<Declaration>& declarations) {
  std::vector<std::string> lines;
  for (const Declaration& d : declarations) lines.push_back(Describe(d));
  return lines;
}

constexpr std::string_view kModule =
    "Option Explicit\r\n"                                              // 1
    "Private mlngCount As Long, mstrName$ ' a comment: Dim x\r\n"      // 2
    "Public gcolItems As New Collection\r\n"                           // 3
    "Dim maBytes(1 To 10) As Byte, mvAny\r\n"                          // 4
    "Private WithEvents mfrm As Form\r\n"                              // 5
    "Const cMAX = 10, cNAME As String = \"a, b: c\"\r\n"               // 6
    "Public Const gcdblPI# = 3.14\r\n"                                 // 7
    "Public Enum eColour\r\n"                                          // 8
    "  ecRed = 1\r\n"                                                  // 9
    "  ecGreen\r\n"                                                    // 10
    "End Enum\r\n"                                                     // 11
    "Private Type tPoint\r\n"                                          // 12
    "  X As Long\r\n"                                                  // 13
    "  Label As String * 20\r\n"                                       // 14
    "End Type\r\n"                                                     // 15
    "Private Declare PtrSafe Function GetTickCount Lib \"kernel32\" _\r\n"  // 16
    "    () As Long\r\n"                                               // 17
    "Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)\r\n"        // 18
    "Public Event Changed(ByVal n As Long)\r\n"                        // 19
    "\r\n"                                                             // 20
    "' The entry point.\r\n"                                           // 21
    "Private Function Total(ByVal a As Long, Optional b% = 2, _\r\n"   // 22
    "                       ParamArray rest()) As Currency\r\n"        // 23
    "    Dim i As Integer, s As String: Static n&\r\n"                 // 24
    "    Const cLIMIT As Long = 5 ' Dim nothing\r\n"                   // 25
    "    On Error GoTo HandleError\r\n"                                // 26
    "    Dim late As Double\r\n"                                       // 27
    "Retry: i = 1\r\n"                                                 // 28
    "10  s = \"Dim fake As Long\"\r\n"                                 // 29
    "HandleError:\r\n"                                                 // 30
    "End Function\r\n"                                                 // 31
    "Sub Main()\r\n"                                                   // 32
    "End Sub\r\n"                                                      // 33
    "Friend Property Get Name() As String\r\n"                         // 34
    "End Property\r\n"                                                 // 35
    "Static Sub Tick()\r\n"                                            // 36
    "    Dim x As New Collection\r\n"                                  // 37
    "End Sub";                                                         // 38

TEST(ModuleTextScannerTest, ReadsTheDeclarationArea) {
  const ModuleScan scan = ScanModuleText(kModule);
  const std::vector<std::string> expected = {
      "var module mlngCount Long @2",
      "var module mstrName String @2",
      "var global gcolItems Collection new @3",
      "var module maBytes Byte (1 To 10) @4",
      "var module mvAny Variant @4",
      "var module mfrm Form events @5",
      "const module cMAX  = 10 @6",
      "const module cNAME String = \"a, b: c\" @6",
      "const global gcdblPI Double = 3.14 @7",
      "enum global eColour eColour @8",
      "member global ecRed eColour in eColour = 1 @9",
      "member global ecGreen eColour in eColour @10",
      "type module tPoint tPoint @12",
      "field module X Long in tPoint @13",
      "field module Label String * 20 in tPoint @14",
      "declare module GetTickCount Long @16",
      "declare global Sleep  @18",
  };
  EXPECT_EQ(Describe(scan.declarations), expected);
  EXPECT_EQ(scan.last_declaration_line, 19);
}

TEST(ModuleTextScannerTest, ReadsEachProcedureWithItsLocals) {
  const ModuleScan scan = ScanModuleText(kModule);
  ASSERT_EQ(scan.procedures.size(), 4u);
  // "name kind scope returns: line body last-declaration end"
  std::vector<std::string> procedures;
  for (const ScannedProc& p : scan.procedures) {
    procedures.push_back(p.name + " " + std::to_string(static_cast<int>(p.kind)) + " " +
                         std::to_string(static_cast<int>(p.scope)) + " " + p.return_type + ": " +
                         std::to_string(p.line) + " " + std::to_string(p.body_line) + " " +
                         std::to_string(p.last_declaration_line) + " " +
                         std::to_string(p.end_line));
  }
  EXPECT_EQ(procedures, (std::vector<std::string>{"Total 0 1 Currency: 22 24 25 31",
                                                  "Main 0 2 : 32 33 32 33",
                                                  "Name 3 2 String: 34 35 34 35",
                                                  "Tick 0 2 : 36 37 37 38"}));
  const std::vector<std::string> locals = {
      "arg local a Long @22",
      "arg local b Integer = 2 @22",
      "arg local rest Variant () @22",
      "var local i Integer @24",
      "var local s String @24",
      "var local n Long static @24",
      "const local cLIMIT Long = 5 @25",
      "var local late Double @27",
      "label local Retry  @28",
      "label local HandleError  @30",
  };
  EXPECT_EQ(Describe(scan.procedures[0].locals), locals);
}

TEST(ModuleTextScannerTest, FindsTheProcedureAndTheNamesInScopeAtALine) {
  const ModuleScan scan = ScanModuleText(kModule);
  const struct {
    int line;
    std::string procedure;  // "" for none
    std::size_t visible;
  } rows[] = {{1, "", 17}, {20, "", 17}, {22, "Total", 27}, {31, "Total", 27},
              {33, "Main", 17}, {37, "Tick", 18}, {99, "", 17}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    const ScannedProc* proc = ProcedureAtLine(scan, row.line);
    EXPECT_EQ(proc ? proc->name : "", row.procedure);
    EXPECT_EQ(DeclarationsInScope(scan, row.line).size(), row.visible);
  }
}

TEST(ModuleTextScannerTest, SurvivesBrokenCode) {
  // A missing End, a block never closed, a stray continuation at the end.
  const ModuleScan scan = ScanModuleText(
      "Sub A()\r\n  Dim x\r\nSub B()\r\nEnd Sub\r\nEnum E\r\n  a\r\nDim y As _");
  ASSERT_EQ(scan.procedures.size(), 2u);
  EXPECT_EQ(scan.procedures[0].end_line, 2);
  EXPECT_EQ(scan.procedures[0].locals.size(), 1u);
  EXPECT_EQ(scan.procedures[1].end_line, 4);
  EXPECT_TRUE(ScanModuleText("").procedures.empty());
  // A procedure opens only a line; after a label it ends the one before.
  EXPECT_EQ(ScanModuleText("Sub A(): Sub B()\r\nEnd Sub").procedures.size(), 1u);
  EXPECT_EQ(ScanModuleText("Sub A()\r\nL1: Sub B()\r\nEnd Sub").procedures[0].locals.size(), 0u);
  EXPECT_TRUE(ScanModuleText(" _\r\n:\r\n'").declarations.empty());
}

TEST(ProjectScannerTest, ListsWhatEveryProjectDeclaresWithItsModule) {
  auto vbe = ide::memory::MemoryVbe::Create();
  auto first = vbe->AddProject("First");
  first->AddComponent(ide::ComponentType::kStdModule, "modMain",
                      "Public Enum eSize\r\n  esSmall\r\nEnd Enum\r\n"
                      "Private Const cLOCAL = 1\r\n"
                      "Public Function Area() As Long\r\nEnd Function\r\n"
                      "Private Sub Hidden()\r\nEnd Sub");
  first->AddComponent(ide::ComponentType::kClassModule, "clsShape",
                      "Public Type tBox\r\n  W As Long\r\nEnd Type");
  vbe->AddProject("Second")->AddComponent(ide::ComponentType::kVBForm, "frmMain", "");
  std::vector<std::string> found;
  for (const ProjectSymbol& symbol : ScanProjects(*vbe))
    found.push_back(symbol.project + "." + symbol.module + ": " + Describe(symbol.declaration));
  const std::vector<std::string> expected = {
      "First.modMain: enum global eSize eSize @1",
      "First.modMain: member global esSmall eSize in eSize @2",
      "First.modMain: const module cLOCAL  = 1 @4",
      "First.modMain: proc global Area Long @5",
      "First.clsShape: class global clsShape clsShape @0",
      "First.clsShape: type global tBox tBox @1",
      "First.clsShape: field global W Long in tBox @2",
      "Second.frmMain: class global frmMain frmMain @0",
  };
  EXPECT_EQ(found, expected);
  EXPECT_EQ(ProjectTypeNames(ScanProjects(*vbe)),
            std::vector<std::string>({"eSize", "clsShape", "tBox", "frmMain"}));
}

}  // namespace
}  // namespace tavrin::scan
