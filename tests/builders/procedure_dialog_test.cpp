// The procedure builder: its defaults per module kind, its refusals, the
// preview, and Add Procedure inserting through the in-memory IDE.
#include "builders/procedure_dialog.h"

#include "addin/procedure_builder.h"
#include "builders/scripted_dialog_host.h"
#include "tests/addin/code_pane_fixture.h"

namespace tavrin::addin {
namespace {

using A = builders::DialogAction;
using builders::ProcedureDialog;
using settings::Item;

const char *const kOptions[] = {"header",    "name_constant",  "error_handler",
                                "hourglass", "separate_lines", "return_line"};

std::string Checks(ProcedureDialog &dialog) {
  std::string marks;
  for (const char *id : kOptions)
    marks += builders::FindField(dialog.Fields(), id)->checked ? 'x' : '.';
  return marks;
}

TEST(ProcedureDialogTest, OptionsComeFromTheModuleKindsSection) {
  settings::ValueTable values;
  values.Set(Item::kAddHeaderMethod, false);
  values.Set(Item::kAddMethodConstant, false);
  values.Set(Item::kAddErrorHandlingMethod, std::string(""));
  values.Set(Item::kAddHourglassProcedure, true);
  values.Set(Item::kArgumentsOnSeparateLines, false);
  values.Set(Item::kAddReturnStatement, true);
  const struct {
    ide::ComponentType type;
    std::string checks; // in kOptions' order
  } cases[] = {{ide::ComponentType::kStdModule, "xxxx.x"},
               {ide::ComponentType::kClassModule, ".....x"},
               {ide::ComponentType::kVBForm, ".....x"},
               {ide::ComponentType::kUserControl, ".....x"}};
  for (const auto &c : cases) {
    SCOPED_TRACE(static_cast<int>(c.type));
    const auto vbe = ide::memory::MemoryVbe::Create();
    const auto project = vbe->AddProject("Project1");
    project->AddComponent(ide::ComponentType::kClassModule, "clsCustomer", "");
    const auto module =
        project->AddComponent(c.type, "Target", "")->CodeModule();
    ProcedureDialog dialog(ProcedureTargetOf(*vbe, *module), values, {});
    EXPECT_EQ(Checks(dialog), c.checks);
    const auto *returns = builders::FindField(dialog.Fields(), "returns");
    EXPECT_EQ(returns->items.back(), c.type == ide::ComponentType::kClassModule
                                         ? "Target"
                                         : "clsCustomer");
    EXPECT_FALSE(returns->enabled); // a Sub at first
  }
}

TEST(ProcedureDialogTest, RefusesBadNamesAndArguments) {
  const struct {
    builders::DialogScript script;
    std::string message;
  } cases[] = {
      {{}, "Please enter a name."},
      {{A::Text("name", "Do It")},
       "A name may contain only letters, digits and the underscore (_)."},
      {{A::Text("name", "2nd")}, "A name must begin with a letter."},
      {{A::Text("name", std::string(256, 'x'))},
       "A name may not be longer than 255 characters."},
      {{A::Text("name", "loop")},
       "This name is a reserved word of Visual Basic. Please choose another "
       "name."},
      {{A::Text("name", "Go"), A::Press("add"), A::Press("add")},
       "The argument name 'n' is used twice."},
      {{A::Text("name", "Go"), A::Press("opt"), A::Press("add")},
       codegen::ArgumentOrderMessage(codegen::kRequiredAfterOptional)},
      {{A::Text("name", "Go"), A::Press("param"), A::Press("add")},
       codegen::ArgumentOrderMessage(codegen::kArgumentAfterParamArray)},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.message);
    builders::ScriptedDialogHost host;
    builders::DialogScript script;
    for (const A &step : c.script) {
      if (step.op == A::Op::kPress && step.id != "add") {
        host.Answer("Argument",
                    {A::Text("name", step.id),
                     A::Check(step.id == "opt" ? "optional" : "paramarray"),
                     A::Ok()});
        script.push_back(A::Press("add"));
      } else {
        if (step.op == A::Op::kPress)
          host.Answer("Argument", {A::Text("name", "n"), A::Ok()});
        script.push_back(step);
      }
    }
    script.push_back(A::Ok());
    host.Answer("Add Procedure", script);
    ProcedureDialog dialog({}, settings::ValueTable{}, {});
    EXPECT_FALSE(host.Show(dialog));
    EXPECT_EQ(host.refusals, std::vector<std::string>{c.message});
    EXPECT_TRUE(host.errors.empty()) << host.errors[0];
  }
}

TEST(ProcedureDialogTest, ButtonsEditTheArgumentList) {
  const struct {
    builders::DialogScript steps; // after adding a, b and c
    std::vector<std::string> items;
  } cases[] = {
      {{}, {"a", "b", "c"}},
      {{A::Press("up")}, {"a", "c", "b"}},
      {{A::Press("up"), A::Press("up")}, {"c", "a", "b"}},
      {{A::Pick("arguments", "a"), A::Press("down")}, {"b", "a", "c"}},
      {{A::Pick("arguments", "b"), A::Press("remove")}, {"a", "c"}},
      {{A::Pick("arguments", "a"), A::Press("edit")},
       {"ByVal x As Long", "b", "c"}},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.items[0]);
    builders::ScriptedDialogHost host;
    builders::DialogScript script;
    for (const char *name : {"a", "b", "c"}) {
      host.Answer("Argument", {A::Text("name", name), A::Ok()});
      script.push_back(A::Press("add"));
    }
    host.Answer("Argument", {A::Text("name", "x"), A::Text("type", "Long"),
                             A::Check("byval"), A::Ok()});
    script.insert(script.end(), c.steps.begin(), c.steps.end());
    script.push_back(A::Text("name", "Go"));
    script.push_back(A::Ok());
    host.Answer("Add Procedure", script);
    ProcedureDialog dialog({}, settings::ValueTable{}, {});
    EXPECT_TRUE(host.Show(dialog));
    EXPECT_EQ(builders::FindField(dialog.Fields(), "arguments")->items,
              c.items);
    EXPECT_EQ(builders::FindField(dialog.Fields(), "preview")->text,
              dialog.Code());
    EXPECT_TRUE(host.errors.empty()) << host.errors[0];
  }
}

TEST(ProcedureDialogTest, ArgumentDialogRefusesAnEmptyName) {
  builders::ArgumentDialog dialog(builders::SimpleTypes());
  EXPECT_EQ(dialog.Accept()->message, "Please enter a name.");
}

class AddProcedureTest : public CodePaneTest {
protected:
  void SetUp() override { context_.dialogs = &host_; }

  // A Function with one ByVal argument and no options.
  void AnswerFunction() {
    host_.Answer("Argument", {A::Text("name", "n"), A::Text("type", "Long"),
                              A::Check("byval"), A::Ok()});
    builders::DialogScript script = {
        A::Text("name", "Twice"), A::Pick("kind", "Function"),
        A::Pick("access", "Private"), A::Pick("returns", "Long"),
        A::Press("add")};
    for (const char *id : kOptions)
      script.push_back(A::Check(id, false));
    script.push_back(A::Ok());
    host_.Answer("Add Procedure", script);
  }
  builders::ScriptedDialogHost host_;
};

const Lines kModule = {"Option Explicit", "", "Sub A()", "    x = 1",
                       "End Sub",         "", "Sub B()", "End Sub"};
const Lines kFunction = {"Private Function Twice(ByVal n As Long) As Long", "",
                         "End Function"};

TEST_F(AddProcedureTest, InsertsBelowTheProcedureAtTheCaret) {
  const struct {
    int caret_line;
    int at; // the line the procedure starts on
  } cases[] = {{4, 6}, {1, 2}, {8, 9}};
  for (const auto &c : cases) {
    SCOPED_TRACE(c.caret_line);
    Open(kModule, c.caret_line, 1);
    AnswerFunction();
    ASSERT_TRUE(AddProcedure(context_));
    const Lines code = Code();
    ASSERT_GE(code.size(), static_cast<std::size_t>(c.at + 2));
    EXPECT_EQ(Lines(code.begin() + c.at, code.begin() + c.at + 3), kFunction);
    EXPECT_EQ(Selection(), CaretAt(c.at + 2, 1));
    EXPECT_TRUE(host_.errors.empty()) << host_.errors[0];
  }
}

TEST_F(AddProcedureTest, CancelInsertsNothing) {
  Open(kModule, 4, 1);
  host_.Answer("Add Procedure", {A::Text("name", "Go"), A::Cancel()});
  EXPECT_FALSE(AddProcedure(context_));
  EXPECT_EQ(Code(), kModule);
}

TEST_F(AddProcedureTest, PreviewIsTheInsertedText) {
  Open(kModule, 4, 1);
  ProcedureDialog dialog({}, settings::ValueTable{}, {});
  builders::FindField(dialog.Fields(), "name")->text = "Go";
  dialog.Changed("name");
  EXPECT_EQ(builders::FindField(dialog.Fields(), "preview")->text,
            dialog.Code());
  EXPECT_NE(dialog.Code().find("Public Sub Go()"), std::string::npos);
}

} // namespace
} // namespace tavrin::addin
