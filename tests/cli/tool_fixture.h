// A scratch folder for one test of the tool: files written into it, read
// back, and the tool run there.
#pragma once

#include <gtest/gtest.h>

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
  std::string Write(std::string_view name, std::string_view bytes) {
    const std::string path = folder_.File(name);
    std::ofstream(path, std::ios::binary).write(bytes.data(), bytes.size());
    return path;
  }
  std::string Read(const std::string& path) { return ReadWholeFile(path); }
  ToolRun Run(const std::vector<std::string>& arguments) {
    return RunTool(arguments, folder_.path().string());
  }

  TempFolder folder_;
};

}  // namespace tavrin::testing
