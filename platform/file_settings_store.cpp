#include "platform/file_settings_store.h"

#include <vector>

#include "base/text.h"

namespace tavrin::platform {
namespace {

struct Entry {
  std::string key;
  std::string value;
};

struct Section {
  std::string name;
  std::vector<Entry> entries;
};

// Values may hold any text; line breaks and backslashes are escaped so each
// value stays on its line.
std::string Escape(std::string_view value) {
  std::string out;
  for (char c : value) {
    if (c == '\\') out += "\\\\";
    else if (c == '\n') out += "\\n";
    else if (c == '\r') out += "\\r";
    else out += c;
  }
  return out;
}

std::string Unescape(std::string_view value) {
  std::string out;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      out += value[i];
      continue;
    }
    const char next = value[++i];
    out += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
  }
  return out;
}

std::vector<Section> Parse(std::string_view text) {
  std::vector<Section> sections;
  for (std::string_view line : SplitAnyLineBreak(text)) {
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
      sections.push_back({std::string(line.substr(1, line.size() - 2)), {}});
    } else if (const auto equals = line.find('='); equals != std::string_view::npos &&
                                                 !sections.empty()) {
      sections.back().entries.push_back(
          {std::string(line.substr(0, equals)), Unescape(line.substr(equals + 1))});
    }
  }
  return sections;
}

std::string Serialize(const std::vector<Section>& sections) {
  std::string text;
  for (const Section& section : sections) {
    text += "[" + section.name + "]\n";
    for (const Entry& entry : section.entries)
      text += entry.key + "=" + Escape(entry.value) + "\n";
  }
  return text;
}

std::string SectionName(std::string_view app, std::string_view section) {
  return std::string(app) + "\\" + std::string(section);
}

Section* FindSection(std::vector<Section>& sections, std::string_view name) {
  for (Section& section : sections)
    if (EqualsIgnoreCase(section.name, name)) return &section;
  return nullptr;
}

Entry* FindEntry(Section& section, std::string_view key) {
  for (Entry& entry : section.entries)
    if (EqualsIgnoreCase(entry.key, key)) return &entry;
  return nullptr;
}

}  // namespace

FileSettingsStore::FileSettingsStore(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)) {}

std::string FileSettingsStore::GetSetting(std::string_view app, std::string_view section,
                                          std::string_view key,
                                          std::string_view default_value) {
  const auto text = files_.ReadFile(path_);
  if (!text) return std::string(default_value);
  auto sections = Parse(*text);
  if (Section* found = FindSection(sections, SectionName(app, section)))
    if (Entry* entry = FindEntry(*found, key)) return entry->value;
  return std::string(default_value);
}

bool FileSettingsStore::SaveSetting(std::string_view app, std::string_view section,
                                    std::string_view key, std::string_view value) {
  const auto text = files_.ReadFile(path_);
  auto sections = text ? Parse(*text) : std::vector<Section>();
  const std::string name = SectionName(app, section);
  Section* found = FindSection(sections, name);
  if (!found) found = &sections.emplace_back(Section{name, {}});
  if (Entry* entry = FindEntry(*found, key))
    entry->value = value;
  else
    found->entries.push_back({std::string(key), std::string(value)});
  return files_.WriteFile(path_, Serialize(sections)).ok();
}

void FileSettingsStore::DeleteSetting(std::string_view app, std::string_view section,
                                      std::string_view key) {
  const auto text = files_.ReadFile(path_);
  if (!text) return;
  auto sections = Parse(*text);
  Section* found = FindSection(sections, SectionName(app, section));
  if (!found) return;
  std::erase_if(found->entries, [&](const Entry& e) { return EqualsIgnoreCase(e.key, key); });
  (void)files_.WriteFile(path_, Serialize(sections));
}

}  // namespace tavrin::platform
