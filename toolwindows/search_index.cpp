#include "toolwindows/search_index.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "base/text.h"

namespace tavrin::toolwindows {
namespace {

bool IsUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Where each hump of the name starts.
std::vector<std::size_t> Humps(std::string_view name) {
  std::vector<std::size_t> humps;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = name[i];
    if (c == '_') continue;
    const char before = i ? name[i - 1] : '_';
    if (before == '_' || (IsUpper(c) && !IsUpper(before)) || (IsDigit(c) && !IsDigit(before)))
      humps.push_back(i);
  }
  return humps;
}

// The rest of the query from `q` on, taken as starts of humps from `h` on;
// name and query both lower-cased.
bool MatchHumps(std::string_view name, const std::vector<std::size_t>& humps, std::size_t h,
                std::string_view query, std::size_t q) {
  if (q == query.size()) return true;
  for (; h < humps.size(); ++h) {
    for (std::size_t k = 0; humps[h] + k < name.size() && q + k < query.size() &&
                            name[humps[h] + k] == query[q + k];
         ++k) {
      if (MatchHumps(name, humps, h + 1, query, q + k + 1)) return true;
    }
  }
  return false;
}

void Collect(const Node& node, const std::string& project, const std::string& component,
             std::vector<SearchEntry>& entries) {
  switch (node.kind) {
    case NodeKind::kProject:
      for (const Node& child : node.children) Collect(child, node.caption, component, entries);
      return;
    case NodeKind::kFolder:
      for (const Node& child : node.children) Collect(child, project, component, entries);
      return;
    case NodeKind::kComponent:
      entries.push_back({node.caption, node.kind, project, node.caption, 0});
      for (const Node& child : node.children) Collect(child, project, node.caption, entries);
      return;
    case NodeKind::kAccessor:
    case NodeKind::kTypeMember:
      return;
    default:
      entries.push_back({node.caption, node.kind, project, component, node.line});
      // An enum's members are names of their own.
      for (const Node& child : node.children) Collect(child, project, component, entries);
  }
}

// MatchName on a lower-cased name with its humps and a lower-cased query.
MatchKind MatchLowered(std::string_view name, const std::vector<std::size_t>& humps,
                       std::string_view query) {
  if (query.empty() || query.size() > name.size()) return MatchKind::kNone;
  if (name == query) return MatchKind::kExact;
  if (name.starts_with(query)) return MatchKind::kPrefix;
  // Humps must start at the name's first hump.
  if (!humps.empty() && name[humps[0]] == query[0] && MatchHumps(name, humps, 0, query, 0))
    return MatchKind::kCamelHump;
  if (name.find(query) != std::string_view::npos) return MatchKind::kSubstring;
  return MatchKind::kNone;
}

}  // namespace

MatchKind MatchName(std::string_view name, std::string_view query) {
  return MatchLowered(ToLowerAscii(name), Humps(name), ToLowerAscii(query));
}

SearchIndex::SearchIndex(const std::vector<Node>& tree) {
  for (const Node& project : tree) Collect(project, project.caption, {}, entries_);
  keys_.reserve(entries_.size());
  for (const SearchEntry& entry : entries_)
    keys_.push_back({ToLowerAscii(entry.name), ToLowerAscii(entry.component), Humps(entry.name)});
}

std::vector<SearchResult> SearchIndex::Find(std::string_view query, std::size_t limit) const {
  const std::string lowered = ToLowerAscii(query);
  std::vector<SearchResult> results;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const MatchKind match = MatchLowered(keys_[i].name, keys_[i].humps, lowered);
    if (match != MatchKind::kNone) results.push_back({&entries_[i], match});
  }
  const auto less = [this](const SearchResult& a, const SearchResult& b) {
    if (a.match != b.match) return a.match < b.match;
    const Keys& ka = keys_[std::size_t(a.entry - entries_.data())];
    const Keys& kb = keys_[std::size_t(b.entry - entries_.data())];
    if (ka.name.size() != kb.name.size()) return ka.name.size() < kb.name.size();
    if (ka.name != kb.name) return ka.name < kb.name;
    return ka.component < kb.component;
  };
  if (results.size() > limit) {
    std::partial_sort(results.begin(), results.begin() + std::ptrdiff_t(limit), results.end(), less);
    results.resize(limit);
  } else {
    std::sort(results.begin(), results.end(), less);
  }
  return results;
}

namespace {

// The node if it or anything below it matches; nothing otherwise.
std::optional<Node> Filtered(const Node& node, std::string_view query) {
  const bool matches = node.kind != NodeKind::kProject && node.kind != NodeKind::kFolder &&
                       MatchName(node.caption, query) != MatchKind::kNone;
  if (matches) return node;
  Node kept = node;
  kept.children.clear();
  for (const Node& child : node.children) {
    if (auto filtered = Filtered(child, query)) kept.children.push_back(std::move(*filtered));
  }
  if (kept.children.empty()) return std::nullopt;
  return kept;
}

}  // namespace

std::vector<Node> FilterTree(const std::vector<Node>& tree, std::string_view query) {
  if (query.empty()) return tree;
  std::vector<Node> kept;
  for (const Node& node : tree) {
    if (auto filtered = Filtered(node, query)) kept.push_back(std::move(*filtered));
  }
  return kept;
}

}  // namespace tavrin::toolwindows
