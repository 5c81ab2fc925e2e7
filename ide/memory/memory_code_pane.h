// The code pane of an in-memory component: a selection over its code module.
#pragma once

#include <memory>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryComponent;

class MemoryCodePane : public ICodePane, public std::enable_shared_from_this<MemoryCodePane> {
 public:
  explicit MemoryCodePane(std::weak_ptr<MemoryComponent> component);

  TextRange GetSelection() override { return selection_; }
  // Stores the selection as given (the tool places carets past the end of a
  // line); only lines and columns below 1 are refused.
  void SetSelection(const TextRange& selection) override;
  std::shared_ptr<ICodeModule> CodeModule() override;
  std::shared_ptr<IWindow> Window() override;
  // Makes this the active code pane and its code window the active window.
  void Show() override;

 private:
  std::shared_ptr<MemoryComponent> Component();

  std::weak_ptr<MemoryComponent> component_;
  TextRange selection_;
};

}  // namespace tavrin::ide::memory
