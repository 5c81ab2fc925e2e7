#include "addin/toolbar.h"

#include <charconv>
#include <string>

#include "addin/command_table.h"
#include "addin/ignore_errors.h"
#include "base/text.h"
#include "resources/string_table.h"
#include "resources/toolbar_pictures.h"

namespace tavrin::addin {
namespace {

std::string Key(std::string_view prefix, std::string_view key) {
  return std::string(prefix) + std::string(key);
}

// A whole number as GetSetting's caller converts it; nullopt for anything
// else.
std::optional<int> ParseWhole(std::string_view text) {
  const std::string_view trimmed = TrimBlanks(text);
  int value = 0;
  const char* first = trimmed.data();
  const char* last = first + trimmed.size();
  const auto [end, error] = std::from_chars(first, last, value);
  if (error != std::errc() || end != last || trimmed.empty()) return std::nullopt;
  return value;
}

int ReadWhole(platform::SettingsStore& store, std::string_view prefix, std::string_view key,
              int default_value) {
  const std::string text = store.GetSetting(kSettingsApp, kSettingsSection, Key(prefix, key),
                                            std::to_string(default_value));
  return ParseWhole(text).value_or(default_value);
}

std::optional<ide::Picture> Bitmap(const std::string& name) {
  auto bytes = resources::LoadResPicture(name);
  if (!bytes) return std::nullopt;
  return ide::Picture{name, std::move(*bytes)};
}

// Sets the picture and its mask; on command bars without a Picture property
// the picture goes through the clipboard. False when the control got none.
bool SetFace(ide::IVbe& vbe, ide::ICommandBarControl& control, int picture_id) {
  const auto picture = Bitmap(std::to_string(picture_id));
  const auto mask = Bitmap(std::to_string(picture_id) + "m");
  if (!picture) return false;
  if (IgnoreErrors([&] { control.GetPicture(); })) {
    return IgnoreErrors([&] {
      control.SetPicture(*picture);
      if (mask) control.SetMask(*mask);
    });
  }
  return IgnoreErrors([&] {
    vbe.ClipboardSetData(*picture);
    control.PasteFace();
  });
}

bool CopyFace(ide::IVbe& vbe, ide::ICommandBarControl& control, int face_id) {
  return IgnoreErrors([&] {
    const auto source = vbe.CommandBars()->FindControl(std::nullopt, face_id);
    if (!source) throw ide::Error(5, "No control has that face");
    source->CopyFace();
    control.PasteFace();
  });
}

}  // namespace

ToolbarPlace ReadToolbarPlace(platform::SettingsStore& store, std::string_view prefix) {
  ToolbarPlace place;
  const int position = ReadWhole(store, prefix, kToolbarPosKey, 1);
  // Only the four docks and floating can be restored; anything else was not
  // written by us and counts as missing.
  if (position >= 0 && position <= 4) place.position = static_cast<ide::BarPosition>(position);
  place.row_index = ReadWhole(store, prefix, kToolbarIndexKey, 0);
  place.left = ReadWhole(store, prefix, kToolbarLeftKey, 0);
  place.top = ReadWhole(store, prefix, kToolbarTopKey, 0);
  return place;
}

std::shared_ptr<ide::ICommandBar> FindBar(ide::IVbe& vbe, std::string_view name) {
  std::shared_ptr<ide::ICommandBar> bar;
  IgnoreErrors([&] {
    bar = vbe.CommandBars()->Item(name);
    if (bar && bar->Name().empty()) bar = nullptr;
  });
  return bar;
}

std::shared_ptr<ide::ICommandBar> CreateToolbar(ide::IVbe& vbe, platform::SettingsStore& store,
                                                std::string_view prefix) {
  const ToolbarPlace place = ReadToolbarPlace(store, prefix);
  auto bar = FindBar(vbe, kToolbarName);
  if (bar) {
    // Left over by a disconnection that failed: its controls have no
    // handlers any more and would be doubled.
    const auto controls = bar->Controls();
    for (int i = controls->Count(); i >= 1; --i)
      IgnoreErrors([&] { controls->Item(i)->Delete(); });
  } else {
    bar = vbe.CommandBars()->Add(kToolbarName, place.position, false, true);
  }
  bar->SetPosition(place.position);
  switch (place.position) {
    case ide::BarPosition::kLeft:
    case ide::BarPosition::kRight:
      bar->SetRowIndex(place.row_index);
      bar->SetTop(place.top);
      break;
    case ide::BarPosition::kTop:
    case ide::BarPosition::kBottom:
      bar->SetRowIndex(place.row_index);
      bar->SetLeft(place.left);
      break;
    default:
      bar->SetTop(place.top);
      bar->SetLeft(place.left);
      break;
  }
  bar->SetVisible(true);
  return bar;
}

std::shared_ptr<ide::ICommandBarControl> AddBarControl(
    ide::IVbe& vbe, ide::ICommandBar& bar, int caption_id, ide::ControlType control_type,
    bool begin_group, int picture_id, std::shared_ptr<ide::ICommandBarControl> parent,
    std::string_view /*url*/, bool force_caption, int face_id) {
  vbe.DoEvents();
  const std::string caption(resources::LoadResString(caption_id));
  const auto controls = parent ? parent->Controls() : bar.Controls();
  auto control = controls->Add(control_type);
  bool has_face = picture_id != 0 && SetFace(vbe, *control, picture_id);
  if (face_id != 0) has_face = CopyFace(vbe, *control, face_id) || has_face;
  control->SetBeginGroup(begin_group);
  control->SetCaption(caption);
  if (has_face) {
    const bool with_caption = parent != nullptr || force_caption;
    IgnoreErrors([&] {
      control->SetStyle(with_caption ? ide::ButtonStyle::kIconAndCaption
                                     : ide::ButtonStyle::kIcon);
    });
  }
  if (!parent) control->SetTooltipText(caption);
  return control;
}

void SaveAndRemoveToolbar(ide::IVbe& vbe, platform::SettingsStore& store,
                          std::string_view prefix) {
  if (const auto bar = FindBar(vbe, kToolbarName)) {
    // A value that cannot be stored is lost: the next start uses the default.
    const auto save = [&](std::string_view key, int value) {
      store.SaveSetting(kSettingsApp, kSettingsSection, Key(prefix, key), std::to_string(value));
    };
    IgnoreErrors([&] {
      save(kToolbarPosKey, static_cast<int>(bar->Position()));
      save(kToolbarIndexKey, bar->RowIndex());
      save(kToolbarLeftKey, bar->Left());
      save(kToolbarTopKey, bar->Top());
    });
    IgnoreErrors([&] { bar->SetVisible(false); });
    IgnoreErrors([&] { bar->Delete(); });
  }
  if (const auto popup = FindBar(vbe, kCodeExplorerPopUpName))
    IgnoreErrors([&] { popup->Delete(); });
}

void EnableAddin(ide::IVbe& vbe, bool enabled) {
  if (const auto bar = FindBar(vbe, kToolbarName))
    IgnoreErrors([&] { bar->SetEnabled(enabled); });
  if (const auto code_window = FindBar(vbe, kCodeWindowBarName)) {
    IgnoreErrors([&] {
      code_window->Controls()->Item(resources::LoadResString(kTavrinInsertCaption))
          ->SetEnabled(enabled);
    });
  }
}

}  // namespace tavrin::addin
