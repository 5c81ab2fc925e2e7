// What the generator writes, the declaration parser reads back: name, kind,
// scope, return type and every argument.
#include <gtest/gtest.h>

#include "codegen/procedure_generator.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "scan/module_scanner.h"

namespace tavrin::codegen {
namespace {

struct Case {
  std::string accessibility;
  bool is_static;
  std::string type;
  std::string property_type;
  std::string return_type;
  std::vector<clsArgument> arguments;
  // As the parser reads scope: "Static" alone is not public, and a leading
  // "Public" or "Private" clears static.
  bool is_public;
  bool reads_static;
  int kind;
};

clsArgument Arg(std::string name, std::string type, bool optional = false, bool by_val = false,
                bool array = false, bool param_array = false, std::string default_value = "") {
  return {std::move(name), param_array, optional, by_val, array, std::move(type),
          std::move(default_value), 0};
}

TEST(GeneratorRoundTripTest, TheParserReadsBackWhatWasGenerated) {
  const Case cases[] = {
      {"Public", false, "Sub", "", "", {Arg("a", "Long"), Arg("b", "String", false, true)},
       true, false, 0},
      {"Private", false, "Function", "", "Currency",
       {Arg("Price", "Currency", false, true), Arg("Count", "Long", true, false, false, false, "10"),
        Arg("Note", "String", true, true, false, false, "\"none, yet\"")},
       false, false, 0},
      {"Friend", false, "Function", "", "Collection", {Arg("Items", "String", false, false, true)},
       true, false, 0},
      {"", true, "Sub", "", "", {Arg("x", ""), Arg("Rest", "Variant", false, false, false, true)},
       false, true, 0},
      {"Public", true, "Function", "", "Long", {}, true, false, 0},
      {"Public", false, "Property", "Let", "", {Arg("Value", "Long", false, true)}, true, false, 1},
      {"Private", false, "Property", "Set", "", {Arg("Item", "Object", false, true)}, false,
       false, 2},
      {"Public", false, "Property", "Get", "Long", {Arg("Index", "Integer")}, true, false, 3},
  };
  for (const bool separate_lines : {false, true}) {
    for (const Case& c : cases) {
      clsProcedure procedure;
      procedure.Accessibility = c.accessibility;
      procedure.IsStatic = c.is_static;
      procedure.ProcType = c.type;
      procedure.PropertyType = c.property_type;
      procedure.Name = "Generated";
      procedure.ReturnType = c.return_type;
      procedure.ArgumentsOnSeparateLines = separate_lines;
      procedure.WithErrorHandler = true;
      procedure.WithReturnLine = true;
      procedure.AddProcNameConst = true;
      int position = 0;
      for (clsArgument argument : c.arguments) {
        argument.Position = ++position;
        procedure.Arguments.Add(argument);
      }
      const std::string code = procedure.GenerateCode();
      SCOPED_TRACE(code);

      const auto vbe = ide::memory::MemoryVbe::Create();
      const auto component = vbe->AddProject("Project1")->AddComponent(
          ide::ComponentType::kClassModule, "Class1", "Option Explicit\r\n\r\n" + code);
      const auto scanned = scan::ScanModule(vbe.get(), *component);
      ASSERT_EQ(scanned.size(), 1u);
      ASSERT_TRUE(scanned[0].status) << scanned[0].status.error();
      const scan::C4_ProcDef& def = scanned[0].def;
      EXPECT_EQ(def.Name(), "Generated");
      EXPECT_EQ(def.ProcKind(), c.kind);
      EXPECT_EQ(def.ProcIsPublic(), c.is_public);
      EXPECT_EQ(def.ProcIsStatic(), c.reads_static);
      EXPECT_EQ(def.ProcIsFunction(), c.type == "Function");
      // The parser reads a return type for functions only.
      EXPECT_EQ(def.ProcReturnType(), c.type == "Function" ? c.return_type : "");
      EXPECT_EQ(def.ProcDefCountOfLines(),
                separate_lines && !c.arguments.empty() ? static_cast<int>(c.arguments.size()) : 1);
      ASSERT_EQ(def.ProcArguments().Count(), static_cast<int>(c.arguments.size()));
      for (int i = 1; i <= def.ProcArguments().Count(); ++i) {
        const scan::C4_ProcArgument& read = def.ProcArguments().Item(i);
        const clsArgument& given = c.arguments[i - 1];
        EXPECT_EQ(read.Name, given.Name);
        EXPECT_EQ(read.IsOptional, given.IsOptional);
        EXPECT_EQ(read.IsPassedByVal, given.IsByVal && !given.IsParamArray);
        EXPECT_EQ(read.IsParamArray, given.IsParamArray);
        EXPECT_EQ(read.IsArray, given.IsArray || given.IsParamArray);
        EXPECT_EQ(read.Type_, given.Type_.empty() || given.IsParamArray ? "Variant" : given.Type_);
        EXPECT_EQ(read.DefaultValue, given.IsOptional ? given.DefaultValue : "");
      }
    }
  }
}

}  // namespace
}  // namespace tavrin::codegen
