// The INI file object model: a file owns its sections, a section owns its
// items (key and value). The whole file is read when it is named; work
// happens in memory and is written back section by section through the
// private-profile calls (platform::ProfileFile), only when asked.
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"
#include "platform/profile_file.h"

namespace tavrin::settings {

// A section the system refused to write: "Unable to save INI file section
// '<name>'", with the system's reason beside it.
class IniSaveError : public std::runtime_error {
 public:
  IniSaveError(std::string_view section, std::string reason);
  const std::string& reason() const { return reason_; }

 private:
  std::string reason_;
};

// An ordered collection keyed case-insensitively, 1-based like the
// collections of the IDE's language; adding a key already present fails.
template <class T>
class KeyedList {
 public:
  T* Find(std::string_view key) const;
  T* At(int position) const;  // 1-based
  T* Add(std::string_view key, std::unique_ptr<T> element);  // nullptr when present
  bool Remove(std::string_view key);
  int Count() const { return static_cast<int>(elements_.size()); }
  const std::vector<std::unique_ptr<T>>& Elements() const { return elements_; }

 private:
  std::vector<std::unique_ptr<T>> elements_;
  std::unordered_map<std::string, T*> by_key_;  // upper-cased key
};

class C4_IniFile;
class C4_IniFileSection;

class C4_IniFileItem {
 public:
  C4_IniFileItem(C4_IniFileSection& parent, std::string key, std::string value);

  const std::string& Key() const { return key_; }
  const std::string& Value() const { return value_; }
  void SetValue(std::string value) { value_ = std::move(value); }
  C4_IniFileSection& Parent() const { return parent_; }
  // Writes this one pair to the file at once; raises IniSaveError.
  void Save() const;

 private:
  C4_IniFileSection& parent_;
  std::string key_;
  std::string value_;
};

class C4_IniFileSection {
 public:
  C4_IniFileSection(C4_IniFile& parent, std::string name);

  const std::string& Name() const { return name_; }
  C4_IniFile& Parent() const { return parent_; }

  // The NUL-separated "key=value" lines ending in two NULs ("#" comment
  // lines alone); "" after Delete.
  std::string SectionContent() const;
  int Count() const;
  // Drops every item in memory; the next Save leaves the header alone.
  void Delete();
  C4_IniFileItem* Item(std::string_view key) const;
  C4_IniFileItem* Item(int position) const;
  void Remove(std::string_view key);
  void Remove(int position);
  // nullptr when the key is already present.
  C4_IniFileItem* Add(std::string_view key, std::string_view value);
  // Writes `text` (or SectionContent when empty) as the section's whole
  // content; raises IniSaveError.
  void Save(std::string_view text = "");
  void Initialize();
  const std::vector<std::unique_ptr<C4_IniFileItem>>* Items() const;
  // The section's lines as last read from the file.
  const std::string& RawText() const { return raw_text_; }

 private:
  friend class C4_IniFile;
  void Load();

  C4_IniFile& parent_;
  std::string name_;
  std::optional<KeyedList<C4_IniFileItem>> items_;
  std::string raw_text_;
};

class C4_IniFile {
 public:
  // `addin_folder` is where bare names live.
  C4_IniFile(platform::ProfileFile& profiles, platform::FileSystem& files,
             std::string addin_folder);
  C4_IniFile(const C4_IniFile&) = delete;
  C4_IniFile& operator=(const C4_IniFile&) = delete;

  const std::string& Name() const { return name_; }
  // Resolves the name (bare names to the add-in's folder) and reads the
  // file; the name stays empty when its folder does not exist.
  void SetName(std::string_view name);

  C4_IniFileSection* Add(std::string_view section);
  C4_IniFileSection* Add(std::string_view section, std::string_view key, std::string_view value);
  C4_IniFileSection* Item(std::string_view section) const;
  C4_IniFileSection* Item(int position) const;
  int Count() const { return sections_.Count(); }
  void DeleteSection(std::string_view section);
  void DeleteSection(int position);
  // Saves every section in order; raises IniSaveError.
  void Save();
  const KeyedList<C4_IniFileSection>& Sections() const { return sections_; }
  bool SectionExists(std::string_view section) const;
  bool ValueExists(std::string_view section, std::string_view key) const;
  std::string Value(std::string_view section, std::string_view key) const;
  void SetValue(std::string_view section, std::string_view key, std::string_view value);
  std::string SectionContent(std::string_view section) const;
  void ValueEx(std::string_view section, std::string_view key, std::string_view value);
  void RemoveValue(std::string_view section, std::string_view key);
  // The non-empty pieces between delimiters; one empty string when none.
  static std::vector<std::string> Split(std::string_view text, std::string_view delimiter);
  // Appends the text and CR LF to the file on disk, past the model.
  Status AddLine(std::string_view text);

  platform::ProfileFile& Profiles() const { return profiles_; }

 private:
  void Load();
  bool FolderOfNameExists(std::string_view name) const;
  C4_IniFileSection* AddSection(std::string_view name, bool is_new);

  platform::ProfileFile& profiles_;
  platform::FileSystem& files_;
  std::string addin_folder_;
  std::string name_;
  KeyedList<C4_IniFileSection> sections_;
};

// Asks with 1024 characters and doubles while the answer filled the buffer;
// the answer without its final NUL. Past 256 MB what came is taken, so a
// system that always answers "too small" cannot hold the add-in.
template <class Read>
std::string ReadWholeProfileBuffer(Read read) {
  constexpr std::size_t kLargest = std::size_t{1} << 28;
  for (std::size_t size = 1024;; size *= 2) {
    platform::ProfileBuffer answer = read(size);
    if (answer.length == 0) return {};
    if (answer.length != size - 2 || size >= kLargest) {
      answer.buffer.resize(answer.length - 1);
      return std::move(answer.buffer);
    }
  }
}

}  // namespace tavrin::settings
