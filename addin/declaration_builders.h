// The declaration builders' commands: the variable, constant and property
// builders shown through the context's dialog host, their text written
// where the builder places it. Each command does nothing without a code
// pane or a dialog host, and tells the user of an IDE error.
#pragma once

#include <string_view>

#include "addin/command_host.h"
#include "addin/context.h"
#include "builders/block_dialogs.h"
#include "builders/declaration_target.h"

namespace tavrin::addin {

// What the builders need to know of the active code pane's module; raises
// ide::Error.
builders::DeclarationTarget DeclarationTargetOf(Context& context);

// `type` presets the type ("" for the builder's default). True when
// something was written.
bool AddVariable(Context& context, std::string_view type);

// A selected literal is picked up: the constant takes its value and its
// place in the code.
bool AddConstant(Context& context, std::string_view type);

// "&Filename..." and "F&older...": a path picked in "Select File" or
// "Select Folder" (kind FieldKind::kFile or kFolder) becomes the value of a
// String constant, named after the file or folder. Needs context.files.
bool AddPathConstant(Context& context, builders::FieldKind kind);

// In a standard module the user is told why no property can go there.
bool AddProperty(Context& context, std::string_view type);

// A new Enum or Type at the end of the declaration area.
bool AddBlock(Context& context, builders::BlockKind kind);
// A member added to an Enum or Type of the module; without one the user is
// told so.
bool AddBlockItem(Context& context, builders::BlockKind kind);

// The command-table operations; the argument is the preset type, or for
// the block builders "Enum" or "Type".
void RunAddVariable(CommandHost& host, std::string_view type);
void RunAddConstant(CommandHost& host, std::string_view type);
void RunAddProperty(CommandHost& host, std::string_view type);
// The argument is "File" or "Folder".
void RunAddPathConstant(CommandHost& host, std::string_view kind);
void RunNewBlock(CommandHost& host, std::string_view kind);
void RunAddBlockItem(CommandHost& host, std::string_view kind);

}  // namespace tavrin::addin
