#include "formtools/column_source.h"

#include <cctype>

#include "base/text.h"

namespace tavrin::formtools {

std::string ControlTypeFor(std::string_view vb_type) {
  return EqualsIgnoreCase(vb_type, "Boolean") ? "CheckBox" : "TextBox";
}

std::vector<ControlEntry> EntriesFor(const std::vector<Column>& columns) {
  std::vector<ControlEntry> entries;
  for (const Column& column : columns) {
    std::string name;
    for (char c : column.name)
      if (std::isalnum(static_cast<unsigned char>(c)) || c == '_') name += c;
    if (name.empty() || !std::isalpha(static_cast<unsigned char>(name.front()))) continue;
    entries.push_back({std::move(name), ControlTypeFor(column.type)});
  }
  return entries;
}

}  // namespace tavrin::formtools
