// The add-in's command table: every control of the toolbar "Tavrin", of its
// pop-up menus and of the code window's context entry "Tavrin Insert", in
// screen order, with its caption, picture, group, control type and the
// handler a click runs. The toolbar, the menus and the tool's `commands`
// listing are all built from this one table.
#pragma once

#include <span>
#include <string_view>

#include "ide/command_bars.h"

namespace tavrin::addin {

class CommandHost;

// What a handler does: runs one operation with the row's argument (a
// snippet name, a page address, a tool window's class word).
using Operation = void (*)(CommandHost& host, std::string_view argument);

// The bar a top-level row goes on.
enum class CommandBarRoot {
  kToolbar,     // the add-in's own toolbar "Tavrin"
  kCodeWindow,  // the IDE's "Code Window" context menu
  kCodeExplorerPopUp,  // the Code Explorer's context bar "CodeExplorerPopUp"
};

struct CommandRow {
  CommandBarRoot bar = CommandBarRoot::kToolbar;
  // 0: on the bar itself; n: inside the nearest row above of depth n - 1,
  // which is a pop-up.
  int depth = 0;
  ide::ControlType type = ide::ControlType::kButton;
  // String resource of the caption, and bitmap resource of the picture.
  int caption_id = 0;
  bool picture = false;
  bool begin_group = false;
  // Only added when the testing flag is set.
  bool testing_only = false;
  // mnuh...Click; empty for a pop-up.
  std::string_view handler;
  // nullptr: the operation is not built yet and the click does nothing.
  Operation run = nullptr;
  std::string_view argument;

  bool IsPopup() const { return type == ide::ControlType::kPopup; }
  // The picture's bitmap resource; 0 for none.
  int PictureId() const { return picture ? caption_id : 0; }
};

// Every row, in screen order.
std::span<const CommandRow> CommandTable();

// The row whose handler has that name; nullptr when there is none.
const CommandRow* FindCommand(std::string_view handler);

// The caption of the code window's context entry.
inline constexpr int kTavrinInsertCaption = 2011;
inline constexpr std::string_view kToolbarName = "Tavrin";
inline constexpr std::string_view kCodeWindowBarName = "Code Window";

}  // namespace tavrin::addin
