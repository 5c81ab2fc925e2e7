// The template environment of the tool's generating commands: the settings
// and code folders of the add-in's folder, the indent unit from
// --tab-width and the host from --host.
#pragma once

#include "cli/addin_session.h"
#include "cli/global_options.h"
#include "codegen/template_environment.h"

namespace tavrin::cli {

// Loads the settings of the session's folder (seeding it on first use).
// The session must outlive the environment: its files are read through it.
codegen::TemplateEnvironment ToolTemplateEnvironment(const GlobalOptions& globals,
                                                     AddinSession& session);

}  // namespace tavrin::cli
