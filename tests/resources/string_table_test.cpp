#include "resources/string_table.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace tavrin::resources {
namespace {

struct Expected {
  int id;
  std::string_view text;
};

TEST(StringTableTest, Captions) {
  const Expected kCaptions[] = {
      {101, "Add P&rocedure..."},
      {110, "Hel&p"},
      {122, "&Tavrin"},
      {146, "Add Item to User-Defined Data Ty&pe..."},
      {165, "GoSu&b..."},  // reserved, still in the table
      {167, "&Add Error Handling"},
      {176, "Class Builder..."},
      {190, "&Debug.Print... "},  // the trailing blank is part of the caption
      {194, "View &Shortcuts and Search\xE2\x80\xA6"},  // one character in UTF-8
      {195, "View Code &Explorer\u2026"},
      {401, "&Procedure Builder..."},
      {2010, "TabOrder"},
  };
  for (const auto& [id, text] : kCaptions) {
    EXPECT_EQ(LoadResString(id), text) << "id " << id;
  }
}

TEST(StringTableTest, NameCheckMessagesExist) {
  for (int id = 1001; id <= 1005; ++id) {
    EXPECT_FALSE(LoadResString(id).empty()) << "id " << id;
  }
}

TEST(StringTableTest, UnknownIdsGiveEmpty) {
  for (int id : {-1, 0, 100, 107, 126, 317, 1000, 1006, 65535, 70000}) {
    EXPECT_TRUE(LoadResString(id).empty()) << "id " << id;
  }
}

TEST(StringTableTest, ErrorHandlerModuleHasCrLfLineBreaks) {
  const std::string_view text = LoadResString(1101);
  ASSERT_NE(text.find("Public Sub ErrorHandle("), std::string_view::npos);
  EXPECT_NE(text.find("\r\n"), std::string_view::npos);
  EXPECT_NE(text.find("End Sub"), std::string_view::npos);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') {
      ASSERT_GT(i, 0u);
      EXPECT_EQ(text[i - 1], '\r') << "bare LF at " << i;
    }
    if (text[i] == '\r') {
      ASSERT_LT(i + 1, text.size());
      EXPECT_EQ(text[i + 1], '\n') << "bare CR at " << i;
    }
  }
  EXPECT_NE(text.substr(text.size() - 2), "\r\n");
}

}  // namespace
}  // namespace tavrin::resources
