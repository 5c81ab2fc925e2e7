// The HTML page around a code fragment: the page template (the user's
// "vb2htmltemplate.htm" in the add-in's folder, or the built-in one), the
// page written as "vb2html.htm" to the temporary folder in the character set
// it declares, and opened in the user's browser.
#pragma once

#include <string>
#include <string_view>

#include "base/result.h"
#include "platform/browser.h"
#include "platform/file_system.h"

namespace tavrin::transform {

inline constexpr std::string_view kHtmlTemplateFileName = "vb2htmltemplate.htm";
inline constexpr std::string_view kHtmlPageFileName = "vb2html.htm";
inline constexpr std::string_view kFallbackCharset = "windows-1252";
extern const std::string_view kDefaultHtmlTemplate;

// What showing a page needs from the system.
struct HtmlPageServices {
  platform::FileSystem& files;
  platform::Shell& shell;
  platform::Browser& browser;
  std::string addin_folder;
};

// The browser's default character set; empty when it cannot be had.
std::string GetDefaultCharset(platform::Browser& browser);

// The template text: the file at `template_path` when it exists and is not
// empty, else the built-in template. Fails only when the file exists but
// cannot be read.
Result<std::string> LoadHtmlTemplate(platform::FileSystem& files, std::string_view template_path);

// The template with its fields filled, in this order: "[modulename]",
// "[procedurename]", "[title]", "[charset]", "[code]".
std::string FillHtmlTemplate(std::string_view page_template, std::string_view html,
                             std::string_view module_name, std::string_view procedure_name,
                             std::string_view charset);

// The page's bytes in the character set its text declares (UTF-8 or
// Windows-1252); characters the set cannot hold become character references,
// so none is lost. A page that declares nothing is written as Windows-1252.
std::string EncodeHtmlPage(std::string_view page);

// The whole page as bytes, from the template at `template_path`.
Result<std::string> BuildHtmlPage(platform::FileSystem& files, platform::Browser& browser,
                                  std::string_view template_path, std::string_view html,
                                  std::string_view module_name,
                                  std::string_view procedure_name);

// Fills the template, writes the page to the temporary folder and opens it.
// Returns the page's path.
Result<std::string> ShowHtmlPage(HtmlPageServices& services, std::string_view html,
                                 std::string_view module_name,
                                 std::string_view procedure_name);

// `name` inside `folder`, with one separator between them.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace tavrin::transform
