#include "scan/type_library.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "ide/ignore_errors.h"

namespace tavrin::scan {
namespace {

std::string KeyOf(const LibraryReference& reference) {
  if (reference.guid.empty()) return ToLowerAscii(reference.path);
  return ToLowerAscii(reference.guid) + "#" + std::to_string(reference.major) + "." +
         std::to_string(reference.minor);
}

std::string FileNameOf(const std::string& path) {
  const auto slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

std::string LibraryReference::Label() const {
  const std::string title = !description.empty() ? description : !name.empty() ? name : guid;
  const std::string file = FileNameOf(path);
  return file.empty() ? title : title + " (" + file + ")";
}

Result<TypeLibrary> NoTypeLibraries::Read(const LibraryReference& reference) {
  return Error{"The type library " + reference.Label() +
               " cannot be read on this platform: only the add-in reads type libraries, "
               "through Windows. Its classes and enums are not offered."};
}

LibraryReference LibraryReferenceOf(ide::IReference& reference) {
  LibraryReference library;
  library.name = reference.Name();
  library.guid = reference.Guid();
  library.major = reference.Major();
  library.minor = reference.Minor();
  // A broken reference has no description or path to give.
  ide::IgnoreErrors([&] { library.description = reference.Description(); });
  ide::IgnoreErrors([&] { library.path = reference.FullPath(); });
  return library;
}

std::vector<LibraryReference> LibraryReferencesOf(ide::IProject& project) {
  std::vector<LibraryReference> references;
  ide::IgnoreErrors([&] {
    const auto list = project.References();
    if (!list) return;
    for (int i = 1; i <= list->Count(); ++i) {
      ide::IgnoreErrors([&] {
        const auto reference = list->Item(i);
        if (reference->Type() != ide::ReferenceKind::kTypeLib) return;
        references.push_back(LibraryReferenceOf(*reference));
      });
    }
  });
  return references;
}

void TypeLibraryScanner::Forget(ide::IReference& reference) {
  std::optional<std::string> key;
  ide::IgnoreErrors([&] { key = KeyOf(LibraryReferenceOf(reference)); });
  if (key)
    read_.erase(*key);
  else
    read_.clear();
}

ReferencedSymbols TypeLibraryScanner::Scan(ide::IVbe& vbe) {
  ReferencedSymbols scanned;
  std::vector<std::string> seen;
  ide::IgnoreErrors([&] {
    const auto projects = vbe.VBProjects();
    for (int p = 1; p <= projects->Count(); ++p) {
      for (const LibraryReference& reference : LibraryReferencesOf(*projects->Item(p))) {
        const std::string key = KeyOf(reference);
        if (std::find(seen.begin(), seen.end(), key) != seen.end()) continue;
        seen.push_back(key);
        auto found = read_.find(key);
        if (found == read_.end()) {
          found = read_.emplace(key, reader_.Read(reference)).first;
          if (!found->second) scanned.problems.push_back(found->second.error());
        }
        if (!found->second) continue;
        const TypeLibrary& library = *found->second;
        for (const Declaration& member : library.members) {
          ProjectSymbol symbol;
          symbol.project = library.name;
          const bool in_module =
              member.kind == DeclKind::kConstant || member.kind == DeclKind::kProcedure;
          symbol.module = in_module ? member.parent : library.name;
          symbol.declaration = member;
          scanned.symbols.push_back(std::move(symbol));
        }
      }
    }
  });
  return scanned;
}

}  // namespace tavrin::scan
