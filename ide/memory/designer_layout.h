// The controls of a designer block (`Begin VB.Form ...` ... `End` in the
// header of a .frm, .ctl, .pag, .dob or .dsr file) and their property lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ide/memory/source_file.h"

namespace tavrin::ide::memory {

struct ControlLayout {
  std::string prog_id;        // "VB.CommandButton"
  std::string name;           // "cmdOK"
  std::size_t begin_line = 0; // header index of its Begin line
  int container = -1;         // ordinal of the control it sits in; -1: the root
  // Set by AssignNamesAndTabs (control_names.h): "optKind(1)" for a member
  // of a control array, and on a tabbed container the tab its
  // `Tab(n).Control(i)` line names (-1: on no tab, or not listed).
  std::string display_name;
  int tab = -1;
  // Header indexes of its own `Key = value` lines, not those of nested
  // BeginProperty blocks or child controls.
  std::vector<std::size_t> property_lines;
};

// Every control below the root object, nested ones and menus included, in
// file order; empty when the header holds no designer block.
std::vector<ControlLayout> ParseDesignerLayout(const std::vector<PhysicalLine>& header);

// The header index of the root object's End line; nullopt when the block
// has none.
std::optional<std::size_t> RootEndLine(const std::vector<PhysicalLine>& header);

// The designer class of the root object ("VB.Form", "VB.MDIForm"); empty
// when there is none.
std::string RootProgId(const std::vector<PhysicalLine>& header);

// A `Key = value` line: the key and where its value is written.
struct PropertyLine {
  std::string key;
  std::size_t value_begin = 0;
  std::size_t value_end = 0;  // before a trailing comment and blanks
};

std::optional<PropertyLine> ParsePropertyLine(std::string_view line);
// The value as text: a quoted string unquoted, anything else as written.
std::string PropertyValueText(std::string_view raw);
bool IsQuoted(std::string_view raw);
std::string Quote(std::string_view text);

}  // namespace tavrin::ide::memory
