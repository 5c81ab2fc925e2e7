#include "builders/dialog.h"

#include <algorithm>

namespace tavrin::builders {

Field MakeField(std::string id, FieldKind kind, std::string caption) {
  Field field;
  field.id = std::move(id);
  field.kind = kind;
  field.caption = std::move(caption);
  return field;
}

Field* FindField(std::vector<Field>& fields, std::string_view id) {
  const auto found =
      std::find_if(fields.begin(), fields.end(), [&](const Field& f) { return f.id == id; });
  return found == fields.end() ? nullptr : &*found;
}

}  // namespace tavrin::builders
