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

template <class T, class Base = ICollection<T>>
class ListCollection : public Base {
 public:
  using NameOf = std::function<std::string(T&)>;

  ListCollection(std::vector<std::shared_ptr<T>> items, NameOf name_of)
      : items_(std::move(items)), name_of_(std::move(name_of)) {}

  int Count() override { return static_cast<int>(items_.size()); }

  std::shared_ptr<T> Item(int index) override {
    if (index < 1 || index > Count()) throw Error(9, "Subscript out of range");
    return items_[static_cast<std::size_t>(index - 1)];
  }

  std::shared_ptr<T> Item(std::string_view name) override {
    for (const auto& item : items_) {
      if (EqualsIgnoreCase(name_of_(*item), name)) return item;
    }
    throw Error(9, "Subscript out of range");
  }

 private:
  std::vector<std::shared_ptr<T>> items_;
  NameOf name_of_;
};

}  // namespace tavrin::ide::memory
