// The page of `tavrin html` as a person sees it: rendered by headless
// Chromium, with the colour of every piece of text and the text as laid out.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <nlohmann/json.hpp>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kModule =
    "Attribute VB_Name = \"Module1\"\r\n"
    "' Prices in \x80uros\r\n"  // Windows-1252: the euro sign
    "Public Sub Main()\r\n"
    "    Dim s As String ' note\r\n"
    "    s = \"it's ' not a comment\"\r\n"
    "    If x < 10 Then s = Len(s)\r\n"
    "End Sub\r\n";

constexpr std::string_view kNavy = "rgb(0, 0, 128)";
constexpr std::string_view kGreen = "rgb(0, 128, 0)";
constexpr std::string_view kBlack = "rgb(0, 0, 0)";

// Appended to a copy of the page: every text piece with its computed colour,
// and the text as rendered, URL-encoded so the DOM dump carries it unchanged.
constexpr std::string_view kProbe = R"(<script>
(function () {
  var runs = [];
  var walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  for (var node; (node = walker.nextNode());) {
    if (node.parentElement.tagName === "SCRIPT") continue;
    runs.push([getComputedStyle(node.parentElement).color, node.nodeValue]);
  }
  var pre = document.createElement("pre");
  pre.id = "tavrin-probe";
  pre.textContent = encodeURIComponent(JSON.stringify({runs: runs, text: document.body.innerText}));
  document.documentElement.appendChild(pre);
})();
</script>)";

std::string FindChromium() {
  const char* path = std::getenv("PATH");
  std::stringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');)
    for (const char* name : {"chromium", "chromium-browser", "google-chrome"})
      if (fs::exists(fs::path(folder) / name)) return (fs::path(folder) / name).string();
  return {};
}

std::string UrlDecoded(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      out += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

// The colour of the first text piece that is exactly `text` (or, when
// `part` is set, that holds it).
std::string ColourOf(const nlohmann::json& runs, std::string_view text, bool part = false) {
  for (const auto& run : runs) {
    const std::string piece = run[1].get<std::string>();
    if (part ? piece.find(text) != std::string::npos : piece == text)
      return run[0].get<std::string>();
  }
  return "(not found)";
}

using HtmlRenderTest = ToolFixture;

TEST_F(HtmlRenderTest, ChromiumShowsKeywordsCommentsAndTextInTheirColours) {
  const std::string chromium = FindChromium();
  if (chromium.empty()) GTEST_SKIP() << "chromium is not installed (scripts/install-deps.sh)";
  const std::string module = Write("Module1.bas", kModule);
  const std::string page = folder_.File("page.htm");
  const ToolRun run = Run({"html", module, "-o", page});
  ASSERT_EQ(run.status, 0) << run.err;

  const std::string probe = Write("probe.htm", Read(page) + std::string(kProbe));
  const std::string dump = folder_.File("dom.txt");
  const std::string command = "timeout 120 '" + chromium +
                              "' --headless --no-sandbox --disable-gpu --user-data-dir='" +
                              folder_.File("profile") + "' --dump-dom 'file://" + probe + "' > '" +
                              dump + "' 2>/dev/null";
  ASSERT_EQ(std::system(command.c_str()), 0) << command;

  const std::string dom = Read(dump);
  const std::string open = "<pre id=\"tavrin-probe\">";
  const auto start = dom.find(open);
  ASSERT_NE(start, std::string::npos) << dom;
  const auto end = dom.find("</pre>", start);
  const auto seen = nlohmann::json::parse(
      UrlDecoded(std::string_view(dom).substr(start + open.size(), end - start - open.size())));
  const auto& runs = seen.at("runs");

  for (std::string_view keyword : {"Public", "Sub", "Dim", "As", "String", "If", "Then", "End"})
    EXPECT_EQ(ColourOf(runs, keyword), kNavy) << keyword;
  EXPECT_EQ(ColourOf(runs, "Len"), kBlack);
  EXPECT_EQ(ColourOf(runs, "' Prices in \xE2\x82\xACuros"), kGreen) << "the page's charset";
  EXPECT_EQ(ColourOf(runs, "' note"), kGreen);
  EXPECT_EQ(ColourOf(runs, "\"it's ' not a comment\"", true), kBlack)
      << "an apostrophe in a literal starts no comment";

  std::string text = seen.at("text").get<std::string>();
  for (std::size_t at; (at = text.find("\xC2\xA0")) != std::string::npos;) text.replace(at, 2, " ");
  EXPECT_NE(text.find("\n    Dim s As String ' note\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n    If x < 10 Then s = Len(s)\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace tavrin::testing
