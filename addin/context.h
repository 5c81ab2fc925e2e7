// What every command works with: the IDE, the user, the IDE's options and,
// once loaded, the settings (value table, naming tables, code folders). One
// Context lives for one connection (or one run of the tool).
#pragma once

#include "builders/dialog.h"
#include "formtools/column_source.h"
#include "fragments/settings.h"
#include "ide/object_model.h"
#include "platform/file_system.h"
#include "platform/ide_options.h"
#include "platform/profile_file.h"
#include "platform/ui.h"
#include "scan/type_library.h"

namespace tavrin::addin {

struct Context {
  ide::IVbe& vbe;  // the IDE's root object, VBInst
  platform::Ui& ui;
  platform::IdeOptions& ide_options;
  // The loaded settings and the files of the code folders; while null the
  // builders use the settings' defaults and read no files.
  const fragments::Settings* settings = nullptr;
  platform::FileSystem* files = nullptr;
  // Shows the builders' dialogs; while null the commands that have a dialog
  // ask through the Ui's input box instead.
  builders::DialogHost* dialogs = nullptr;
  // The add-in's INI files beyond the settings ("tvrvars.ini",
  // "tvrrefra.ini"); while null they are read with the portable reader.
  platform::ProfileFile* profiles = nullptr;
  // Reads the projects' referenced type libraries for the builders' lists;
  // while null the builders offer what the projects declare only.
  scan::TypeLibraryScanner* type_libraries = nullptr;
  // Reads a database table's columns for the control builder; while null
  // its "From Database" fields are hidden.
  formtools::ColumnSource* columns = nullptr;
};

}  // namespace tavrin::addin
