#include "ide/memory/memory_addins.h"

#include "ide/memory/memory_collection.h"

namespace tavrin::ide::memory {

std::shared_ptr<IAddIn> MemoryAddins::Item(int index) { return ItemAt(add_ins_, index); }

std::shared_ptr<IAddIn> MemoryAddins::Item(std::string_view prog_id) {
  return ItemNamed(add_ins_, prog_id, [](IAddIn& add_in) { return add_in.ProgId(); });
}

std::shared_ptr<MemoryAddIn> MemoryAddins::Register(std::string prog_id, std::string description,
                                                    bool connected) {
  auto add_in =
      std::make_shared<MemoryAddIn>(std::move(prog_id), std::move(description), connected);
  add_ins_.push_back(add_in);
  return add_in;
}

}  // namespace tavrin::ide::memory
