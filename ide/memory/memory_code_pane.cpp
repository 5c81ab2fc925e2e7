#include "ide/memory/memory_code_pane.h"

#include "ide/memory/memory_component.h"
#include "ide/memory/memory_vbe.h"
#include "ide/memory/memory_window.h"

namespace tavrin::ide::memory {

MemoryCodePane::MemoryCodePane(std::weak_ptr<MemoryComponent> component)
    : component_(std::move(component)) {}

void MemoryCodePane::SetSelection(const TextRange& selection) {
  if (selection.start_line < 1 || selection.start_column < 1 || selection.end_line < 1 ||
      selection.end_column < 1) {
    throw Error(5, "Invalid procedure call or argument");
  }
  // The selection is a range of text: GetSelection reports its start first,
  // whichever end the caller named first.
  const bool reversed = selection.end_line < selection.start_line ||
                        (selection.end_line == selection.start_line &&
                         selection.end_column < selection.start_column);
  selection_ = reversed ? TextRange{selection.end_line, selection.end_column,
                                    selection.start_line, selection.start_column}
                        : selection;
}

std::shared_ptr<ICodeModule> MemoryCodePane::CodeModule() { return Component()->CodeModule(); }

std::shared_ptr<IWindow> MemoryCodePane::Window() { return Component()->CodeWindow(); }

void MemoryCodePane::Show() {
  auto component = Component();
  if (auto vbe = component->Vbe()) vbe->ActivateWindow(component->CodeWindow());
}

std::shared_ptr<MemoryComponent> MemoryCodePane::Component() {
  auto component = component_.lock();
  if (!component) throw Error(91, "Object variable or With block variable not set");
  return component;
}

}  // namespace tavrin::ide::memory
