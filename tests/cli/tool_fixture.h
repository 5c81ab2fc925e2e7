// A scratch folder for one test of the tool: files written into it, read
// back, and the tool run there.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/cli/tool_runner.h"
#include "tests/support/temp_folder.h"

namespace tavrin::testing {

inline std::string ReadWholeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class ToolFixture : public ::testing::Test {
 protected:
  // `name` is relative to the scratch folder; missing folders are made.
  std::string Write(std::string_view name, std::string_view bytes) {
    const std::string path = folder_.File(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return path;
  }
  // `path` is absolute or relative to the scratch folder.
  std::string Read(const std::string& path) {
    return ReadWholeFile(std::filesystem::path(path).is_absolute() ? path : folder_.File(path));
  }
  ToolRun Run(const std::vector<std::string>& arguments) {
    return RunTool(arguments, folder_.path().string());
  }

  TempFolder folder_;
};

// Every run uses the test's own add-in folder "addin", never the user's.
class AddinToolFixture : public ToolFixture {
 protected:
  ToolRun Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--addin-dir", addin_});
    return ToolFixture::Run(arguments);
  }

  std::string addin_ = [this] {
    std::filesystem::create_directories(folder_.path() / "addin");
    return folder_.File("addin");
  }();
};

}  // namespace tavrin::testing
