#include "settings/ini_file.h"

#include <algorithm>

#include "base/text.h"
#include "platform/paths.h"

namespace tavrin::settings {

IniSaveError::IniSaveError(std::string_view section, std::string reason)
    : std::runtime_error("Unable to save INI file section '" + std::string(section) + "'"),
      reason_(std::move(reason)) {}

template <class T>
T* KeyedList<T>::Find(std::string_view key) const {
  const auto found = by_key_.find(ToUpperAscii(key));
  return found == by_key_.end() ? nullptr : found->second;
}

template <class T>
T* KeyedList<T>::At(int position) const {
  if (position < 1 || position > Count()) return nullptr;
  return elements_[static_cast<std::size_t>(position - 1)].get();
}

template <class T>
T* KeyedList<T>::Add(std::string_view key, std::unique_ptr<T> element) {
  auto [slot, added] = by_key_.emplace(ToUpperAscii(key), element.get());
  if (!added) return nullptr;
  elements_.push_back(std::move(element));
  return slot->second;
}

template <class T>
bool KeyedList<T>::Remove(std::string_view key) {
  const auto found = by_key_.find(ToUpperAscii(key));
  if (found == by_key_.end()) return false;
  T* element = found->second;
  by_key_.erase(found);
  std::erase_if(elements_, [element](const auto& each) { return each.get() == element; });
  return true;
}

template class KeyedList<C4_IniFileItem>;
template class KeyedList<C4_IniFileSection>;

// ---- C4_IniFileItem

C4_IniFileItem::C4_IniFileItem(C4_IniFileSection& parent, std::string key, std::string value)
    : parent_(parent), key_(std::move(key)), value_(std::move(value)) {}

void C4_IniFileItem::Save() const {
  const C4_IniFile& file = parent_.Parent();
  const Status written = file.Profiles().WriteString(file.Name(), parent_.Name(), key_, value_);
  if (!written) throw IniSaveError(parent_.Name(), written.error());
}

// ---- C4_IniFileSection

C4_IniFileSection::C4_IniFileSection(C4_IniFile& parent, std::string name)
    : parent_(parent), name_(std::move(name)), items_(std::in_place) {}

std::string C4_IniFileSection::SectionContent() const {
  if (!items_) return "";
  std::string text;
  for (const auto& item : items_->Elements()) {
    const bool comment = TrimBlanks(item->Key()).starts_with('#');
    text += comment ? item->Key() : item->Key() + "=" + item->Value();
    text += '\0';
  }
  text += '\0';
  return text;
}

int C4_IniFileSection::Count() const { return items_ ? items_->Count() : 0; }

void C4_IniFileSection::Delete() { items_.reset(); }

C4_IniFileItem* C4_IniFileSection::Item(std::string_view key) const {
  return items_ ? items_->Find(key) : nullptr;
}

C4_IniFileItem* C4_IniFileSection::Item(int position) const {
  return items_ ? items_->At(position) : nullptr;
}

void C4_IniFileSection::Remove(std::string_view key) {
  if (items_) items_->Remove(key);
}

void C4_IniFileSection::Remove(int position) {
  if (const C4_IniFileItem* item = Item(position)) Remove(std::string(item->Key()));
}

C4_IniFileItem* C4_IniFileSection::Add(std::string_view key, std::string_view value) {
  // After Delete the section starts a new collection rather than failing.
  if (!items_) items_.emplace();
  return items_->Add(key, std::make_unique<C4_IniFileItem>(*this, std::string(key),
                                                           std::string(value)));
}

void C4_IniFileSection::Save(std::string_view text) {
  const std::string content = text.empty() ? SectionContent() : std::string(text);
  platform::ProfileFile& profiles = parent_.Profiles();
  // Only a text that is "#" alone passes this two-character test; kept on
  // purpose, unlike the one-character comment test of SectionContent.
  if (TrimBlanks(content).substr(0, 2) == "#") {
    const Status removed = profiles.WriteSection(parent_.Name(), name_, std::nullopt);
    if (!removed) throw IniSaveError(name_, removed.error());
  }
  const Status written = profiles.WriteSection(parent_.Name(), name_, content);
  if (!written) throw IniSaveError(name_, written.error());
}

void C4_IniFileSection::Initialize() { items_.emplace(); }

const std::vector<std::unique_ptr<C4_IniFileItem>>* C4_IniFileSection::Items() const {
  return items_ ? &items_->Elements() : nullptr;
}

void C4_IniFileSection::Load() {
  raw_text_ = ReadWholeProfileBuffer([this](std::size_t size) {
    return parent_.Profiles().ReadSection(parent_.Name(), name_, size);
  });
  for (const std::string& line : C4_IniFile::Split(raw_text_, std::string_view("\0", 1))) {
    if (line.empty()) continue;
    // Key= gives (Key, ""), =Value gives (Value, ""), A=B=C gives (A, C):
    // empty pieces drop out and the middle ones are lost. Users' files
    // rely on this reading, so it stays.
    const std::vector<std::string> parts = C4_IniFile::Split(line, "=");
    if (parts.size() == 1)
      Add(TrimBlanks(parts.front()), "");
    else
      Add(TrimBlanks(parts.front()), TrimBlanks(parts.back()));
  }
}

// ---- C4_IniFile

C4_IniFile::C4_IniFile(platform::ProfileFile& profiles, platform::FileSystem& files,
                       std::string addin_folder)
    : profiles_(profiles), files_(files), addin_folder_(std::move(addin_folder)) {}

// A folder part that is a lone separator ("\tvrtp.ini") names the add-in's
// folder, not the root of the drive.
bool C4_IniFile::FolderOfNameExists(std::string_view name) const {
  const std::string_view folder = platform::FolderPart(name);
  return folder.size() > 1 && files_.FolderExists(folder);
}

void C4_IniFile::SetName(std::string_view name) {
  if (name.empty()) return;
  std::string resolved(name);
  if (!FolderOfNameExists(name) &&
      FindIgnoreCase(name, addin_folder_) == std::string_view::npos) {
    const platform::PathStyle style = platform::NativePathStyle();
    if (!name.empty() && platform::IsPathSeparator(name.front())) name.remove_prefix(1);
    resolved = platform::EnsureTrailingSeparator(addin_folder_, style) + std::string(name);
  }
  name_ = resolved;
  if (FolderOfNameExists(name_))
    Load();
  else
    name_.clear();
}

C4_IniFileSection* C4_IniFile::Add(std::string_view section) {
  if (C4_IniFileSection* found = Item(section)) return found;
  return AddSection(section, true);
}

C4_IniFileSection* C4_IniFile::Add(std::string_view section, std::string_view key,
                                   std::string_view value) {
  C4_IniFileSection* added = Add(section);
  if (added) added->Add(key, value);
  return added;
}

C4_IniFileSection* C4_IniFile::Item(std::string_view section) const {
  return sections_.Find(section);
}

C4_IniFileSection* C4_IniFile::Item(int position) const { return sections_.At(position); }

void C4_IniFile::DeleteSection(std::string_view section) {
  if (C4_IniFileSection* found = Item(section)) found->Delete();
}

void C4_IniFile::DeleteSection(int position) {
  if (C4_IniFileSection* found = Item(position)) found->Delete();
}

void C4_IniFile::Save() {
  for (const auto& section : sections_.Elements()) section->Save();
}

bool C4_IniFile::SectionExists(std::string_view section) const {
  return Item(section) != nullptr;
}

bool C4_IniFile::ValueExists(std::string_view section, std::string_view key) const {
  const C4_IniFileSection* found = Item(section);
  return found && found->Item(key);
}

std::string C4_IniFile::Value(std::string_view section, std::string_view key) const {
  const C4_IniFileSection* found = Item(section);
  const C4_IniFileItem* item = found ? found->Item(key) : nullptr;
  return item ? item->Value() : "";
}

void C4_IniFile::SetValue(std::string_view section, std::string_view key,
                          std::string_view value) {
  C4_IniFileSection* found = Add(section);
  C4_IniFileItem* item = found->Item(key);
  if (!item) item = found->Add(key, "");
  item->SetValue(std::string(value));
}

std::string C4_IniFile::SectionContent(std::string_view section) const {
  const C4_IniFileSection* found = Item(section);
  return found ? found->SectionContent() : "";
}

void C4_IniFile::ValueEx(std::string_view section, std::string_view key,
                         std::string_view value) {
  SetValue(section, key, value);
  Save();
}

void C4_IniFile::RemoveValue(std::string_view section, std::string_view key) {
  if (C4_IniFileSection* found = Item(section)) found->Remove(key);
}

std::vector<std::string> C4_IniFile::Split(std::string_view text, std::string_view delimiter) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  while (!delimiter.empty() && start <= text.size()) {
    const auto found = text.find(delimiter, start);
    const std::size_t end = found == std::string_view::npos ? text.size() : found;
    if (end > start) pieces.emplace_back(text.substr(start, end - start));
    if (found == std::string_view::npos) break;
    start = found + delimiter.size();
  }
  if (delimiter.empty() && !text.empty()) pieces.emplace_back(text);
  if (pieces.empty()) pieces.emplace_back();
  return pieces;
}

Status C4_IniFile::AddLine(std::string_view text) {
  if (name_.empty()) return Error{"the INI file has no usable name"};
  auto bytes = files_.ReadFile(name_);
  std::string content = bytes ? std::move(*bytes) : std::string();
  if (!bytes && files_.FileExists(name_)) return Error{bytes.error()};
  content += std::string(text) + "\r\n";
  return files_.WriteFile(name_, content);
}

void C4_IniFile::Load() {
  const std::string names = ReadWholeProfileBuffer(
      [this](std::size_t size) { return profiles_.SectionNames(name_, size); });
  if (names.empty()) return;
  for (const std::string& name : Split(names, std::string_view("\0", 1)))
    if (!name.empty()) AddSection(name, false);
}

C4_IniFileSection* C4_IniFile::AddSection(std::string_view name, bool is_new) {
  // A second section of one name is dropped: the first one wins.
  if (Item(name)) return nullptr;
  auto section = std::make_unique<C4_IniFileSection>(*this, std::string(name));
  if (!is_new) section->Load();
  return sections_.Add(name, std::move(section));
}

}  // namespace tavrin::settings
