#include "codegen/settings_environment.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace tavrin::codegen {
namespace {

fragments::Settings SettingsIn(std::string folder) {
  fragments::Settings settings;
  settings.addin_folder = folder;
  settings.folders = fragments::CodeFolders(folder, "\\vbcode\\", "\\vbcode\\Library\\",
                                            platform::PathStyle::kPosix);
  return settings;
}

TEST(SettingsEnvironmentTest, TheTemplateValuesComeFromTheSettings) {
  fragments::Settings settings = SettingsIn("/addin");
  settings.values.Set(settings::Item::kDeveloper, std::string("Ann"));
  settings.values.Set(settings::Item::kExitHandler, std::string("ExitHere"));
  settings.values.Set(settings::Item::kProcedureNameConstant, std::string("PROCNAME"));
  const TemplateSettings values = TemplateSettingsFrom(settings);
  EXPECT_EQ(values.developer, "Ann");
  EXPECT_EQ(values.exit_label, "ExitHere");
  EXPECT_EQ(values.error_label, "HandleError");
  EXPECT_EQ(values.procedure_name_constant, "PROCNAME");
  EXPECT_EQ(values.procedure_header_file,
            "\\vbcode\\Fragments\\Headers And Comments\\ProcedureHeader.bas");
  EXPECT_EQ(values.base_folder, "\\vbcode\\");
}

TEST(SettingsEnvironmentTest, CodeFilesAreReadThroughTheCodeFolders) {
  testing::MemoryFileSystem files;
  files.AddFile("/addin/vbcode/ErrorHandlers/ErrorHandler.bas", "a\nb\r\nc");
  files.AddFile("/addin/vbcode/x.bas", "caf\xE9");  // Windows-1252
  const auto read = CodeFileReader(SettingsIn("/addin"), files);
  EXPECT_EQ(read("\\vbcode\\ErrorHandlers\\ErrorHandler.bas"), "a\r\nb\r\nc");
  EXPECT_EQ(read("\\vbcode\\x.bas"), "caf\xC3\xA9");
  EXPECT_EQ(read("\\vbcode\\missing.bas"), std::nullopt);
  EXPECT_EQ(read(""), std::nullopt);
}

}  // namespace
}  // namespace tavrin::codegen
