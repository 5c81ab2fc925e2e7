#include "transform/html_page.h"

#include <gtest/gtest.h>

#include "tests/support/fake_shell.h"
#include "tests/support/memory_file_system.h"

namespace tavrin::transform {
namespace {

class SilentBrowser : public platform::Browser {
 public:
  std::string DefaultCharset() override { return ""; }
};

TEST(HtmlPageTest, FieldsAreFilledInOrder) {
  EXPECT_EQ(FillHtmlTemplate("[title]|[modulename]|[procedurename]|[charset]|[code]", "<b>",
                             "basMain", "Main", "utf-8"),
            "Main|basMain|Main|utf-8|<b>");
  EXPECT_EQ(FillHtmlTemplate("[title] [charset]", "", "basMain", "", ""),
            "basMain windows-1252");
  // A field inside an earlier value is replaced by a later step.
  EXPECT_EQ(FillHtmlTemplate("[modulename]", "code", "[code]", "", ""), "code");
}

TEST(HtmlPageTest, ThePageIsWrittenInTheCharsetItDeclares) {
  const std::string text = "caf\xC3\xA9 \xE2\x82\xAC \xE4\xB8\xAD";  // café € 中
  EXPECT_EQ(EncodeHtmlPage("charset=windows-1252'>" + text),
            "charset=windows-1252'>caf\xE9 \x80 &#20013;");
  EXPECT_EQ(EncodeHtmlPage("<meta charset=\"UTF-8\">" + text), "<meta charset=\"UTF-8\">" + text);
  EXPECT_EQ(EncodeHtmlPage("charset=koi8-r " + text), "charset=koi8-r caf&#233; &#8364; &#20013;");
  EXPECT_EQ(EncodeHtmlPage(text), "caf\xE9 \x80 &#20013;") << "no charset: Windows-1252";
}

TEST(HtmlPageTest, ShowWritesTheDefaultPageToTheTemporaryFolderAndOpensIt) {
  testing::MemoryFileSystem files;
  testing::FakeShell shell;
  SilentBrowser browser;
  HtmlPageServices services{files, shell, browser, "/addin"};
  const auto shown = ShowHtmlPage(services, "x&nbsp;=&nbsp;1", "basMain", "");
  ASSERT_TRUE(shown) << shown.error();
  EXPECT_EQ(*shown, "/tmp/vb2html.htm");
  EXPECT_EQ(shell.opened, std::vector<std::string>{"/tmp/vb2html.htm"});
  EXPECT_EQ(files.files().at("/tmp/vb2html.htm"),
            "<html><head><META HTTP-EQUIV='Content-Type' CONTENT='text/html; "
            "charset=windows-1252'><style>body {font-family:'Courier New';font-size:'10pt';}"
            "</style><title>basMain</title></head><body>x&nbsp;=&nbsp;1</body></html>");
}

TEST(HtmlPageTest, TheUsersTemplateWinsUnlessItIsEmpty) {
  testing::MemoryFileSystem files;
  testing::FakeShell shell;
  platform::PortableBrowser browser;
  HtmlPageServices services{files, shell, browser, "/addin/"};
  files.AddFile("/addin/vb2htmltemplate.htm", "<h1>[title] \xE9</h1>[code]");
  ASSERT_TRUE(ShowHtmlPage(services, "code", "basMain", "Main"));
  EXPECT_EQ(files.files().at("/tmp/vb2html.htm"), "<h1>Main \xE9</h1>code");
  files.AddFile("/addin/vb2htmltemplate.htm", "");
  ASSERT_TRUE(ShowHtmlPage(services, "code", "basMain", "Main"));
  EXPECT_EQ(files.files().at("/tmp/vb2html.htm").substr(0, 6), "<html>");
}

}  // namespace
}  // namespace tavrin::transform
