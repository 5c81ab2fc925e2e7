// The control builder's layout: one row per entry of a list of names and
// types, a label in the left column and the input in the right one, below
// what the form holds already. Captions come from the names ("OrderDate"
// gives "&Order Date:"), with access keys that no caption of the form
// uses yet; the tab order follows the list, each label just before its
// input, so that the label's access key reaches the input.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ide/object_model.h"
#include "settings/type_prefixes.h"

namespace tavrin::formtools {

struct ControlEntry {
  std::string name;  // "OrderDate"
  std::string type;  // "TextBox", "CheckBox", "ComboBox", "ListBox", "OptionButton"
};

// The input types the builder lays out, in the order the dialog offers them.
const std::vector<std::string>& ControlTypes();

// "OrderDate As TextBox, Paid As CheckBox", one a line or between commas; an
// entry without a type is a TextBox. `problem` names an unknown type, a
// name that is no control name, or a name listed twice.
struct ParsedEntries {
  std::vector<ControlEntry> entries;
  std::string problem;
};
ParsedEntries ParseControlEntries(std::string_view text);

// The entries as the dialog's list shows them, one a line.
std::string EntriesText(const std::vector<ControlEntry>& entries);

// What the form holds already.
struct FormState {
  int bottom = 0;          // the lowest Top + Height of its controls (twips)
  int next_tab_index = 0;  // one more than its highest TabIndex
  std::string used_keys;   // access keys its captions use, upper case
  std::vector<std::string> names;  // its controls' names
};

struct PlacedControl {
  std::string prog_id;  // "VB.TextBox"
  std::string name;     // "txtOrderDate"
  std::string caption;  // a label's or a check box's; "" for the others
  int left = 0, top = 0, width = 0, height = 0;  // twips
  int tab_index = 0;
};

// "OrderDate" → "Order Date", "customer_name" → "Customer Name".
std::string CaptionOf(std::string_view name);

// The control's name: the tag of the type's row in the prefix table
// ("TextBox", "Label") or the usual one ("txt", "lbl"), then the name; a
// tag typed already is not doubled.
std::string ControlName(std::string_view type, std::string_view name,
                        const settings::TypePrefixTable& prefixes);

// Labels and inputs in tab order. A check box or option button carries its
// caption itself and stands in the input column without a label. `problem`
// names a control name the form (or the list) has already.
struct ControlLayout {
  std::vector<PlacedControl> controls;
  std::string problem;
};
ControlLayout LayOutControls(const std::vector<ControlEntry>& entries, const FormState& form,
                             const settings::TypePrefixTable& prefixes = {});

// What a form designer holds: read from its controls; a property a control
// lacks (a menu has no Top) is passed over.
FormState FormStateOf(ide::IDesigner& designer);

// Adds the controls to the form with their name, caption, place, size and
// tab index. Raises ide::Error.
void AddToForm(ide::IDesigner& designer, const std::vector<PlacedControl>& controls);

}  // namespace tavrin::formtools
