// The way back from a file-system path to the form the settings keep: a
// path inside a code folder written with its pseudo-root
// ("<fragments>Headers\x.bas"), a path inside the add-in's folder written
// from it ("\vbcode\"), in the IDE's backslash form. What a browse button
// picks is shown and stored so, and stays valid when the folders move.
#pragma once

#include <string>
#include <string_view>

#include "fragments/code_folders.h"

namespace tavrin::fragments {

// `deepest_root`: the last pseudo-root index that may be used (the Base
// Folder setting may use none: -1; the Library Folder setting "<code>": 1).
// A path outside every folder comes back as it is.
std::string PseudoRootPath(const CodeFolders& folders, std::string_view path,
                           int deepest_root = kPseudoRootCount - 1);

}  // namespace tavrin::fragments
