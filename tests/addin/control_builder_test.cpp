#include "addin/control_builder.h"

#include <gtest/gtest.h>

#include "builders/control_dialog.h"
#include "builders/scripted_dialog_host.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "tests/support/fake_ui.h"

namespace tavrin::addin {
namespace {

using builders::DialogAction;

// The command over the in-memory IDE: only a form designer in front takes
// controls, and what the dialog accepts is what the form gets.
TEST(ControlBuilderTest, AddsToTheActiveFormOnly) {
  struct Case {
    bool form_active;
    std::string list;
    bool added;
    std::size_t controls;
    std::string message;
  };
  const Case cases[] = {
      {false, "Total", false, 0, "You must select a form!"},
      {true, "Total, Paid As CheckBox", true, 3, ""},
      {true, "", false, 0, ""},
  };
  for (const Case& c : cases) {
    const auto vbe = ide::memory::MemoryVbe::Create();
    const auto form =
        vbe->AddProject("Project1")->AddComponent(ide::ComponentType::kVBForm, "frmOrder", "");
    if (c.form_active) vbe->ActivateWindow(form->DesignerWindow());
    testing::FakeUi ui;
    platform::FixedIdeOptions options;
    builders::ScriptedDialogHost host;
    host.Answer(std::string(builders::kControlDialogTitle),
                {DialogAction::Text("controls", c.list), DialogAction::Ok()});
    Context context{*vbe, ui, options};
    context.dialogs = &host;
    EXPECT_EQ(AddControls(context), c.added) << c.list;
    EXPECT_EQ(form->Designer()->VBControls()->Count(), static_cast<int>(c.controls)) << c.list;
    EXPECT_EQ(ui.boxes_shown.empty() ? "" : ui.boxes_shown.back().text, c.message);
  }
}

}  // namespace
}  // namespace tavrin::addin
