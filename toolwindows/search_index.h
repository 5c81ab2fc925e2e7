// The search box's index: the names of the modules, procedures,
// properties, enums, types, constants, variables and Declare statements of
// the open projects, built once from the Code Explorer's tree
// and queried per keystroke without reading the IDE again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "toolwindows/code_explorer.h"

namespace tavrin::toolwindows {

// Best first.
enum class MatchKind { kExact = 0, kPrefix = 1, kCamelHump = 2, kSubstring = 3, kNone = 4 };

// How `query` matches `name`, case-insensitively. A camel-hump match takes
// the start of each hump in turn ("gcn" or "GetCusN" find GetCustomerName);
// humps start at a capital, after an underscore and at a digit run.
MatchKind MatchName(std::string_view name, std::string_view query);

// The Code Explorer's type-ahead filter: the nodes whose caption matches
// `query` (as MatchName does), with the nodes above them; a matching
// component keeps all its members. An empty query keeps everything.
std::vector<Node> FilterTree(const std::vector<Node>& tree, std::string_view query);

struct SearchEntry {
  std::string name;
  // A component, a member or a declaration (an enum's members too).
  NodeKind kind = NodeKind::kComponent;
  std::string project;
  std::string component;
  int line = 0;
};

struct SearchResult {
  const SearchEntry* entry = nullptr;
  MatchKind match = MatchKind::kNone;
};

class SearchIndex {
 public:
  explicit SearchIndex(const std::vector<Node>& tree);

  // Matches ranked by match kind, then shorter names, then by name; at most
  // `limit` of them.
  std::vector<SearchResult> Find(std::string_view query, std::size_t limit = 100) const;
  const std::vector<SearchEntry>& Entries() const { return entries_; }

 private:
  // What a query needs of an entry, worked out once when the index is built
  // so that a query copies nothing per name.
  struct Keys {
    std::string name;       // lower-cased
    std::string component;  // lower-cased
    std::vector<std::size_t> humps;
  };

  std::vector<SearchEntry> entries_;
  std::vector<Keys> keys_;  // one for each entry
};

}  // namespace tavrin::toolwindows
