// The editor options of the VB6 IDE, read from its registry key.
#pragma once

#include <string>

#include "platform/ide_options.h"

namespace tavrin::win {

// Where the VB6 IDE keeps its editor options under HKEY_CURRENT_USER.
inline constexpr wchar_t kVisualBasicEditorKey[] =
    L"Software\\Microsoft\\VBA\\Microsoft Visual Basic";

class RegistryIdeOptions : public platform::IdeOptions {
 public:
  explicit RegistryIdeOptions(std::wstring key_path = kVisualBasicEditorKey)
      : key_path_(std::move(key_path)) {}

  // "TabWidth" as REG_DWORD or as text (read as Visual Basic's Val reads
  // it); missing, empty or outside 1..32 gives nullopt.
  std::optional<int> TabWidth() override;

 private:
  std::wstring key_path_;
};

}  // namespace tavrin::win
