// A window of the in-memory IDE: the main window, the project, properties and
// immediate windows, and each component's code and designer windows.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryVbe;
class MemoryCodePane;

class MemoryWindow : public IWindow, public std::enable_shared_from_this<MemoryWindow> {
 public:
  // The caption is computed when asked, so renaming shows at once.
  MemoryWindow(std::weak_ptr<MemoryVbe> vbe, WindowType type,
               std::function<std::string()> caption);

  WindowType Type() override { return type_; }
  std::string Caption() override { return caption_(); }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }
  // Makes this the VBE's active window.
  void SetFocus() override;

  // The pane shown in a code window; nullptr for other windows.
  std::shared_ptr<MemoryCodePane> Pane() const { return pane_.lock(); }
  void SetPane(std::weak_ptr<MemoryCodePane> pane) { pane_ = std::move(pane); }

 private:
  std::weak_ptr<MemoryVbe> vbe_;
  WindowType type_;
  std::function<std::string()> caption_;
  bool visible_ = true;
  std::weak_ptr<MemoryCodePane> pane_;
};

}  // namespace tavrin::ide::memory
