// The type library scanner: the members of the libraries a project
// references (classes, enums with their values, constants and procedures
// of modules, user-defined types), for the builders' lists. Reading a
// library is the platform's job (`TypeLibraryReader`: ITypeLib on Windows);
// a platform without type libraries says so, library by library.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/result.h"
#include "ide/object_model.h"
#include "scan/declarations.h"
#include "scan/project_scanner.h"

namespace tavrin::scan {

// A referenced library as the project names it.
struct LibraryReference {
  std::string name;         // "stdole"
  std::string description;  // "OLE Automation"
  std::string guid;         // empty when only the path is known
  int major = 0;
  int minor = 0;
  std::string path;         // the file, as the IDE gives it

  // "OLE Automation (stdole2.tlb)": how messages name the library.
  std::string Label() const;
};

// A library's members as declarations, all global: coclasses and the
// interfaces that are neither hidden nor restricted (kClass), enums (kEnum)
// and their members (kEnumMember, with value and parent), records (kType,
// kTypeMember), and the constants (kConstant) and procedures (kProcedure)
// of its modules, whose `parent` is the module.
struct TypeLibrary {
  std::string name;
  std::string description;
  std::vector<Declaration> members;
};

class TypeLibraryReader {
 public:
  virtual ~TypeLibraryReader() = default;
  // The error names the library (Label) and says why it cannot be read.
  virtual Result<TypeLibrary> Read(const LibraryReference& reference) = 0;
};

// The reader where no type library can be read (the tool, which has no
// Windows layer).
class NoTypeLibraries : public TypeLibraryReader {
 public:
  Result<TypeLibrary> Read(const LibraryReference& reference) override;
};

// The referenced libraries' members as symbols whose project is the
// library's name and whose module is the declaring module (for an enum,
// type or class, the library's name).
struct ReferencedSymbols {
  std::vector<ProjectSymbol> symbols;
  // One message per library that could not be read, each library once
  // for the life of the scanner.
  std::vector<std::string> problems;
};

// Reads the type libraries of every open project once each (the same
// library referenced twice is read once) and keeps what it read for the
// next scan. References to other projects are skipped: the project scanner
// reads open projects from their code.
class TypeLibraryScanner {
 public:
  explicit TypeLibraryScanner(TypeLibraryReader& reader) : reader_(reader) {}
  ReferencedSymbols Scan(ide::IVbe& vbe);
  // Drops what was read for that reference (added or removed in the IDE),
  // so that the next scan reads it again and tells again if it fails. A
  // reference the IDE can no longer describe drops everything.
  void Forget(ide::IReference& reference);
  // Libraries read (or refused) and kept.
  std::size_t KeptCount() const { return read_.size(); }

 private:
  TypeLibraryReader& reader_;
  std::map<std::string, Result<TypeLibrary>> read_;  // by GUID and version, or path
};

// The references of a project as the scanner reads them; a reference the
// IDE cannot describe is left out.
std::vector<LibraryReference> LibraryReferencesOf(ide::IProject& project);
// One reference as the scanner reads it; raises ide::Error when the IDE
// cannot tell its name, GUID or version.
LibraryReference LibraryReferenceOf(ide::IReference& reference);

}  // namespace tavrin::scan
