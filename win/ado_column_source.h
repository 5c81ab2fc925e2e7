// The control builder's database columns through ADO, late bound: an
// ADODB.Connection opened with the connection string (a .mdb or .accdb file
// is opened with the Jet or ACE provider), then the fields of an empty
// recordset of the table give each column's name and type.
#pragma once

#include "formtools/column_source.h"

namespace tavrin::win {

class AdoColumnSource : public formtools::ColumnSource {
 public:
  Result<std::vector<formtools::Column>> Columns(std::string_view database,
                                                 std::string_view table) override;
};

// The Visual Basic type that holds a field of an ADO DataTypeEnum type.
std::string VbTypeOfAdoType(long ado_type);

}  // namespace tavrin::win
