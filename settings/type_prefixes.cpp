#include "settings/type_prefixes.h"

#include "base/text.h"
#include "settings/ini_file.h"

namespace tavrin::settings {

const TypePrefixRow* TypePrefixTable::Find(std::string_view type_name) const {
  const std::string_view wanted = TrimBlanks(type_name);
  for (const TypePrefixRow& row : rows_)
    if (EqualsIgnoreCase(row.TypeName(), wanted)) return &row;
  return nullptr;
}

std::string TypePrefixTable::Tag(std::string_view type_name, TagUse use) const {
  const TypePrefixRow* row = Find(type_name);
  if (!row) return "";
  const std::string& special = use == TagUse::kConstant   ? row->columns[2]
                               : use == TagUse::kArgument ? row->columns[3]
                                                          : row->columns[1];
  return special.empty() ? row->columns[1] : special;
}

TypePrefixRow ParseTypePrefixRow(std::string_view key, std::string_view value) {
  TypePrefixRow row;
  const auto prefix = FindIgnoreCase(key, "prefix");
  if (prefix == std::string_view::npos) {
    row.columns[0] = std::string(key);
  } else {
    row.columns[0] = std::string(TrimBlanks(key.substr(0, prefix))) +
                     std::string(TrimBlanks(key.substr(prefix + 6)));
  }
  if (value.empty()) return row;
  std::size_t column = 1;
  std::size_t start = 0;
  while (column < row.columns.size()) {
    const auto comma = value.find(',', start);
    row.columns[column++] = std::string(value.substr(start, comma - start));
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  return row;
}

TypePrefixTable LoadTypePrefixTable(platform::ProfileFile& profiles, platform::FileSystem& files,
                                    const std::string& addin_folder, std::string_view file) {
  C4_IniFile ini(profiles, files, addin_folder);
  ini.SetName(file);
  const C4_IniFileSection* section = ini.Name().empty() ? nullptr : ini.Item("Prefix");
  if (!section || !section->Items()) return {};
  std::vector<TypePrefixRow> rows;
  for (const auto& item : *section->Items())
    rows.push_back(ParseTypePrefixRow(item->Key(), item->Value()));
  return TypePrefixTable(std::move(rows));
}

}  // namespace tavrin::settings
