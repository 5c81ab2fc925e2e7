#include "ide/memory/memory_window.h"

#include "ide/memory/memory_vbe.h"

namespace tavrin::ide::memory {

MemoryWindow::MemoryWindow(std::weak_ptr<MemoryVbe> vbe, WindowType type,
                           std::function<std::string()> caption)
    : vbe_(std::move(vbe)), type_(type), caption_(std::move(caption)) {}

void MemoryWindow::SetFocus() {
  if (auto vbe = vbe_.lock()) vbe->ActivateWindow(shared_from_this());
}

}  // namespace tavrin::ide::memory
