#include "win/dialog_template.h"

#include <cstddef>
#include <cstring>

namespace tavrin::win {

DialogTemplate::DialogTemplate(const std::wstring& title, DWORD style, short width, short height) {
  DLGTEMPLATE header{};
  header.style = style | DS_SETFONT;
  header.cx = width;
  header.cy = height;
  count_offset_ = offsetof(DLGTEMPLATE, cdit);
  Append(&header, sizeof header);
  words_.push_back(0);  // no menu
  words_.push_back(0);  // the standard dialog class
  AppendString(title);
  words_.push_back(8);  // font size in points
  AppendString(L"MS Shell Dlg");
}

void DialogTemplate::AddItem(DWORD style, short x, short y, short width, short height, WORD id) {
  AlignToDword();
  DLGITEMTEMPLATE item{};
  item.style = style | WS_CHILD;
  item.x = x;
  item.y = y;
  item.cx = width;
  item.cy = height;
  item.id = id;
  Append(&item, sizeof item);
  ++control_count_;
}

void DialogTemplate::AddControl(WORD window_class, const std::wstring& text, DWORD style, short x,
                                short y, short width, short height, WORD id) {
  AddItem(style, x, y, width, height, id);
  words_.push_back(0xFFFF);
  words_.push_back(window_class);
  AppendString(text);
  words_.push_back(0);  // no creation data
}

void DialogTemplate::AddControl(const std::wstring& window_class, const std::wstring& text,
                                DWORD style, short x, short y, short width, short height, WORD id) {
  AddItem(style, x, y, width, height, id);
  AppendString(window_class);
  AppendString(text);
  words_.push_back(0);
}

std::vector<DWORD> DialogTemplate::Build() const {
  std::vector<WORD> words = words_;
  std::memcpy(reinterpret_cast<char*>(words.data()) + count_offset_, &control_count_,
              sizeof control_count_);
  std::vector<DWORD> storage((words.size() + 1) / 2, 0);
  std::memcpy(storage.data(), words.data(), words.size() * sizeof(WORD));
  return storage;
}

void DialogTemplate::AlignToDword() {
  if (words_.size() % 2 != 0) words_.push_back(0);
}

void DialogTemplate::Append(const void* data, std::size_t bytes) {
  const std::size_t at = words_.size();
  words_.resize(at + (bytes + 1) / 2, 0);
  std::memcpy(words_.data() + at, data, bytes);
}

void DialogTemplate::AppendString(const std::wstring& text) {
  for (wchar_t c : text) words_.push_back(static_cast<WORD>(c));
  words_.push_back(0);
}

}  // namespace tavrin::win
