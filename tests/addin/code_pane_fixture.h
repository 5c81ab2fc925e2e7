// A module open in the in-memory IDE with its code pane active, and the
// context a command runs with.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "addin/context.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "platform/ide_options.h"
#include "tests/support/code_lines.h"
#include "tests/support/fake_ui.h"

namespace tavrin::addin {

class CodePaneTest : public ::testing::Test {
 protected:
  // Opens a standard module holding `lines` with the caret at line:column,
  // in place of the project opened before: each case of a table starts anew.
  void Open(const std::vector<std::string>& lines, int line = 1, int column = 1) {
    if (project_) vbe_->RemoveProject(project_);
    project_ = vbe_->AddProject("Project1");
    component_ = project_->AddComponent(ide::ComponentType::kStdModule, "Module1", "");
    const auto module = component_->CodeModule();
    for (std::size_t i = 0; i < lines.size(); ++i)
      module->InsertLines(static_cast<int>(i) + 1, lines[i]);
    ASSERT_EQ(module->CountOfLines(), static_cast<int>(lines.size()));
    pane_ = module->CodePane();
    pane_->Show();
    Caret(line, column);
  }

  void Caret(int line, int column) { pane_->SetSelection({line, column, line, column}); }

  std::vector<std::string> Code() { return testing::CodeLines(*component_->CodeModule()); }

  ide::TextRange Selection() { return pane_->GetSelection(); }
  ide::TextRange CaretAt(int line, int column) { return {line, column, line, column}; }

  std::shared_ptr<ide::memory::MemoryVbe> vbe_ = ide::memory::MemoryVbe::Create();
  std::shared_ptr<ide::memory::MemoryProject> project_;
  std::shared_ptr<ide::memory::MemoryComponent> component_;
  std::shared_ptr<ide::ICodePane> pane_;
  testing::FakeUi ui_;
  platform::FixedIdeOptions options_;
  Context context_{*vbe_, ui_, options_};
};

using Lines = std::vector<std::string>;

}  // namespace tavrin::addin
