// An in-memory dialog template for DialogBoxIndirectParam: DLGTEMPLATE, then
// one DLGITEMTEMPLATE per control, each aligned to a DWORD, strings as
// null-terminated UTF-16. Positions and sizes are dialog units, and the font
// is "MS Shell Dlg" 8, so a dialog scales with the user's font and DPI.
#pragma once

#include <string>
#include <vector>

#include "win/win_support.h"

namespace tavrin::win {

// The predefined control classes, by atom.
inline constexpr WORD kButtonClass = 0x0080;
inline constexpr WORD kEditClass = 0x0081;
inline constexpr WORD kStaticClass = 0x0082;
inline constexpr WORD kListBoxClass = 0x0083;
inline constexpr WORD kComboBoxClass = 0x0085;

class DialogTemplate {
 public:
  DialogTemplate(const std::wstring& title, DWORD style, short width, short height);

  void AddControl(WORD window_class, const std::wstring& text, DWORD style, short x, short y,
                  short width, short height, WORD id);
  // A control of a registered class (a common control such as
  // "SysTabControl32").
  void AddControl(const std::wstring& window_class, const std::wstring& text, DWORD style, short x,
                  short y, short width, short height, WORD id);

  // DWORD-aligned storage; its data() is the DLGTEMPLATE.
  std::vector<DWORD> Build() const;

 private:
  void AddItem(DWORD style, short x, short y, short width, short height, WORD id);
  void AlignToDword();
  void Append(const void* data, std::size_t bytes);
  void AppendString(const std::wstring& text);

  std::vector<WORD> words_;
  std::size_t count_offset_ = 0;
  WORD control_count_ = 0;
};

}  // namespace tavrin::win
