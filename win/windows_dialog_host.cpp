#include "win/windows_dialog_host.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "platform/ui.h"
#include "win/dialog_layout.h"
#include "win/dialog_window.h"

namespace tavrin::win {
namespace {

using builders::Field;
using builders::FieldKind;

struct DeviceContextTraits {
  using Handle = HDC;
  static constexpr HDC kEmpty = nullptr;
  static void Close(HDC dc) { ::DeleteDC(dc); }
};

// Text widths in the dialog font ("MS Shell Dlg" 8), in dialog units: the
// pixels over the font's average character width, as the dialog manager
// converts them (4 units a character).
class DialogTextWidth {
 public:
  DialogTextWidth() : dc_(::CreateCompatibleDC(nullptr)) {
    LOGFONTW font{};
    font.lfHeight = -::MulDiv(8, ::GetDeviceCaps(dc_.get(), LOGPIXELSY), 72);
    font.lfCharSet = DEFAULT_CHARSET;
    ::wcscpy(font.lfFaceName, L"MS Shell Dlg");
    font_.reset(::CreateFontIndirectW(&font));
    ::SelectObject(dc_.get(), font_.get());
    SIZE size{};
    constexpr wchar_t kAlphabet[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    if (::GetTextExtentPoint32W(dc_.get(), kAlphabet, 52, &size) && size.cx > 0)
      base_ = (size.cx / 26 + 1) / 2;
  }

  int operator()(std::string_view text) const {
    const std::wstring wide = Utf8ToWide(text);
    SIZE size{};
    if (!::GetTextExtentPoint32W(dc_.get(), wide.c_str(), static_cast<int>(wide.size()), &size))
      size.cx = static_cast<LONG>(wide.size()) * base_;
    return (size.cx * 4 + base_ - 1) / base_ + 2;
  }

 private:
  UniqueHandle<DeviceContextTraits> dc_;
  UniqueFont font_;
  int base_ = 6;
};

std::string ValueOf(const Field& field) {
  if (field.kind == FieldKind::kCheck) return field.checked ? "1" : "0";
  if (field.selected >= 0 && field.selected < static_cast<int>(field.items.size()))
    return field.items[static_cast<std::size_t>(field.selected)];
  return field.text;
}

}  // namespace

std::string DialogSettingsSection(std::string_view title) { return "Dialog " + std::string(title); }

WindowsDialogHost::WindowsDialogHost(HWND owner, platform::SettingsStore* store, HelpOpener help)
    : owner_(owner), store_(store), help_(std::move(help)) {}

bool WindowsDialogHost::Show(builders::DialogModel& model) {
  try {
    static const bool common_controls = [] {
      INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES};
      return ::InitCommonControlsEx(&classes) != FALSE;
    }();
    (void)common_controls;
    Recall(model);
    const DialogTextWidth measure;
    const DialogButtons buttons{model.HasCancel(), !model.HelpTopic().empty()};
    const auto lay_out = [&measure, buttons](const std::vector<Field>& fields) {
      return LayOutDialog(fields, buttons,
                          [&measure](std::string_view text) { return measure(text); });
    };
    HWND owner = open_.empty() ? owner_ : open_.back();
    if (!owner) owner = ::GetActiveWindow();
    const std::size_t open_before = open_.size();
    DialogWindow window(model, *this, lay_out);
    const bool accepted = window.Run(owner);
    open_.resize(std::min(open_.size(), open_before));
    return accepted;
  } catch (...) {
    return false;  // nothing shown is nothing confirmed
  }
}

// The values the user gave last time, for the fields that keep theirs.
void WindowsDialogHost::Recall(builders::DialogModel& model) {
  if (!store_) return;
  const std::string section = DialogSettingsSection(model.Title());
  for (Field& field : model.Fields()) {
    if (!field.remember) continue;
    const std::string value = store_->GetSetting(platform::kAppTitle, section, field.id, "\x01");
    if (value == "\x01") continue;
    if (field.kind == FieldKind::kCheck) {
      field.checked = value == "1";
    } else {
      const auto found = std::find(field.items.begin(), field.items.end(), value);
      const bool listed = found != field.items.end();
      // A list keeps its selection when the item is no longer offered.
      if (!listed && (field.kind == FieldKind::kChoice || field.kind == FieldKind::kList)) continue;
      field.text = value;
      field.selected = listed ? static_cast<int>(found - field.items.begin()) : -1;
    }
    const std::string id = field.id;
    model.Changed(id);
  }
}

void WindowsDialogHost::Remember(builders::DialogModel& model) {
  if (!store_) return;
  const std::string section = DialogSettingsSection(model.Title());
  for (const Field& field : model.Fields())
    if (field.remember) store_->SaveSetting(platform::kAppTitle, section, field.id, ValueOf(field));
}

}  // namespace tavrin::win
