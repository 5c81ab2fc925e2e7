#include "toolwindows/search_index.h"

#include <gtest/gtest.h>

namespace tavrin::toolwindows {
namespace {

Node Member(std::string name, NodeKind kind = NodeKind::kProcedure) {
  Node node;
  node.kind = kind;
  node.caption = std::move(name);
  node.line = 1;
  return node;
}

std::vector<Node> Tree(const std::vector<std::string>& names) {
  Node component;
  component.kind = NodeKind::kComponent;
  component.caption = "basCustomers";
  for (const auto& name : names) component.children.push_back(Member(name));
  Node property = Member("CustomerName", NodeKind::kProperty);
  property.children.push_back(Member("Get", NodeKind::kAccessor));
  component.children.push_back(property);
  Node folder;
  folder.kind = NodeKind::kFolder;
  folder.children.push_back(component);
  Node project;
  project.caption = "Project1";
  project.children.push_back(folder);
  return {project};
}

TEST(MatchNameTest, Kinds) {
  struct Case {
    std::string_view name, query;
    MatchKind expected;
  };
  const Case cases[] = {
      {"GetCustomerName", "getcustomername", MatchKind::kExact},
      {"GetCustomerName", "getc", MatchKind::kPrefix},
      {"GetCustomerName", "gcn", MatchKind::kCamelHump},
      {"GetCustomerName", "GetCusN", MatchKind::kCamelHump},
      {"GetCustomerName", "cn", MatchKind::kNone},
      {"GetCustomerName", "name", MatchKind::kSubstring},
      {"cmd_OK_Click", "cOC", MatchKind::kCamelHump},
      {"Load2Items", "l2i", MatchKind::kCamelHump},
      {"GetCustomerName", "gcx", MatchKind::kNone},
      {"Get", "GetCustomer", MatchKind::kNone},
      {"Get", "", MatchKind::kNone},
  };
  for (const Case& c : cases)
    EXPECT_EQ(MatchName(c.name, c.query), c.expected) << c.name << " / " << c.query;
}

TEST(SearchIndexTest, RanksExactPrefixHumpSubstringThenShorterNames) {
  const SearchIndex index(Tree({"GetCustomerName", "Gcn", "GcnTotal", "GetCount", "ReadGcn",
                                "gcnList", "SetCustomerName"}));
  std::vector<std::string> found;
  for (const auto& result : index.Find("gcn")) found.push_back(result.entry->name);
  EXPECT_EQ(found, (std::vector<std::string>{"Gcn", "gcnList", "GcnTotal", "GetCustomerName",
                                             "ReadGcn"}));
  found.clear();
  for (const auto& result : index.Find("customer")) found.push_back(result.entry->name);
  EXPECT_EQ(found, (std::vector<std::string>{"CustomerName", "basCustomers", "GetCustomerName",
                                             "SetCustomerName"}));
  EXPECT_EQ(index.Find("customer", 2).size(), 2u);
  EXPECT_EQ(index.Find("customer")[0].entry->kind, NodeKind::kProperty);
}

}  // namespace
}  // namespace tavrin::toolwindows
