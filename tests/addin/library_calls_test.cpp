// Explicit Argument on a call of a referenced library's procedure: the
// arguments' names come from the type library when the projects do not
// declare the procedure; a library that cannot be read is told once.
#include <gtest/gtest.h>

#include "addin/explicit_arguments.h"
#include "ide/memory/memory_references.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

// Reads "VBA" (a module Strings with Left and a vararg Choose) and refuses
// anything else.
class VbaOnly : public scan::TypeLibraryReader {
 public:
  Result<scan::TypeLibrary> Read(const scan::LibraryReference& reference) override {
    ++reads;
    if (reference.name != "VBA") return Error{"cannot read " + reference.Label()};
    scan::TypeLibrary library{"VBA", "Visual Basic For Applications", {}};
    const auto add = [&](std::string name, std::string arguments) {
      scan::Declaration procedure;
      procedure.kind = scan::DeclKind::kProcedure;
      procedure.scope = scan::DeclScope::kGlobal;
      procedure.name = std::move(name);
      procedure.parent = "Strings";
      procedure.arguments = std::move(arguments);
      library.members.push_back(std::move(procedure));
    };
    add("Left", "ByVal String As Variant, ByVal Length As Long");
    add("Choose", "ByVal Index As Single, ParamArray Choice()");
    add("Save", "ByVal Library As Long");  // the project's own Save comes first
    return library;
  }
  int reads = 0;
};

class LibraryCallsTest : public CodePaneTest {
 protected:
  void SetUp() override {
    Open({"Sub Save(ByVal id As Long)", "End Sub", "Sub Main()", "    ", "End Sub"}, 4, 5);
    for (const char* name : {"VBA", "Broken"}) {
      ide::memory::VbpReference reference;
      reference.guid = std::string("{") + name[0] + "0000000-0000-0000-0000-000000000000}";
      reference.path = std::string(name) + ".tlb";
      project_->AddReference(std::make_shared<ide::memory::MemoryReference>(reference, name));
    }
    context_.type_libraries = &libraries_;
  }

  void Type(const std::string& text) {
    component_->CodeModule()->ReplaceLine(4, "    " + text);
    Caret(4, 5);
  }

  VbaOnly reader_;
  scan::TypeLibraryScanner libraries_{reader_};
};

TEST_F(LibraryCallsTest, NamesTheArgumentsOfALibraryProcedure) {
  const struct {
    std::string typed, expected;  // expected empty: refused
  } cases[] = {
      {"x = Left(s, 3)", "    x = Left(String:=s, Length:=3)"},
      {"x = Strings.Left(s, 3)", "    x = Strings.Left(String:=s, Length:=3)"},
      {"x = VBA.Left(s, 3)", "    x = VBA.Left(String:=s, Length:=3)"},
      {"Save 7", "    Save id:=7"},
      {"x = Choose(i, a, b)", ""},  // a ParamArray's values have no name
      {"x = Other.Left(s, 3)", ""},
  };
  for (const auto& c : cases) {
    Type(c.typed);
    EXPECT_EQ(ExplicitArguments(context_), !c.expected.empty()) << c.typed;
    EXPECT_EQ(Code()[3], c.expected.empty() ? "    " + c.typed : c.expected);
  }
  // Each library read once; the one that fails told once, not per call.
  EXPECT_EQ(reader_.reads, 2);
  int told = 0;
  for (const auto& box : ui_.boxes_shown) told += box.text.find("cannot read Broken") != std::string::npos;
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace tavrin::addin
