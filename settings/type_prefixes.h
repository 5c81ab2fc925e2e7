// The type-prefix table: one row per key of the section "Prefix" of the
// prefix standards file, giving the tags of each declared type.
//
// Columns: 1 the type name (the key less the word "Prefix"); 2 the tag of
// variables, constants and arguments; 3 the tag of constants and 4 the tag
// of arguments when they differ (empty: column 2); 5 a description.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/profile_file.h"

namespace tavrin::settings {

struct TypePrefixRow {
  std::array<std::string, 5> columns;
  const std::string& TypeName() const { return columns[0]; }
};

enum class TagUse { kVariable, kConstant, kArgument };

class TypePrefixTable {
 public:
  TypePrefixTable() = default;
  explicit TypePrefixTable(std::vector<TypePrefixRow> rows) : rows_(std::move(rows)) {}

  const std::vector<TypePrefixRow>& Rows() const { return rows_; }
  // The row of a type, matched without regard to case; nullptr when none.
  const TypePrefixRow* Find(std::string_view type_name) const;
  // The type's tag for that use; "" for a type without a row.
  std::string Tag(std::string_view type_name, TagUse use) const;

 private:
  std::vector<TypePrefixRow> rows_;
};

// One row from a key and value of the "Prefix" section.
TypePrefixRow ParseTypePrefixRow(std::string_view key, std::string_view value);

// Reads the section "Prefix" of `file` (the `Prefix Standards File`
// setting, resolved like every INI name); empty when the file or the section
// is missing.
TypePrefixTable LoadTypePrefixTable(platform::ProfileFile& profiles, platform::FileSystem& files,
                                    const std::string& addin_folder, std::string_view file);

}  // namespace tavrin::settings
