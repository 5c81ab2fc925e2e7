// A code pane and module that count the calls crossing into the IDE: in the
// real IDE each one is a call into the host, so commands are judged by how
// many they make.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ide/object_model.h"

namespace tavrin::testing {

class CountingModule : public ide::ICodeModule {
 public:
  explicit CountingModule(std::shared_ptr<ide::ICodeModule> inner) : inner_(std::move(inner)) {}
  int reads = 0;
  int replaces = 0;

  std::shared_ptr<ide::IComponent> Parent() override { return inner_->Parent(); }
  std::string Lines(int start, int count) override {
    ++reads;
    return inner_->Lines(start, count);
  }
  int CountOfLines() override { return inner_->CountOfLines(); }
  int CountOfDeclarationLines() override { return inner_->CountOfDeclarationLines(); }
  void InsertLines(int line, std::string_view text) override { inner_->InsertLines(line, text); }
  void ReplaceLine(int line, std::string_view text) override {
    ++replaces;
    inner_->ReplaceLine(line, text);
  }
  void DeleteLines(int start, int count) override { inner_->DeleteLines(start, count); }
  bool Find(std::string_view target, ide::TextRange& range, ide::FindOptions options) override {
    return inner_->Find(target, range, options);
  }
  ide::ProcRef ProcOfLine(int line) override { return inner_->ProcOfLine(line); }
  int ProcStartLine(std::string_view n, ide::ProcKind k) override { return inner_->ProcStartLine(n, k); }
  int ProcBodyLine(std::string_view n, ide::ProcKind k) override { return inner_->ProcBodyLine(n, k); }
  int ProcCountLines(std::string_view n, ide::ProcKind k) override { return inner_->ProcCountLines(n, k); }
  std::shared_ptr<ide::ICodePane> CodePane() override { return inner_->CodePane(); }

 private:
  std::shared_ptr<ide::ICodeModule> inner_;
};

class CountingPane : public ide::ICodePane {
 public:
  explicit CountingPane(std::shared_ptr<ide::ICodePane> inner)
      : inner_(inner), module_(std::make_shared<CountingModule>(inner->CodeModule())) {}
  ide::TextRange GetSelection() override { return inner_->GetSelection(); }
  void SetSelection(const ide::TextRange& selection) override { inner_->SetSelection(selection); }
  std::shared_ptr<ide::ICodeModule> CodeModule() override { return module_; }
  std::shared_ptr<ide::IWindow> Window() override { return inner_->Window(); }
  void Show() override { inner_->Show(); }
  CountingModule& counts() { return *module_; }

 private:
  std::shared_ptr<ide::ICodePane> inner_;
  std::shared_ptr<CountingModule> module_;
};

}  // namespace tavrin::testing
