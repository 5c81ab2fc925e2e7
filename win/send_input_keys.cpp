#include "win/send_input_keys.h"

#include <vector>

#include "ide/memory/send_keys.h"
#include "win/win_support.h"

namespace tavrin::win {
namespace {

using ide::memory::KeyKind;

WORD VirtualKeyOf(KeyKind kind) {
  switch (kind) {
    case KeyKind::kBackspace: return VK_BACK;
    case KeyKind::kDelete: return VK_DELETE;
    case KeyKind::kEnter: return VK_RETURN;
    case KeyKind::kLeft: return VK_LEFT;
    case KeyKind::kRight: return VK_RIGHT;
    case KeyKind::kUp: return VK_UP;
    case KeyKind::kDown: return VK_DOWN;
    case KeyKind::kHome: return VK_HOME;
    case KeyKind::kEnd: return VK_END;
    case KeyKind::kTab: return VK_TAB;
    case KeyKind::kText:
    case KeyKind::kNone: break;
  }
  return 0;
}

INPUT KeyInput(WORD virtual_key, wchar_t unit, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtual_key;
  input.ki.wScan = unit;
  input.ki.dwFlags = (unit ? KEYEVENTF_UNICODE : 0) | (up ? KEYEVENTF_KEYUP : 0);
  return input;
}

}  // namespace

void SendInputKeys(std::string_view keys) {
  std::vector<INPUT> inputs;
  for (const auto& key : ide::memory::ParseKeys(keys)) {
    if (key.kind == KeyKind::kText) {
      // Characters go as Unicode units: no keyboard layout can lose them.
      for (wchar_t unit : Utf8ToWide(key.text)) {
        inputs.push_back(KeyInput(0, unit, false));
        inputs.push_back(KeyInput(0, unit, true));
      }
    } else if (const WORD virtual_key = VirtualKeyOf(key.kind)) {
      inputs.push_back(KeyInput(virtual_key, 0, false));
      inputs.push_back(KeyInput(virtual_key, 0, true));
    }
  }
  if (!inputs.empty()) {
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
  }
}

}  // namespace tavrin::win
