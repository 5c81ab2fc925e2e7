// The add-in's folder on first use: created, and seeded with the default
// prefix standards file and code-folder tree carried in the binary.
#pragma once

#include <string>

#include "base/result.h"
#include "platform/file_system.h"
#include "platform/paths.h"

namespace tavrin::fragments {

// First use is a folder without "tvrusr.ini". Creates the folder and the
// code folders, and writes each default file that is missing (never over a
// user's file), with CR LF line breaks. Later uses change nothing.
Status SeedAddinFolder(platform::FileSystem& files, const std::string& folder,
                       platform::PathStyle style = platform::NativePathStyle());

// Writes the help book ("help/" of the default files) into the add-in's
// folder wherever a page is missing or differs: the pages are the add-in's
// own and follow its version.
Status InstallHelpBook(platform::FileSystem& files, const std::string& folder,
                       platform::PathStyle style = platform::NativePathStyle());

}  // namespace tavrin::fragments
