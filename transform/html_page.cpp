#include "transform/html_page.h"

#include <cctype>

#include "base/encoding.h"
#include "base/text.h"
#include "base/utf8.h"

namespace tavrin::transform {

const std::string_view kDefaultHtmlTemplate =
    "<html><head><META HTTP-EQUIV='Content-Type' CONTENT='text/html; charset=[charset]'>"
    "<style>body {font-family:'Courier New';font-size:'10pt';}</style><title>[title]</title>"
    "</head><body>[code]</body></html>";

namespace {

// The character set named by the page's first "charset=", lower-cased.
std::string DeclaredCharset(std::string_view page) {
  const std::size_t at = FindIgnoreCase(page, "charset=");
  if (at == std::string_view::npos) return {};
  std::size_t start = at + 8;
  if (start < page.size() && (page[start] == '"' || page[start] == '\'')) ++start;
  std::size_t end = start;
  while (end < page.size() && (std::isalnum(static_cast<unsigned char>(page[end])) ||
                               page[end] == '-' || page[end] == '_' || page[end] == ':' ||
                               page[end] == '.'))
    ++end;
  return ToLowerAscii(page.substr(start, end - start));
}

bool IsUtf8Name(std::string_view charset) { return charset == "utf-8" || charset == "utf8"; }

bool IsWindows1252Name(std::string_view charset) {
  for (std::string_view name : {"", "windows-1252", "cp1252", "x-cp1252", "iso-8859-1",
                                "latin1", "l1", "iso8859-1", "us-ascii", "ascii"})
    if (charset == name) return true;
  return false;
}

// The code point of one valid UTF-8 character.
char32_t CodePoint(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  char32_t c = character.size() == 1 ? lead : lead & (0xFF >> (character.size() + 1));
  for (std::size_t k = 1; k < character.size(); ++k)
    c = (c << 6) | (static_cast<unsigned char>(character[k]) & 0x3F);
  return c;
}

// `page` in Windows-1252 (or, when windows_1252 is false, plain ASCII), every
// other character as a numeric character reference.
std::string EncodeWithReferences(std::string_view page, bool windows_1252) {
  std::string out;
  out.reserve(page.size());
  for (std::size_t i = 0; i < page.size();) {
    const auto lead = static_cast<unsigned char>(page[i]);
    std::size_t length = lead < 0x80 ? 1 : (lead & 0xE0) == 0xC0 ? 2
                       : (lead & 0xF0) == 0xE0 ? 3 : (lead & 0xF8) == 0xF0 ? 4 : 1;
    if (i + length > page.size() || !utf8::IsValid(page.substr(i, length))) length = 1;
    const std::string_view character = page.substr(i, length);
    i += length;
    if (lead < 0x80) {
      out += character;
      continue;
    }
    const bool valid = length > 1;
    if (windows_1252 && valid) {
      const std::string byte = Utf8ToWindows1252(character);
      if (byte != "?") {
        out += byte;
        continue;
      }
    }
    out += "&#" + std::to_string(valid ? static_cast<unsigned long>(CodePoint(character))
                                       : 0xFFFDul) + ";";
  }
  return out;
}

}  // namespace

std::string GetDefaultCharset(platform::Browser& browser) { return browser.DefaultCharset(); }

std::string JoinPath(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  const char last = folder.back();
  return std::string(folder) + (last == '/' || last == '\\' ? "" : "/") + std::string(name);
}

Result<std::string> LoadHtmlTemplate(platform::FileSystem& files, std::string_view template_path) {
  if (template_path.empty() || !files.FileExists(template_path))
    return std::string(kDefaultHtmlTemplate);
  auto bytes = files.ReadFile(template_path);
  if (!bytes) return Error{bytes.error()};
  if (bytes->empty()) return std::string(kDefaultHtmlTemplate);
  return DecodeSource(*bytes).text;
}

std::string FillHtmlTemplate(std::string_view page_template, std::string_view html,
                             std::string_view module_name, std::string_view procedure_name,
                             std::string_view charset) {
  std::string page = ReplaceAll(page_template, "[modulename]", module_name);
  page = ReplaceAll(page, "[procedurename]", procedure_name);
  page = ReplaceAll(page, "[title]", procedure_name.empty() ? module_name : procedure_name);
  page = ReplaceAll(page, "[charset]", charset.empty() ? kFallbackCharset : charset);
  return ReplaceAll(page, "[code]", html);
}

std::string EncodeHtmlPage(std::string_view page) {
  const std::string charset = DeclaredCharset(page);
  if (IsUtf8Name(charset)) return std::string(page);
  return EncodeWithReferences(page, IsWindows1252Name(charset));
}

Result<std::string> BuildHtmlPage(platform::FileSystem& files, platform::Browser& browser,
                                  std::string_view template_path, std::string_view html,
                                  std::string_view module_name,
                                  std::string_view procedure_name) {
  const auto page_template = LoadHtmlTemplate(files, template_path);
  if (!page_template) return Error{page_template.error()};
  return EncodeHtmlPage(FillHtmlTemplate(*page_template, html, module_name, procedure_name,
                                         GetDefaultCharset(browser)));
}

Result<std::string> ShowHtmlPage(HtmlPageServices& services, std::string_view html,
                                 std::string_view module_name,
                                 std::string_view procedure_name) {
  const std::string template_path =
      services.addin_folder.empty() ? std::string()
                                    : JoinPath(services.addin_folder, kHtmlTemplateFileName);
  const auto page = BuildHtmlPage(services.files, services.browser, template_path, html,
                                  module_name, procedure_name);
  if (!page) return Error{page.error()};
  const std::string path = JoinPath(services.shell.TempFolder(), kHtmlPageFileName);
  if (const Status written = services.files.WriteFile(path, *page); !written)
    return Error{written.error()};
  if (const Status opened = services.shell.OpenDocument(path); !opened)
    return Error{opened.error()};
  return path;
}

}  // namespace tavrin::transform
