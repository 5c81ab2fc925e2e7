#include "toolwindows/search_index.h"

#include <algorithm>
#include <cctype>

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

// The rest of the query from `q` on, taken as starts of humps from `h` on.
bool MatchHumps(std::string_view name, const std::vector<std::size_t>& humps, std::size_t h,
                std::string_view query, std::size_t q) {
  if (q == query.size()) return true;
  for (; h < humps.size(); ++h) {
    for (std::size_t k = 0; humps[h] + k < name.size() && q + k < query.size() &&
                            ToLowerAscii(name[humps[h] + k]) == ToLowerAscii(query[q + k]);
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
      return;
    default:
      entries.push_back({node.caption, node.kind, project, component, node.line});
  }
}

}  // namespace

MatchKind MatchName(std::string_view name, std::string_view query) {
  if (query.empty() || query.size() > name.size()) return MatchKind::kNone;
  if (EqualsIgnoreCase(name, query)) return MatchKind::kExact;
  if (EqualsIgnoreCase(name.substr(0, query.size()), query)) return MatchKind::kPrefix;
  // Humps must start at the name's first hump.
  const auto humps = Humps(name);
  if (!humps.empty() && ToLowerAscii(name[humps[0]]) == ToLowerAscii(query[0]) &&
      MatchHumps(name, humps, 0, query, 0)) {
    return MatchKind::kCamelHump;
  }
  if (ToLowerAscii(name).find(ToLowerAscii(query)) != std::string::npos)
    return MatchKind::kSubstring;
  return MatchKind::kNone;
}

SearchIndex::SearchIndex(const std::vector<Node>& tree) {
  for (const Node& project : tree) Collect(project, project.caption, {}, entries_);
}

std::vector<SearchResult> SearchIndex::Find(std::string_view query, std::size_t limit) const {
  std::vector<SearchResult> results;
  for (const SearchEntry& entry : entries_) {
    const MatchKind match = MatchName(entry.name, query);
    if (match != MatchKind::kNone) results.push_back({&entry, match});
  }
  const auto less = [](const SearchResult& a, const SearchResult& b) {
    if (a.match != b.match) return a.match < b.match;
    if (a.entry->name.size() != b.entry->name.size())
      return a.entry->name.size() < b.entry->name.size();
    const auto na = ToLowerAscii(a.entry->name), nb = ToLowerAscii(b.entry->name);
    if (na != nb) return na < nb;
    return ToLowerAscii(a.entry->component) < ToLowerAscii(b.entry->component);
  };
  if (results.size() > limit) {
    std::partial_sort(results.begin(), results.begin() + std::ptrdiff_t(limit), results.end(), less);
    results.resize(limit);
  } else {
    std::sort(results.begin(), results.end(), less);
  }
  return results;
}

}  // namespace tavrin::toolwindows
