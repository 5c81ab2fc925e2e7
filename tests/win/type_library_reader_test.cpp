// The type library scanner's Windows reader over a library that Wine and
// Windows both ship: stdole2.tlb, OLE Automation.
#include "win/type_library_reader.h"

#include <gtest/gtest.h>

#include <objbase.h>

namespace tavrin::win {
namespace {

const scan::Declaration* Find(const scan::TypeLibrary& library, scan::DeclKind kind,
                              std::string_view name) {
  for (const scan::Declaration& member : library.members)
    if (member.kind == kind && member.name == name) return &member;
  return nullptr;
}

TEST(WindowsTypeLibraryReader, ReadsStdoleByGuidOrFileAndNamesALibraryItCannotLoad) {
  ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
  WindowsTypeLibraryReader reader;
  scan::LibraryReference by_guid{"stdole", "OLE Automation",
                                 "{00020430-0000-0000-C000-000000000046}", 2, 0, ""};
  scan::LibraryReference by_file{"stdole", "OLE Automation", "", 0, 0, "stdole2.tlb"};
  for (const auto& reference : {by_guid, by_file}) {
    SCOPED_TRACE(reference.guid + reference.path);
    const auto library = reader.Read(reference);
    ASSERT_TRUE(library.ok()) << library.error();
    EXPECT_EQ(library->name, "stdole");
    using scan::DeclKind;
    EXPECT_TRUE(Find(*library, DeclKind::kClass, "StdFont"));
    EXPECT_TRUE(Find(*library, DeclKind::kClass, "StdPicture"));
    EXPECT_TRUE(Find(*library, DeclKind::kEnum, "LoadPictureConstants"));
    ASSERT_TRUE(Find(*library, DeclKind::kEnum, "OLE_TRISTATE"));
    const struct {
      const char* name;
      const char* value;
    } members[] = {{"Unchecked", "0"}, {"Checked", "1"}, {"Gray", "2"}};
    for (const auto& expected : members) {
      const scan::Declaration* member = Find(*library, DeclKind::kEnumMember, expected.name);
      ASSERT_TRUE(member) << expected.name;
      EXPECT_EQ(member->parent, "OLE_TRISTATE");
      EXPECT_EQ(member->value, expected.value);
    }
    // Hidden and restricted types are left out.
    EXPECT_FALSE(Find(*library, DeclKind::kClass, "IUnknown"));
  }
  const auto missing = reader.Read({"Nowhere", "No Such Library",
                                    "{12345678-1234-1234-1234-123456789ABC}", 1, 0,
                                    "C:\\nowhere\\none.tlb"});
  ASSERT_FALSE(missing.ok());
  EXPECT_EQ(missing.error().rfind("The type library No Such Library (none.tlb) could not be "
                                  "loaded (error 0x",
                                  0),
            0u)
      << missing.error();
  ::CoUninitialize();
}

}  // namespace
}  // namespace tavrin::win
