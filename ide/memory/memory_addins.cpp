#include "ide/memory/memory_addins.h"

#include "base/text.h"

namespace tavrin::ide::memory {

std::shared_ptr<IAddIn> MemoryAddins::Item(int index) {
  if (index < 1 || index > Count()) throw Error(9, "Subscript out of range");
  return add_ins_[static_cast<std::size_t>(index - 1)];
}

std::shared_ptr<IAddIn> MemoryAddins::Item(std::string_view prog_id) {
  for (const auto& add_in : add_ins_)
    if (EqualsIgnoreCase(add_in->ProgId(), prog_id)) return add_in;
  throw Error(9, "Subscript out of range");
}

std::shared_ptr<MemoryAddIn> MemoryAddins::Register(std::string prog_id, std::string description,
                                                    bool connected) {
  auto add_in =
      std::make_shared<MemoryAddIn>(std::move(prog_id), std::move(description), connected);
  add_ins_.push_back(add_in);
  return add_in;
}

}  // namespace tavrin::ide::memory
