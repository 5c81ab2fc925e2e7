// A 1-based collection over a snapshot of objects, looked up by position or
// by name (case-insensitive, the first of equal names).
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "ide/object_model.h"

namespace tavrin::ide::memory {

// Item(index) and Item(name) over a vector, raising error 9 as the IDE's
// collections do.
template <class T>
std::shared_ptr<T> ItemAt(const std::vector<std::shared_ptr<T>>& items, int index) {
  if (index < 1 || index > static_cast<int>(items.size())) throw Error(9, "Subscript out of range");
  return items[static_cast<std::size_t>(index - 1)];
}

template <class T, class NameOf>
std::shared_ptr<T> ItemNamed(const std::vector<std::shared_ptr<T>>& items, std::string_view name,
                             NameOf name_of, int error_number = 9) {
  for (const auto& item : items) {
    if (EqualsIgnoreCase(name_of(*item), name)) return item;
  }
  throw Error(error_number, error_number == 9 ? "Subscript out of range"
                                              : "Invalid procedure call or argument");
}

template <class T, class Base = ICollection<T>>
class ListCollection : public Base {
 public:
  using NameOf = std::function<std::string(T&)>;

  ListCollection(std::vector<std::shared_ptr<T>> items, NameOf name_of)
      : items_(std::move(items)), name_of_(std::move(name_of)) {}

  int Count() override { return static_cast<int>(items_.size()); }

  std::shared_ptr<T> Item(int index) override { return ItemAt(items_, index); }
  std::shared_ptr<T> Item(std::string_view name) override {
    return ItemNamed(items_, name, name_of_);
  }

 private:
  std::vector<std::shared_ptr<T>> items_;
  NameOf name_of_;
};

}  // namespace tavrin::ide::memory
