// The template environment from the loaded settings: the setting values
// the templates use and the code-folder files read through the settings'
// folders.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "codegen/template_environment.h"
#include "fragments/settings.h"
#include "platform/file_system.h"

namespace tavrin::codegen {

TemplateSettings TemplateSettingsFrom(const fragments::Settings& settings);

// A code file's bytes as text: decoded as the IDE reads source files, with
// CR LF line breaks whatever the file had.
std::string CodeFileText(std::string_view bytes);

// Reads the files that settings and includes name ("\vbcode\...") through
// the code folders. `files` must outlive the reader.
std::function<std::optional<std::string>(std::string_view)> CodeFileReader(
    const fragments::Settings& settings, platform::FileSystem& files);

}  // namespace tavrin::codegen
