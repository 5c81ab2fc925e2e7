#include "cli/sqlite_column_source.h"

#include <filesystem>
#include <memory>

#include "base/text.h"

#ifdef TAVRIN_HAVE_SQLITE
#include <sqlite3.h>
#endif

namespace tavrin::cli {

std::string VbTypeOfSqliteType(std::string_view declared) {
  const auto has = [&](std::string_view part) {
    return FindIgnoreCase(declared, part) != std::string_view::npos;
  };
  // Names SQLite gives no affinity of their own come first; then its rules
  // in their order (INT, then CHAR/CLOB/TEXT, then REAL/FLOA/DOUB).
  if (has("BOOL")) return "Boolean";
  if (has("DATE") || has("TIME")) return "Date";
  if (has("MONEY") || has("CURRENCY")) return "Currency";
  if (has("INT")) return "Long";
  if (has("CHAR") || has("CLOB") || has("TEXT")) return "String";
  if (has("REAL") || has("FLOA") || has("DOUB")) return "Double";
  if (has("DEC") || has("NUM")) return "Double";
  return "Variant";
}

#ifdef TAVRIN_HAVE_SQLITE

namespace {

struct CloseDatabase {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

std::string Text(const unsigned char* text) {
  return text ? reinterpret_cast<const char*>(text) : "";
}

}  // namespace

Result<std::vector<formtools::Column>> SqliteColumnSource::Columns(std::string_view database,
                                                                   std::string_view table) {
  const std::string file(database);
  if (!std::filesystem::is_regular_file(file)) return Error{"There is no database file " + file + "."};
  sqlite3* opened = nullptr;
  const int open_status = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
  const std::unique_ptr<sqlite3, CloseDatabase> db(opened);
  if (open_status != SQLITE_OK)
    return Error{"The database " + file + " could not be opened: " + sqlite3_errstr(open_status)};
  // table_info takes the table as a string: quoted as SQL quotes one.
  std::string quoted = "'";
  for (char c : table) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  const std::string sql = "PRAGMA table_info(" + quoted + "')";
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(db.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    return Error{"The database " + file + " could not be read: " + sqlite3_errmsg(db.get())};
  const std::unique_ptr<sqlite3_stmt, FinalizeStatement> statement(prepared);
  std::vector<formtools::Column> columns;
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(statement.get())) == SQLITE_ROW)
    columns.push_back({Text(sqlite3_column_text(statement.get(), 1)),
                       VbTypeOfSqliteType(Text(sqlite3_column_text(statement.get(), 2)))});
  if (step != SQLITE_DONE)
    return Error{"The database " + file + " could not be read: " + sqlite3_errmsg(db.get())};
  if (columns.empty())
    return Error{"The database " + file + " has no table " + std::string(table) + "."};
  return columns;
}

#else

Result<std::vector<formtools::Column>> SqliteColumnSource::Columns(std::string_view,
                                                                   std::string_view) {
  return Error{"This build of tavrin reads no SQLite files."};
}

#endif

}  // namespace tavrin::cli
