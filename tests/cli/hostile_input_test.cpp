// Hostile input through the tool: each case gives the documented status and
// message, finishes (a hang fails by the test's timeout), and leaves every
// file as it was unless the command succeeded.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/cli/tool_fixture.h"

namespace tavrin::testing {
namespace {

std::string LongLineModule() {
  return "Attribute VB_Name = \"M\"\r\nPublic Sub A()\r\n    x = \"" + std::string(1 << 20, 'a') +
         "\"\r\nEnd Sub\r\n";
}

std::string ManySectionsIni() {
  std::string ini;
  for (int i = 0; i < 100000; ++i)
    ini += "[S" + std::to_string(i) + "]\r\nKey=Value " + std::to_string(i) + "\r\n";
  return ini;
}

std::string ManyControlsForm() {
  std::string form = "VERSION 5.00\r\nBegin VB.Form frmBig\r\n   Caption = \"Big\"\r\n";
  for (int i = 0; i < 10000; ++i)
    form += "   Begin VB.CommandButton cmd" + std::to_string(i) + "\r\n      Caption = \"&" +
            static_cast<char>('A' + i % 26) + std::to_string(i) + "\"\r\n   End\r\n";
  return form + "End\r\nAttribute VB_Name = \"frmBig\"\r\n";
}

using ReadBack = std::function<std::string(const std::string& name)>;

// Short names: the whole declaration travels as one command-line argument.
std::string TenThousandArguments() {
  std::string text = "Sub A(a0";
  for (int i = 1; i < 10000; ++i) text += ", a" + std::to_string(i);
  return text + ")";
}

struct HostileCase {
  const char* name;
  std::map<std::string, std::string> files;  // name -> bytes; "" with a trailing / is a folder
  std::vector<std::string> read_only;
  std::vector<std::string> arguments;        // "{dir}" stands for the scratch folder
  int status;
  const char* message;                       // part of the one line on standard error
  // Run after a command that did not refuse (status 0 or 1), with a reader
  // of the scratch folder's files; files not named in `changed` must be
  // unchanged.
  std::function<void(const ReadBack&, const ToolRun&)> check_success = nullptr;
  std::vector<std::string> changed = {};
};

void PrintTo(const HostileCase& c, std::ostream* out) { *out << c.name; }

class HostileInputTest : public ToolFixture, public ::testing::WithParamInterface<HostileCase> {};

TEST_P(HostileInputTest, GivesItsStatusAndMessageAndKeepsTheFiles) {
  const HostileCase& c = GetParam();
  std::map<std::string, std::string> before;
  for (const auto& [name, bytes] : c.files) {
    if (name.ends_with('/')) {
      std::filesystem::create_directory(folder_.File(name.substr(0, name.size() - 1)));
      continue;
    }
    before[name] = bytes;
    Write(name, bytes);
  }
  for (const std::string& name : c.read_only)
    std::filesystem::permissions(folder_.File(name), std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);

  std::vector<std::string> arguments;
  for (std::string argument : c.arguments) {
    if (const auto at = argument.find("{dir}"); at != std::string::npos)
      argument.replace(at, 5, folder_.path().string());
    arguments.push_back(argument);
  }
  const ToolRun run = Run(arguments);

  EXPECT_EQ(run.status, c.status) << run.err;
  if (c.status == 2) {
    EXPECT_TRUE(run.err.starts_with("tavrin: ")) << run.err;
    EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << "one line: " << run.err;
  }
  const ReadBack read = [this](const std::string& name) { return Read(folder_.File(name)); };
  if (run.status != 2 && c.check_success) c.check_success(read, run);
  for (const auto& [name, bytes] : before) {
    if (std::find(c.changed.begin(), c.changed.end(), name) != c.changed.end()) continue;
    EXPECT_EQ(Read(folder_.File(name)), bytes) << name << " changed";
  }
}

const std::string kLatin1Module = "Attribute VB_Name = \"M\"\r\nMsgBox \"Caf\xE9 \x80 5\"\r\n";
const std::string kUtf8Module = "Attribute VB_Name = \"M\"\r\nMsgBox \"Caf\xC3\xA9 \xE2\x82\xAC 5\"\r\n";

INSTANTIATE_TEST_SUITE_P(
    Tool, HostileInputTest,
    ::testing::Values(
        HostileCase{"UnclosedDesignerBlock",
                    {{"broken.frm", "VERSION 5.00\r\nBegin VB.Form F\r\n   Caption = \"&A\"\r\n"}},
                    {}, {"access-keys", "{dir}/broken.frm"}, 2, "is never closed"},
        HostileCase{"MegabyteLineNumbered", {{"long.bas", LongLineModule()}}, {},
                    {"lines", "add", "{dir}/long.bas", "-i"}, 0, "",
                    [](const ReadBack& read, const ToolRun&) {
                      const std::string after = read("long.bas");
                      EXPECT_NE(after.find("\"" + std::string(1 << 20, 'a') + "\""),
                                std::string::npos);
                    },
                    {"long.bas"}},
        HostileCase{"MegabyteLineAsHtml", {{"long.bas", LongLineModule()}}, {},
                    {"html", "{dir}/long.bas", "--fragment"}, 0, "",
                    [](const ReadBack&, const ToolRun& run) {
                      EXPECT_NE(run.out.find(std::string(1 << 20, 'a')), std::string::npos);
                    }},
        HostileCase{"HundredThousandSections", {{"big.ini", ManySectionsIni()}}, {},
                    {"ini", "set", "{dir}/big.ini", "S99999", "Key", "New"}, 0, "",
                    [](const ReadBack& read, const ToolRun&) {
                      std::string expected = ManySectionsIni();
                      expected.replace(expected.rfind("Value 99999"), 11, "New");
                      EXPECT_EQ(read("big.ini"), expected);
                    },
                    {"big.ini"}},
        HostileCase{"RandomBytesIni", {{"rnd.ini", std::string("[A]\r\nK=\x01\xFF\xFE\r\n[\x80]\r\n=\r\n\x7F")}},
                    {}, {"ini", "dump", "{dir}/rnd.ini"}, 0, ""},
        HostileCase{"ReadOnlyIni", {{"ro.ini", "[S]\r\nK=V\r\n"}}, {"ro.ini"},
                    {"ini", "set", "{dir}/ro.ini", "S", "K", "W"}, 2,
                    "Unable to save INI file section 'S'"},
        HostileCase{"TenThousandControls", {{"big.frm", ManyControlsForm()}}, {},
                    {"--json", "access-keys", "{dir}/big.frm"}, 1, "",
                    [](const ReadBack&, const ToolRun& run) {
                      EXPECT_NE(run.out.find("\"key\":\"Z\""), std::string::npos);
                      EXPECT_NE(run.out.find("\"cmd9999\""), std::string::npos);
                    }},
        HostileCase{"TenThousandArguments", {}, {}, {"--json", "decl", TenThousandArguments()}, 0,
                    "",
                    [](const ReadBack&, const ToolRun& run) {
                      EXPECT_NE(run.out.find("\"a9999\""), std::string::npos);
                    }},
        HostileCase{"IncludeCycle",
                    {{"vbcode/", ""},
                     {"vbcode/A.bas", "top\r\n{INCLUDE B.bas}\r\n"},
                     {"vbcode/B.bas", "b\r\n{INCLUDE A.bas}\r\n"}},
                    {}, {"--addin-dir", "{dir}", "template", "{dir}/vbcode/A.bas"}, 0, "",
                    [](const ReadBack&, const ToolRun& run) {
                      EXPECT_NE(run.out.find("{INCLUDE B.bas}"), std::string::npos)
                          << "the directive that would repeat the cycle stays as written";
                    }},
        HostileCase{"Windows1252Text", {{"w.bas", kLatin1Module}}, {},
                    {"comment", "add", "{dir}/w.bas", "-i"}, 0, "",
                    [](const ReadBack& read, const ToolRun&) {
                      EXPECT_EQ(read("w.bas"),
                                "Attribute VB_Name = \"M\"\r\n'MsgBox \"Caf\xE9 \x80 5\"\r\n");
                    },
                    {"w.bas"}},
        HostileCase{"Utf8Text", {{"u.bas", kUtf8Module}}, {}, {"comment", "add", "{dir}/u.bas", "-i"}, 0,
                    "",
                    [](const ReadBack& read, const ToolRun&) {
                      EXPECT_EQ(read("u.bas"),
                                "Attribute VB_Name = \"M\"\r\n'MsgBox \"Caf\xC3\xA9 \xE2\x82\xAC 5\"\r\n");
                    },
                    {"u.bas"}}),
    [](const ::testing::TestParamInfo<HostileCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tavrin::testing
