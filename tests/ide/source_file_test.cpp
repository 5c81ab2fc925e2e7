#include "ide/memory/source_file.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/memory_file_system.h"

namespace tavrin::ide::memory {
namespace {

SourceFile ParseOk(std::string_view bytes, std::string_view name = "Module1.bas") {
  Result<SourceFile> file = SourceFile::Parse(bytes, name);
  EXPECT_TRUE(file.ok()) << file.error();
  return file.ok() ? std::move(file).value() : SourceFile();
}

std::vector<std::string> CodeTexts(const SourceFile& file) {
  std::vector<std::string> texts;
  for (const auto& line : file.code()) texts.push_back(line.text);
  return texts;
}

using Lines = std::vector<std::string>;

TEST(SourceFileTest, SampleFilesRoundTripByteForByte) {
  for (const char* name : {"basMain.bas", "clsStockItem.cls", "frmMain.frm", "frmAbout.frm"}) {
    const std::string bytes = testing::ReadSourceTreeFile(std::string("sample/") + name);
    ASSERT_FALSE(bytes.empty()) << name;
    EXPECT_EQ(ParseOk(bytes, name).Serialize(), bytes) << name;
  }
}

struct RoundTripCase {
  const char* label;
  std::string bytes;
};

TEST(SourceFileTest, SyntheticFilesRoundTripByteForByte) {
  const RoundTripCase cases[] = {
      {"empty", ""},
      {"CR LF", "Attribute VB_Name = \"M\"\r\nOption Explicit\r\nSub A()\r\nEnd Sub\r\n"},
      {"LF only", "Attribute VB_Name = \"M\"\nOption Explicit\nSub A()\nEnd Sub\n"},
      {"lone CR", "Option Explicit\rSub A()\rEnd Sub\r"},
      {"mixed", "a\r\nb\nc\rd\r\n\r\n\n"},
      {"CR CR LF", "a\r\r\nb"},
      {"no final newline", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub"},
      {"UTF-8 with BOM", "\xEF\xBB\xBF' Caf\xC3\xA9\r\nDim x\r\n"},
      {"UTF-8 without BOM", "' Caf\xC3\xA9\r\n"},
      {"Windows-1252", "' Caf\xE9 \x80 \x93quoted\x94\r\n"},
      {"undefined Windows-1252 bytes", "' \x81\x8D\x8F\x90\x9D\r\n"},
      {"every byte from 0x80 to 0xFF", [] {
         std::string s = "' ";
         for (int b = 0x80; b <= 0xFF; ++b) s += static_cast<char>(b);
         return s + "\r\n";
       }()},
      {"invalid UTF-8 kept as Windows-1252", "' \xC3\x28 \xE9\r\n"},
      {"attribute lines inside code",
       "Attribute VB_Name = \"C\"\r\nPublic Property Get Value() As Long\r\n"
       "Attribute Value.VB_UserMemId = 0\r\n    Value = 1\r\nEnd Property\r\n"
       "Public WithEvents mVar As Foo\r\nAttribute mVar.VB_VarHelpID = -1\r\n"},
      {"header only", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
                      "Attribute VB_Name = \"C\"\r\n"},
      {"header only, no final newline", "Attribute VB_Name = \"C\""},
      {"blank lines only", "\r\n\r\n"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(ParseOk(test.bytes).Serialize(), test.bytes) << test.label;
  }
}

TEST(SourceFileTest, HeaderEndsBeforeTheFirstCodeLine) {
  const SourceFile file = ParseOk(testing::ReadSourceTreeFile("sample/frmMain.frm"), "frmMain.frm");
  EXPECT_EQ(file.header().front().text, "VERSION 5.00");
  EXPECT_EQ(file.header().back().text, "Attribute VB_Exposed = False");
  EXPECT_EQ(file.code().front().text, "Option Explicit");
  EXPECT_EQ(file.VbName(), "frmMain");
}

TEST(SourceFileTest, ClassHeaderBlockIsNotCode) {
  const SourceFile file =
      ParseOk(testing::ReadSourceTreeFile("sample/clsStockItem.cls"), "clsStockItem.cls");
  EXPECT_EQ(file.header().size(), 13u);
  EXPECT_EQ(file.code().front().text, "' One article of the stock.");
}

TEST(SourceFileTest, FileWithoutHeaderIsAllCode) {
  const SourceFile file = ParseOk("Option Explicit\r\n\r\nSub A()\r\nEnd Sub\r\n");
  EXPECT_TRUE(file.header().empty());
  EXPECT_EQ(CodeTexts(file), (Lines{"Option Explicit", "", "Sub A()", "End Sub"}));
  EXPECT_EQ(file.VbName(), "");
}

TEST(SourceFileTest, AttributeLinesInsideCodeAreHiddenAfterTheirLine) {
  const SourceFile file = ParseOk(
      "Attribute VB_Name = \"C\"\r\nPublic Property Get Value() As Long\r\n"
      "Attribute Value.VB_UserMemId = 0\r\n    Value = 1\r\nEnd Property\r\n");
  EXPECT_EQ(CodeTexts(file), (Lines{"Public Property Get Value() As Long", "    Value = 1",
                                    "End Property"}));
  ASSERT_EQ(file.code()[0].hidden.size(), 1u);
  EXPECT_EQ(file.code()[0].hidden[0].text, "Attribute Value.VB_UserMemId = 0");
}

TEST(SourceFileTest, NestedDesignerBlocksAndBeginPropertyAreHeader) {
  const SourceFile file = ParseOk(
      "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin VB.Frame A\r\n      BeginProperty Font\r\n"
      "         Name = \"Arial\"\r\n      EndProperty\r\n      Begin VB.Label B\r\n      End\r\n"
      "   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\nPrivate Sub Form_Load()\r\nEnd Sub\r\n",
      "F.frm");
  EXPECT_EQ(file.header().size(), 11u);
  EXPECT_EQ(CodeTexts(file), (Lines{"Private Sub Form_Load()", "End Sub"}));
}

TEST(SourceFileTest, BinaryFileIsRefusedNamingTheFile) {
  Result<SourceFile> file = SourceFile::Parse(std::string("MZ\x90\0\x03", 5), "dir/tool.exe");
  ASSERT_FALSE(file.ok());
  EXPECT_EQ(file.error(), "dir/tool.exe: not a Visual Basic source file (it holds binary data)");
}

TEST(SourceFileTest, UnclosedDesignerBlockIsRefusedNamingFileAndLine) {
  Result<SourceFile> file = SourceFile::Parse(
      "VERSION 5.00\r\nBegin VB.Form F\r\n   Begin VB.Label L\r\n   End\r\n", "F.frm");
  ASSERT_FALSE(file.ok());
  EXPECT_NE(file.error().find("F.frm:2:"), std::string::npos) << file.error();
  EXPECT_NE(file.error().find("Begin VB.Form F"), std::string::npos) << file.error();
}

TEST(SourceFileTest, EditsKeepTheFilesLineBreaksAndEncoding) {
  const struct {
    const char* label;
    std::string bytes;
    std::function<void(SourceFile&)> edit;
    std::string expected;
  } cases[] = {
      {"new lines take the dominant break", "a\nb\nc\r\n",
       [](SourceFile& f) { f.InsertCode(1, {"x"}); }, "a\nx\nb\nc\r\n"},
      {"appending after an unterminated last line", "a\r\nb",
       [](SourceFile& f) { f.InsertCode(2, {"c", "d"}); }, "a\r\nb\r\nc\r\nd"},
      {"appending after an unterminated header line", "Attribute VB_Name = \"M\"",
       [](SourceFile& f) { f.InsertCode(0, {"Option Explicit"}); },
       "Attribute VB_Name = \"M\"\r\nOption Explicit"},
      {"deleting an unterminated last line", "a\r\nb\r\nc",
       [](SourceFile& f) { f.EraseCode(1, 2); }, "a"},
      {"deleting a line drops its hidden attributes",
       "Property Get V()\r\nAttribute V.VB_UserMemId = 0\r\nEnd Property\r\n",
       [](SourceFile& f) { f.EraseCode(0, 2); }, ""},
      {"edited text in the file's encoding", "' Caf\xE9\r\n",
       [](SourceFile& f) { f.ReplaceCodeText(0, "' cr\xC3\xA8me \xE2\x82\xAC"); },
       "' cr\xE8me \x80\r\n"},
  };
  for (const auto& c : cases) {
    SourceFile file = ParseOk(c.bytes);
    c.edit(file);
    EXPECT_EQ(file.Serialize(), c.expected) << c.label;
  }
}

TEST(SourceFileTest, CreatedFileUsesCrLfAndNoCodeForEmptyText) {
  EXPECT_EQ(SourceFile::Create({"Attribute VB_Name = \"M\""}, "").Serialize(),
            "Attribute VB_Name = \"M\"\r\n");
  EXPECT_EQ(SourceFile::Create({}, "a\nb").Serialize(), "a\r\nb\r\n");
}

}  // namespace
}  // namespace tavrin::ide::memory
