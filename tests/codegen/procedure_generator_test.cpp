#include "codegen/procedure_generator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>

#include "base/text.h"

namespace tavrin::codegen {
namespace {

constexpr std::string_view kHeader =
    "'--------------------------------------------------\r\n"
    "' Procedure : {PROCEDURENAME}\r\n"
    "' Author    : {AUTHOR} ({INITIALS})\r\n"
    "' Date      : {DATE}\r\n"
    "' Purpose   : {DESCRIPTION}\r\n"
    "'--------------------------------------------------\r\n";

TemplateEnvironment TestEnvironment(std::string host = "VBRUN") {
  TemplateEnvironment environment;
  environment.settings.developer = "Ann Smith";
  environment.settings.initials = "AS";
  environment.date_text = "11/21/2026";
  environment.time_text = "06:40:00";
  environment.host = std::move(host);
  return environment;
}

clsArgument Argument(std::string name, std::string type, int position) {
  clsArgument argument;
  argument.Name = std::move(name);
  argument.Type_ = std::move(type);
  argument.Position = position;
  return argument;
}

clsProcedure Calculate(TemplateEnvironment environment = TestEnvironment()) {
  clsProcedure procedure(std::move(environment));
  procedure.Accessibility = "Public";
  procedure.ProcType = "Sub";
  procedure.Name = "Calculate";
  procedure.Arguments.Add(Argument("a", "Long", 1));
  clsArgument b = Argument("b", "Long", 2);
  b.IsByVal = true;
  procedure.Arguments.Add(b);
  return procedure;
}

TEST(ArgumentStringTest, Table) {
  const struct {
    clsArgument argument;
    std::string expected;
  } cases[] = {
      {{"Count", false, true, true, false, "Long", "10", 1}, "Optional ByVal Count As Long = 10"},
      {{"Items", false, false, false, true, "String", "", 1}, "Items() As String"},
      {{"Value", false, false, false, false, "", "", 1}, "Value"},
      {{"Values", true, true, true, false, "Variant", "1", 1}, "ParamArray Values()"},
      {{"Note", false, true, false, false, "String", "", 1}, "Optional Note As String"},
      // A default shows only on an optional argument.
      {{"x", false, false, false, false, "Long", "5", 1}, "x As Long"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.argument.ArgumentString(), c.expected);
}

TEST(GenerateCodeTest, DeclarationEdgeCases) {
  const struct {
    std::function<void(clsProcedure&)> set;
    std::string declaration;
    std::string last_line;
  } cases[] = {
      {[](clsProcedure& p) { p.Arguments = {}; }, "Public Sub Calculate()", "End Sub"},
      {[](clsProcedure& p) {
         p.Arguments = {};
         p.ProcType = "Property";
         p.PropertyType = "Get";
         p.Name = "Name";
         p.ReturnType = "Long";
       },
       "Public Property Get Name() As Long", "End Property"},
      {[](clsProcedure& p) {
         p.Accessibility = "";
         p.IsStatic = true;
       },
       "Static Sub Calculate(a As Long, ByVal b As Long)", "End Sub"},
      {[](clsProcedure& p) {
         p.Accessibility = "Private";
         p.IsStatic = true;
         p.ProcType = "Function";
         p.ReturnType = "String";
       },
       "Private Static Function Calculate(a As Long, ByVal b As Long) As String",
       "End Function"},
      // Positions, not the order of adding, give the order.
      {[](clsProcedure& p) {
         p.Arguments.Item(1).Position = 2;
         p.Arguments.Item(2).Position = 1;
       },
       "Public Sub Calculate(ByVal b As Long, a As Long)", "End Sub"},
  };
  for (const auto& c : cases) {
    clsProcedure procedure = Calculate();
    c.set(procedure);
    const std::string code = procedure.GenerateCode();
    SCOPED_TRACE(code);
    EXPECT_EQ(procedure.DeclarationLine, c.declaration);
    EXPECT_EQ(code, c.declaration + "\r\n\r\n" + c.last_line + "\r\n");
  }
}

TEST(GenerateCodeTest, ProcContentIsAnsweredUnchanged) {
  clsProcedure procedure = Calculate();
  procedure.ProcContent = "Sub Mine()\r\nEnd Sub";
  procedure.WithErrorHandler = true;
  EXPECT_EQ(procedure.GenerateCode(), "Sub Mine()\r\nEnd Sub");
}

TEST(ArgumentsOrderTest, Table) {
  const struct {
    std::vector<std::pair<bool, bool>> optional_param_array;
    std::int32_t expected;
  } cases[] = {
      {{}, kOrderValid},
      {{{false, false}, {true, false}, {true, false}}, kOrderValid},
      {{{true, false}, {false, false}}, kRequiredAfterOptional},
      {{{false, false}, {false, true}}, kOrderValid},
      {{{false, true}, {false, false}}, kArgumentAfterParamArray},
      // The optional check runs first.
      {{{true, false}, {false, true}, {false, false}}, kRequiredAfterOptional},
  };
  for (const auto& c : cases) {
    clsProcedure procedure;
    int position = 0;
    for (const auto& [optional, param_array] : c.optional_param_array) {
      ++position;
      clsArgument argument = Argument("a" + std::to_string(position), "", position);
      argument.IsOptional = optional;
      argument.IsParamArray = param_array;
      procedure.Arguments.Add(argument);
    }
    EXPECT_EQ(procedure.ArgumentsOrderIsBad(), c.expected);
  }
  EXPECT_EQ(ArgumentOrderMessage(1),
            "After the optional argument all subsequent arguments must also be optional.\r\n"
            "Please reorder the arguments list.");
  EXPECT_EQ(ArgumentOrderMessage(2),
            "ParamArray argument is used only as the last argument.\r\n"
            "Please reorder the arguments list.");
  EXPECT_EQ(ArgumentOrderMessage(0), "");
}

TEST(ArgumentsRenumberTest, ClosesTheGap) {
  clsProcedure procedure;
  for (int i = 1; i <= 4; ++i) procedure.Arguments.Add(Argument("a" + std::to_string(i), "", i));
  ASSERT_TRUE(procedure.Arguments.RemoveAtPosition(2));
  procedure.ArgumentsRenumber(2);
  std::vector<int> positions;
  for (const clsArgument& argument : procedure.Arguments.Items())
    positions.push_back(argument.Position);
  EXPECT_EQ(positions, (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(procedure.GetArgString(0), "a1, a3, a4");
}

// Golden files: tests/codegen/golden/<name>.bas holds the expected text.
// With TAVRIN_UPDATE_GOLDEN set the files are written instead of compared;
// a mismatch leaves the actual text beside the golden one as <name>.actual.
std::string GoldenPath(std::string_view name, std::string_view extension) {
  return std::string(TAVRIN_SOURCE_DIR) + "/tests/codegen/golden/" + std::string(name) +
         std::string(extension);
}

void ExpectGolden(std::string_view name, const std::string& actual) {
  if (std::getenv("TAVRIN_UPDATE_GOLDEN")) {
    std::ofstream(GoldenPath(name, ".bas"), std::ios::binary) << actual;
    return;
  }
  std::ifstream in(GoldenPath(name, ".bas"), std::ios::binary);
  const std::string expected{std::istreambuf_iterator<char>(in), {}};
  EXPECT_EQ(actual, expected) << "golden file " << name;
  if (actual != expected) std::ofstream(GoldenPath(name, ".actual"), std::ios::binary) << actual;
}

struct Options {
  bool separate_lines = false;
  bool header = false;
  bool name_constant = false;
  bool error_handler = false;
  bool return_line = false;
  bool hourglass = false;
};

clsProcedure Configured(const Options& options, std::string type, std::string host = "VBRUN") {
  clsProcedure procedure = Calculate(TestEnvironment(std::move(host)));
  procedure.ModuleName = "basMath";
  procedure.Description = "Adds up the order.";
  if (type == "Function") {
    procedure.ProcType = "Function";
    procedure.ReturnType = "Currency";
  } else if (type == "ObjectFunction") {
    procedure.ProcType = "Function";
    procedure.ReturnType = "Collection";
  } else if (type == "PropertyGet") {
    procedure.ProcType = "Property";
    procedure.PropertyType = "Get";
    procedure.ReturnType = "Long";
    procedure.Arguments = {};
  }
  procedure.ArgumentsOnSeparateLines = options.separate_lines;
  procedure.AddHeader = options.header;
  procedure.HeaderTemplate = std::string(kHeader);
  procedure.AddProcNameConst = options.name_constant;
  procedure.WithErrorHandler = options.error_handler;
  procedure.WithReturnLine = options.return_line;
  procedure.WithHourglass = options.hourglass;
  return procedure;
}

TEST(GeneratorGoldenTest, EveryOption) {
  const struct {
    std::string name;
    Options options;
    std::string type;
    std::string host;
  } cases[] = {
      {"sub_plain", {}, "Sub", "VBRUN"},
      {"sub_separate_lines", {true}, "Sub", "VBRUN"},
      {"sub_header", {false, true}, "Sub", "VBRUN"},
      {"sub_name_constant", {false, false, true}, "Sub", "VBRUN"},
      {"sub_error_handler", {false, false, false, true}, "Sub", "VBRUN"},
      {"sub_return_line_ignored", {false, false, false, false, true}, "Sub", "VBRUN"},
      {"function_return_line", {false, false, false, false, true}, "Function", "VBRUN"},
      {"function_object_return_line", {false, false, false, false, true}, "ObjectFunction",
       "VBRUN"},
      {"sub_hourglass_vbrun", {false, false, false, false, false, true}, "Sub", "VBRUN"},
      {"sub_hourglass_access", {false, false, false, false, false, true}, "Sub", "Access"},
      {"sub_hourglass_excel", {false, false, false, false, false, true}, "Sub", "Excel"},
      {"sub_hourglass_word", {false, false, false, false, false, true}, "Sub", "Word"},
      {"sub_hourglass_other_host", {false, false, false, false, false, true}, "Sub",
       "Outlook"},
      {"function_error_handler_return_line", {false, false, false, true, true}, "Function",
       "VBRUN"},
      {"function_error_handler_hourglass", {false, false, false, true, false, true},
       "Function", "Excel"},
      {"function_everything", {true, true, true, true, true, true}, "Function", "VBRUN"},
      {"property_get_everything", {true, true, true, true, true, true}, "PropertyGet", "Word"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clsProcedure procedure = Configured(c.options, c.type, c.host);
    ExpectGolden(c.name, procedure.GenerateCode());
  }
}

TEST(GeneratorGoldenTest, TabWidthTwoIndentsTheHandlerByTwo) {
  TemplateEnvironment environment = TestEnvironment();
  environment.indent_unit = "  ";
  clsProcedure two(environment);
  two.ProcType = "Function";
  two.Name = "Total";
  two.ReturnType = "Long";
  two.AddProcNameConst = true;
  two.WithErrorHandler = true;
  two.WithReturnLine = true;
  two.WithHourglass = true;
  ExpectGolden("function_tab_width_two", two.GenerateCode());
}

}  // namespace
}  // namespace tavrin::codegen
