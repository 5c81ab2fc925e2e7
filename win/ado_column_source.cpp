#include "win/ado_column_source.h"

#include <memory>
#include <utility>

#include "base/text.h"
#include "win/dispatch.h"

namespace tavrin::win {
namespace {

// Closes an opened Connection or Recordset when it goes, errors ignored:
// the object itself is released by its ComPtr after that.
class ClosesOnExit {
 public:
  explicit ClosesOnExit(const Dispatch& object) : object_(object) {}
  ClosesOnExit(const ClosesOnExit&) = delete;
  ClosesOnExit& operator=(const ClosesOnExit&) = delete;
  ~ClosesOnExit() {
    try {
      object_.Call("Close");
    } catch (...) {
    }
  }

 private:
  const Dispatch& object_;
};

// A database file is opened with the provider of its kind; anything else
// is taken as a connection string.
std::string ConnectionString(std::string_view database) {
  const auto ends = [&](std::string_view extension) {
    return database.size() > extension.size() &&
           EqualsIgnoreCase(database.substr(database.size() - extension.size()), extension);
  };
  if (ends(".mdb")) return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + std::string(database);
  if (ends(".accdb"))
    return "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + std::string(database);
  return std::string(database);
}

Result<Dispatch> CreateConnection() {
  CLSID clsid{};
  ComPtr<IDispatch> object;
  if (FAILED(::CLSIDFromProgID(L"ADODB.Connection", &clsid)) ||
      FAILED(::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                IID_IDispatch, object.put_void())))
    return Error{"ADO (ADODB.Connection) is not installed on this computer."};
  return Dispatch(std::move(object), std::make_shared<DispIdCache>(), "Connection");
}

}  // namespace

std::string VbTypeOfAdoType(long ado_type) {
  // ADO's DataTypeEnum values and the Visual Basic type that holds each.
  static constexpr std::pair<long, std::string_view> kTypes[] = {
      {11, "Boolean"},                                   // adBoolean
      {16, "Byte"},     {17, "Byte"},                    // adTinyInt, adUnsignedTinyInt
      {2, "Integer"},   {18, "Integer"},                 // adSmallInt, adUnsignedSmallInt
      {3, "Long"},      {19, "Long"},                    // adInteger, adUnsignedInt
      {4, "Single"},    {5, "Double"},                   // adSingle, adDouble
      {14, "Double"},   {131, "Double"}, {139, "Double"},  // adDecimal, adNumeric, adVarNumeric
      {6, "Currency"},  {20, "Currency"}, {21, "Currency"},  // adCurrency, adBigInt, unsigned
      {7, "Date"},      {64, "Date"},    {133, "Date"},  // adDate, adFileTime, adDBDate,
      {134, "Date"},    {135, "Date"},                   // adDBTime, adDBTimeStamp
      {8, "String"},    {72, "String"},                  // adBSTR, adGUID
      {129, "String"},  {130, "String"}, {200, "String"},  // adChar, adWChar, adVarChar,
      {201, "String"},  {202, "String"}, {203, "String"},  // adLong..., adVarWChar, ...
  };
  for (const auto& [code, type] : kTypes)
    if (code == ado_type) return std::string(type);
  return "Variant";
}

Result<std::vector<formtools::Column>> AdoColumnSource::Columns(std::string_view database,
                                                                std::string_view table) {
  const std::string where = "The columns of " + std::string(table) + " could not be read: ";
  try {
    auto created = CreateConnection();
    if (!created) return Error{created.error()};
    const Dispatch& connection = *created;
    try {
      connection.Call("Open", {Variant::String(ConnectionString(database))});
    } catch (const ide::Error& error) {
      return Error{"The database could not be opened: " + std::string(error.what())};
    }
    const ClosesOnExit close_connection(connection);
    const Dispatch records = connection.Wrap(
        connection.CallObject(
            "Execute", {Variant::String("SELECT * FROM [" + std::string(table) + "] WHERE 1=0")}),
        "Recordset");
    if (!records) return Error{where + "the table gave no recordset."};
    const ClosesOnExit close_records(records);
    const Dispatch fields = records.Wrap(records.GetObject("Fields"), "Fields");
    std::vector<formtools::Column> columns;
    const long count = VariantToLong(*fields.Get("Count").get());
    for (long i = 0; i < count; ++i) {
      const Dispatch field = fields.Wrap(fields.GetObject("Item", {Variant::Long(i)}), "Field");
      columns.push_back({VariantToString(*field.Get("Name").get()),
                         VbTypeOfAdoType(VariantToLong(*field.Get("Type").get()))});
    }
    return columns;
  } catch (const ide::Error& error) {
    return Error{where + error.what()};
  } catch (const std::exception& error) {
    return Error{where + error.what()};
  }
}

}  // namespace tavrin::win
