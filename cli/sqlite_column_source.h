// The control builder's database columns from an SQLite file: the declared
// type of each column of a table (PRAGMA table_info) mapped to the Visual
// Basic type that holds it, by SQLite's own affinity rules. Builds without
// SQLite (the Windows tool) answer every request with a message saying so.
#pragma once

#include "formtools/column_source.h"

namespace tavrin::cli {

class SqliteColumnSource : public formtools::ColumnSource {
 public:
  Result<std::vector<formtools::Column>> Columns(std::string_view database,
                                                 std::string_view table) override;
};

// "INTEGER" → "Long", "VARCHAR(40)" → "String", "BOOLEAN" → "Boolean", ...
std::string VbTypeOfSqliteType(std::string_view declared);

}  // namespace tavrin::cli
