// Where each field of a dialog model goes, in dialog units: the layout pass
// of the Windows dialog host, apart from any window so that it reads as the
// rules it applies.
//
// - Fields run top to bottom in their order. A field with a caption has it
//   on the left in one label column, so every control starts at the same x.
// - Check boxes in a row share it in up to three columns; buttons in a row
//   share a line, except right after a list box, where they stand in a
//   column beside it.
// - Consecutive fields of one group sit in a group box; a label spans the
//   width.
// - Previews stand in a column of their own on the right, as tall as the
//   rest, their caption above them; a page's previews stand on the right
//   of that page, inside the tabs.
// - A list keeps a control's width beside the buttons that act on it.
// - Fields with pages go on the pages of a tab control below the fields
//   without one; every page is laid out in the same place. The tabs show in
//   one row (as wide as their captions), a page without a preview gives its
//   fields the whole width, and a button of no page (Apply) stands beside
//   OK and Cancel.
// - OK, Cancel and Help close the dialog at the bottom right.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "builders/dialog.h"

namespace tavrin::win {

struct Box {
  int x = 0, y = 0, width = 0, height = 0;
  bool empty() const { return width == 0; }
};

struct FieldPlace {
  Box label;  // the caption; empty: none
  Box control;
  Box browse;  // the "..." button of a file or folder field
};

struct GroupPlace {
  std::string caption;
  std::size_t first_field = 0;  // the group box comes before it in Tab order
  Box box;
};

struct DialogLayout {
  std::vector<FieldPlace> fields;  // one per field, in field order
  std::vector<GroupPlace> groups;
  std::vector<std::string> pages;  // the tab pages in order; empty: no tabs
  std::size_t first_paged_field = 0;
  Box tabs;
  Box ok, cancel, help;  // cancel or help empty: no such button
  int width = 0, height = 0;
};

// The width of a text in the dialog font, in dialog units.
using TextWidth = std::function<int(std::string_view text)>;

struct DialogButtons {
  bool cancel = true;
  bool help = false;
};

DialogLayout LayOutDialog(const std::vector<builders::Field>& fields, DialogButtons buttons,
                          const TextWidth& text_width);

// Whether the field's caption stands in the label column: the edit boxes,
// lists and pickers, and labels whose caption ends in ":" (a caption and its
// value, such as "Declared name:").
bool HasSideLabel(const builders::Field& field);

// What a label or note shows in its own control: its value, or its caption
// when it has no label column and no value.
const std::string& LabelText(const builders::Field& field);

// A caption as shown: without the "&" that marks its access key.
std::string WithoutAccessMark(std::string_view caption);

}  // namespace tavrin::win
