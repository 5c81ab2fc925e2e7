// The template environment of the tool's generating commands: the indent
// unit from --tab-width, the host from --host, and the code-folder files
// read from the add-in's folder.
#pragma once

#include <string>
#include <string_view>

#include "cli/global_options.h"
#include "codegen/template_environment.h"
#include "platform/file_system.h"

namespace tavrin::cli {

// A code file's bytes as text: decoded as the IDE reads source files, with
// CR LF line breaks whatever the file had.
std::string CodeFileText(std::string_view bytes);

// `files` must outlive the environment.
codegen::TemplateEnvironment ToolTemplateEnvironment(const GlobalOptions& globals,
                                                     platform::FileSystem& files);

}  // namespace tavrin::cli
