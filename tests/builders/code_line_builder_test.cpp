// The call line and the code line builder's model: the text for each
// option, the argument fields, the defaults from the settings and the
// refusals.
#include <gtest/gtest.h>

#include "builders/code_line_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "codegen/call_line.h"
#include "settings/value_table.h"

namespace tavrin::builders {
namespace {

using A = DialogAction;
using codegen::Callable;
using codegen::CallOptions;

Callable Make(std::string name, std::string declaration, bool function = false,
              std::string returns = "") {
  Callable callable{"basData", std::move(name), function, std::move(returns), {}, ""};
  scan::C4_ProcArguments arguments;
  EXPECT_TRUE(arguments.init(declaration));
  callable.arguments = arguments.Items();
  return callable;
}

const Callable kSave = Make("SaveRecord", "Sub SaveRecord(ByVal id As Long, Optional name$ = \"x\", Optional ByVal flags As Long)");
const Callable kFind = Make("FindCustomer", "Function FindCustomer(key As String, Optional exact As Boolean)", true, "Customer");
const Callable kCount = Make("CountRows", "Function CountRows()", true, "Long");
const Callable kLog = Make("LogAll", "Sub LogAll(level As Integer, ParamArray items())");

TEST(CallLineTest, Text) {
  const CallOptions plain, named{true}, lines{false, true}, comment{false, false, true};
  const struct {
    const Callable& callable;
    std::vector<std::string> values;
    std::string result;
    CallOptions options;
    std::string text;
  } cases[] = {
      {kSave, {"7"}, "", plain, "    SaveRecord 7<cursor>"},
      {kSave, {"7", "", "3"}, "", plain, "    SaveRecord 7, , 3<cursor>"},
      {kSave, {"7", "", "3"}, "", named, "    SaveRecord id:=7, flags:=3<cursor>"},
      {kSave, {"7", "\"a\""}, "", named, "    SaveRecord id:=7, name:=\"a\"<cursor>"},
      {kSave, {"7", " ", ""}, "", plain, "    SaveRecord 7<cursor>"},
      {kSave, {"7", "s", "3"}, "", lines,
       "    SaveRecord 7, _\r\n               s, _\r\n               3<cursor>"},
      {kFind, {"k"}, "", plain, "    Set <cursor> = FindCustomer(k)"},
      {kFind, {"k", "True"}, "<New Variable>", named,
       "    Set <cursor> = FindCustomer(key:=k, exact:=True)"},
      {kFind, {"k"}, "c", lines, "    Set c = FindCustomer(k)<cursor>"},
      {kCount, {}, "n", plain, "    n = CountRows<cursor>"},
      {kLog, {"1", "a, b"}, "", named, "    LogAll 1, a, b<cursor>"},  // ParamArray: by place
      {kLog, {"1"}, "", comment, "    ' basData.LogAll\r\n    LogAll 1<cursor>"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(codegen::CallLineText(c.callable, c.values, c.result, c.options, "    "), c.text);
  }
}

TEST(CallLineTest, Problems) {
  int at = -1;
  EXPECT_EQ(codegen::CallLineProblem(kSave, {"", "a"}, &at),
            "The argument id of SaveRecord is not optional: give it a value.");
  EXPECT_EQ(at, 0);
  EXPECT_EQ(codegen::CallLineProblem(kCount, {"1"}), "CountRows takes 0 argument(s), not 1.");
  EXPECT_EQ(codegen::CallLineProblem(kLog, {"1"}), std::nullopt);
}

std::vector<CallableModule> Modules() {
  return {{"basData", {kSave, kFind}}, {"basLog", {kLog, kCount}}};
}

TEST(CodeLineDialogTest, DefaultsComeFromTheLinesOfCodeBuilderSettings) {
  settings::ValueTable values;
  EXPECT_EQ(CallOptionsFrom(values).explicit_arguments, false);
  values.Set(settings::Item::kExplicitArguments, true);
  values.Set(settings::Item::kIncludeComment, true);
  CodeLineDialog dialog(Modules(), "basLog", CallOptionsFrom(values), "  ");
  auto& fields = dialog.Fields();
  EXPECT_TRUE(FindField(fields, "explicit")->checked);
  EXPECT_FALSE(FindField(fields, "each_line")->checked);
  EXPECT_TRUE(FindField(fields, "comment")->checked);
  // The current module and its first procedure are picked at first.
  EXPECT_EQ(FindField(fields, "module")->text, "basLog");
  EXPECT_EQ(FindField(fields, "procedure")->items, (std::vector<std::string>{"LogAll", "CountRows"}));
  EXPECT_EQ(FindField(fields, "arg1")->caption, "&1 level As Integer:");
  EXPECT_EQ(FindField(fields, "arg2")->caption, "&2 ParamArray items() As Variant:");
  EXPECT_FALSE(FindField(fields, "arg3")->visible);
  EXPECT_FALSE(FindField(fields, "result")->enabled);
}

TEST(CodeLineDialogTest, ScriptedShowings) {
  const struct {
    DialogScript script;
    bool accepted;
    std::string code;
    std::vector<std::string> refusals;
  } cases[] = {
      {{A::Pick("procedure", "FindCustomer"), A::Text("arg1", "sKey"), A::Ok()}, true,
       "Set <cursor> = FindCustomer(sKey)", {}},
      {{A::Pick("module", "basLog"), A::Pick("procedure", "CountRows"), A::Text("result", "n"),
        A::Ok()},
       true, "n = CountRows<cursor>", {}},
      {{A::Text("arg2", "\"b\""), A::Ok(), A::Text("arg1", "1"), A::Check("explicit"), A::Ok()},
       true, "SaveRecord id:=1, name:=\"b\"<cursor>",
       {"The argument id of SaveRecord is not optional: give it a value."}},
      {{A::Text("arg1", "1"), A::Pick("procedure", "FindCustomer"), A::Ok(), A::Cancel()}, false,
       "", {"The argument key of FindCustomer is not optional: give it a value."}},
  };
  for (const auto& c : cases) {
    CodeLineDialog dialog(Modules(), "basData", {}, "");
    ScriptedDialogHost host;
    host.Answer(std::string(kCodeLineDialogTitle), c.script);
    EXPECT_EQ(host.Show(dialog), c.accepted);
    EXPECT_EQ(host.refusals, c.refusals);
    EXPECT_TRUE(host.errors.empty());
    if (c.accepted) {
      EXPECT_EQ(dialog.Code(), c.code);
    }
  }
}

TEST(CodeLineDialogTest, PreviewShowsThePlaceholderAndHiddenFieldsCannotBeFilled) {
  CodeLineDialog dialog(Modules(), "basData", {}, "");
  ScriptedDialogHost host;
  host.Answer(std::string(kCodeLineDialogTitle),
              {A::Pick("procedure", "FindCustomer"), A::Text("arg1", "k"), A::Text("arg3", "x")});
  EXPECT_FALSE(host.Show(dialog));
  EXPECT_EQ(FindField(dialog.Fields(), "preview")->text, "Set <New Variable> = FindCustomer(k)");
  EXPECT_EQ(host.errors, (std::vector<std::string>{"Insert Line Of Code: no usable field arg3"}));
}

TEST(CodeLineDialogTest, NothingToCallIsRefused) {
  CodeLineDialog dialog({}, "basData", {}, "");
  ASSERT_TRUE(dialog.Accept());
  EXPECT_EQ(dialog.Accept()->message, "There is no procedure to call.");
}

}  // namespace
}  // namespace tavrin::builders
