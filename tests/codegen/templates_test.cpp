#include "codegen/templates.h"

#include <gtest/gtest.h>

#include <map>

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"

namespace tavrin::codegen {
namespace {

class TemplatesTest : public ::testing::Test {
 protected:
  TemplatesTest() {
    environment_.settings.developer = "Ann Smith";
    environment_.settings.initials = "AS";
    environment_.settings.organization = "Acme";
    environment_.settings.copyright = "(c) Acme";
    environment_.date_text = "11/21/2026";
    environment_.time_text = "06:40:00";
    environment_.read_code_file = [this](std::string_view path) -> std::optional<std::string> {
      const auto it = files_.find(std::string(path));
      if (it == files_.end()) return std::nullopt;
      return it->second;
    };
  }

  std::string Expand(std::string text, std::string_view module = "basMain",
                     std::string_view procedure = "Calc", std::string_view type = "Sub") {
    ExpandProcedureTemplate(environment_, text, module, procedure, type);
    return text;
  }

  std::map<std::string, std::string> files_;
  TemplateEnvironment environment_;
};

TEST_F(TemplatesTest, PlaceholdersInAnyCase) {
  const struct {
    std::string text;
    std::string expected;
  } cases[] = {
      {"{AUTHOR} {author} {Author}", "Ann Smith Ann Smith Ann Smith"},
      {"{INITIALS}/{COMPANYNAME}/{COPYRIGHT}", "AS/Acme/(c) Acme"},
      {"{DATE} {TIME}", "11/21/2026 06:40:00"},
      {"[{DESCRIPTION}]", "[]"},
      {"{HANDLEEXITLABEL}/{HANDLEERRORLABEL}/{ERRORHANDLEPROCEDURE}",
       "HandleExit/HandleError/ErrorHandle"},
      {"{MODULENAME}.{PROCEDURENAME} {PROCEDURETYPE}", "basMain.Calc Sub"},
      {"{UNKNOWN} {AUTHOR", "{UNKNOWN} {AUTHOR"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Expand(c.text), c.expected) << c.text;
}

TEST_F(TemplatesTest, FourBlanksBecomeTheIndentUnit) {
  EXPECT_EQ(Expand("    a\r\n        b\r\n   c"), "    a\r\n        b\r\n   c");
  environment_.indent_unit = "  ";
  EXPECT_EQ(Expand("    a\r\n        b\r\n   c\r\n     d"), "  a\r\n    b\r\n   c\r\n   d");
}

TEST_F(TemplatesTest, ValuesAreExpandedByTheLaterSteps) {
  // Replacement runs in a fixed order, so a value may hold a placeholder of
  // a later step.
  environment_.settings.developer = "{PROCEDURENAME}";
  EXPECT_EQ(Expand("{AUTHOR}"), "Calc");
}

TEST_F(TemplatesTest, ThePreparatoryStepRunsOnlyForTheErrorProcedure) {
  int prepared = 0;
  environment_.prepare_error_procedure = [&] { ++prepared; };
  Expand("{AUTHOR}");
  EXPECT_EQ(prepared, 0);
  Expand("{ERRORHANDLEPROCEDURE} {errorhandleprocedure}");
  EXPECT_EQ(prepared, 1);
}

TEST_F(TemplatesTest, ModuleProcedureAndTypeComeFromTheCaretWhenNotGiven) {
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto component = vbe->AddProject("P")->AddComponent(
      ide::ComponentType::kStdModule, "basTools",
      "Option Explicit\r\nPrivate Function Total(a As Long) As Long\r\n  x = 1\r\nEnd Function");
  const auto pane = component->CodeModule()->CodePane();
  pane->Show();
  pane->SetSelection({3, 1, 3, 1});
  environment_.vbe = vbe.get();
  EXPECT_EQ(Expand("{MODULENAME}.{PROCEDURENAME} {PROCEDURETYPE}", "", "", ""),
            "basTools.Total Function");
  // Given names win over the caret.
  EXPECT_EQ(Expand("{MODULENAME}.{PROCEDURENAME}", "basOther", "Go"), "basOther.Go");
  // In the declarations there is no procedure: the names are empty.
  pane->SetSelection({1, 1, 1, 1});
  EXPECT_EQ(Expand("[{PROCEDURENAME}] {PROCEDURETYPE}", "", "", ""), "[] Sub");
  // No IDE at all.
  environment_.vbe = nullptr;
  EXPECT_EQ(Expand("[{MODULENAME}]", ""), "[]");
}

TEST_F(TemplatesTest, ProcedureTypeOf) {
  const struct {
    std::string name;
    std::string line;
    std::string expected;
  } cases[] = {
      {"Total", "Private Function Total(a As Long) As Long", "Function"},
      {"Value", "Public Property Get Value() As Long", "Property"},
      {"Go", "Sub Go()", "Sub"},
      {"go", "FUNCTION GO()", "Function"},
      // The words after the name do not count.
      {"Go", "Sub Go(f As Function)", "Sub"},
      {"Go", "Function GoOn()", "Sub"},
      {"", "", "Sub"},
  };
  for (const auto& c : cases) EXPECT_EQ(ProcedureTypeOf(c.name, c.line), c.expected) << c.line;
}

TEST_F(TemplatesTest, IncludesAreExpandedRecursivelyAndCyclesLeftAsWritten) {
  files_["\\vbcode\\Fragments\\a.bas"] = "A({AUTHOR}) {INCLUDE Fragments\\b.bas}";
  files_["\\vbcode\\Fragments\\b.bas"] = "B {include Fragments\\c.bas}";
  files_["\\vbcode\\Fragments\\c.bas"] = "C";
  files_["\\vbcode\\self.bas"] = "S {INCLUDE self.bas}";
  files_["\\vbcode\\x.bas"] = "X {INCLUDE y.bas}";
  files_["\\vbcode\\y.bas"] = "Y {INCLUDE x.bas}";
  files_["\\vbcode\\empty.bas"] = "";
  const struct {
    std::string text;
    std::string expected;
  } cases[] = {
      {"{INCLUDE Fragments\\a.bas}", "A(Ann Smith) B C"},
      {"1 {INCLUDE Fragments\\c.bas} 2 {Include Fragments\\c.bas}", "1 C 2 C"},
      {"{INCLUDE missing.bas} {INCLUDE empty.bas}", "{INCLUDE missing.bas} {INCLUDE empty.bas}"},
      {"{INCLUDE no end", "{INCLUDE no end"},
      {"{INCLUDE self.bas}", "S {INCLUDE self.bas}"},
      {"{INCLUDE x.bas}", "X Y {INCLUDE x.bas}"},
  };
  for (const auto& c : cases) EXPECT_EQ(Expand(c.text), c.expected) << c.text;
}

TEST_F(TemplatesTest, ManyDirectivesInOneText) {
  files_["\\vbcode\\c.bas"] = "C";
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "{INCLUDE c.bas}{INCLUDE none.bas}";
  const std::string expanded = Expand(text);
  EXPECT_EQ(expanded.size(), 20000u * (1 + 18));
  EXPECT_EQ(expanded.substr(0, 20), "C{INCLUDE none.bas}C");
}

TEST_F(TemplatesTest, AnExponentialIncludeTreeStopsAtItsBound) {
  // Each level includes the next twice: 2^40 copies if nothing stopped it.
  for (int i = 0; i < 40; ++i) {
    files_["\\vbcode\\l" + std::to_string(i)] = "{INCLUDE l" + std::to_string(i + 1) + "}" +
                                                "{INCLUDE l" + std::to_string(i + 1) + "}";
  }
  files_["\\vbcode\\l40"] = std::string(1000, 'x');
  const std::string expanded = Expand("{INCLUDE l0}");
  EXPECT_LE(expanded.size(), 64u << 20);
}

TEST_F(TemplatesTest, Headers) {
  files_[environment_.settings.procedure_header_file] =
      "' {PROCEDURENAME} in {MODULENAME}\n'\n' {DESCRIPTION} by {author}, {DATE}\n\n";
  files_[environment_.settings.module_header_file] = "' Module {MODULENAME}\r\n";
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kProcedure, "Calc", "Adds."),
            "    ' Calc in Calc\r\n    '\r\n    ' Adds. by Ann Smith, 11/21/2026\r\n");
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kModule, "basMain", ""),
            "' Module basMain\r\n");
  // Headers keep their own four blanks: only procedure templates follow the
  // tab width.
  environment_.indent_unit = "  ";
  EXPECT_EQ(ExpandHeaderText(environment_, "    x", HeaderKind::kProcedure, "n", ""), "      x\r\n");
}

TEST_F(TemplatesTest, AMissingOrEmptyHeaderIsNoHeader) {
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kProcedure, "Calc", ""), "");
  files_[environment_.settings.module_header_file] = "\r\n\r\n";
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kModule, "basMain", ""), "");
  environment_.settings.module_header_file.clear();
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kModule, "basMain", ""), "");
  environment_.read_code_file = nullptr;
  EXPECT_EQ(ExpandHeader(environment_, HeaderKind::kProcedure, "Calc", ""), "");
}

TEST_F(TemplatesTest, TheErrorHandlerTemplateComesFromTheFileOrIsBuiltIn) {
  const std::string built_in = ErrorHandlerTemplate(environment_);
  EXPECT_NE(built_in.find("<BeforeHandleExitLabel>{HANDLEEXITLABEL}:"), std::string::npos);
  files_[environment_.settings.error_handler_file] = "    On Error Resume Next\n";
  EXPECT_EQ(ErrorHandlerTemplate(environment_), "    On Error Resume Next\r\n");
}

TEST_F(TemplatesTest, TodayInTheSystemsFormatWhenNotGiven) {
  environment_.date_text.clear();
  environment_.time_text.clear();
  EXPECT_FALSE(Expand("{DATE}").empty());
  EXPECT_NE(Expand("{TIME}"), "{TIME}");
}

}  // namespace
}  // namespace tavrin::codegen
