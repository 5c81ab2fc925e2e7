// The toolbar "Tavrin": created or restored at its saved place at
// connection, filled with controls, its place saved and the bar deleted at
// disconnection, and enabled only while a project is open.
#pragma once

#include <memory>
#include <string_view>

#include "ide/command_bars.h"
#include "platform/settings_store.h"

namespace tavrin::addin {

// Where the per-user settings store keeps the toolbar's place.
inline constexpr std::string_view kSettingsApp = "Tavrin";
inline constexpr std::string_view kSettingsSection = "Tavrin";
inline constexpr std::string_view kToolbarPosKey = "ToolbarPos";
inline constexpr std::string_view kToolbarIndexKey = "ToolbarIndex";
inline constexpr std::string_view kToolbarLeftKey = "ToolbarLeft";
inline constexpr std::string_view kToolbarTopKey = "ToolbarTop";
inline constexpr std::string_view kCodeExplorerPopUpName = "CodeExplorerPopUp";

struct ToolbarPlace {
  ide::BarPosition position = ide::BarPosition::kTop;
  int row_index = 0;
  int left = 0;
  int top = 0;
  friend bool operator==(const ToolbarPlace&, const ToolbarPlace&) = default;
};

// The saved place; missing or unusable values take the defaults (docked at
// the top, row 0, left 0, top 0). The add-in passes an empty prefix.
ToolbarPlace ReadToolbarPlace(platform::SettingsStore& store, std::string_view prefix);

// Creates the bar "Tavrin" (or reuses one left over, emptied), puts it at
// its saved place and shows it.
std::shared_ptr<ide::ICommandBar> CreateToolbar(ide::IVbe& vbe, platform::SettingsStore& store,
                                                std::string_view prefix);

// Adds one control to `parent` (a pop-up), or to `bar` when parent is null:
// caption from string resource caption_id, picture and mask from bitmaps
// picture_id and picture_id + "m" (0: none), or the face of the IDE's
// control face_id (0: none). `url` is not stored on the control.
std::shared_ptr<ide::ICommandBarControl> AddBarControl(
    ide::IVbe& vbe, ide::ICommandBar& bar, int caption_id, ide::ControlType control_type,
    bool begin_group, int picture_id, std::shared_ptr<ide::ICommandBarControl> parent,
    std::string_view url, bool force_caption, int face_id);

// Saves the bar's place, hides and deletes it, and deletes the Code
// Explorer's context bar. Errors in deleting are ignored.
void SaveAndRemoveToolbar(ide::IVbe& vbe, platform::SettingsStore& store,
                          std::string_view prefix);

// Enables or disables the bar "Tavrin" and the code window's "Tavrin Insert".
void EnableAddin(ide::IVbe& vbe, bool enabled);

// The bar of that name; nullptr when the IDE has none.
std::shared_ptr<ide::ICommandBar> FindBar(ide::IVbe& vbe, std::string_view name);

}  // namespace tavrin::addin
