// The template environment of the tool's generating commands: the indent
// unit from --tab-width, the host from --host, and the code-folder files
// read from the add-in's folder.
#pragma once

#include "cli/global_options.h"
#include "codegen/template_environment.h"
#include "platform/file_system.h"

namespace tavrin::cli {

// `files` must outlive the environment.
codegen::TemplateEnvironment ToolTemplateEnvironment(const GlobalOptions& globals,
                                                     platform::FileSystem& files);

}  // namespace tavrin::cli
