// The type library scanner's reader over ITypeLib and ITypeInfo: a library
// loaded by GUID and version from the registry (LoadRegTypeLib), else from
// its file without registering it (LoadTypeLibEx, REGKIND_NONE).
#pragma once

#include "scan/type_library.h"

namespace tavrin::win {

class WindowsTypeLibraryReader : public scan::TypeLibraryReader {
 public:
  Result<scan::TypeLibrary> Read(const scan::LibraryReference& reference) override;
};

}  // namespace tavrin::win
