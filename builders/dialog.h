// The contract between a builder and whatever shows it. A dialog is data: a
// model lists its fields (kind, caption, text, items, state) and decides what
// every change, button and OK means. One host shows any model: real windows
// in the add-in, answers on the command line in the tool, scripts in tests.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::builders {

enum class FieldKind {
  kLabel,
  kText,
  kNumber,
  kCheck,
  kChoice,  // drop-down list
  kCombo,   // drop-down list that also takes free text
  kList,    // list box
  kButton,
  kPreview,  // read-only, several lines, fixed-width font
  kNote,     // read-only prose, wrapped, in the dialog's font
  kFile,
  kFolder,
};

struct Field {
  std::string id;
  FieldKind kind = FieldKind::kLabel;
  std::string caption;  // "&" marks the access key
  std::string text;
  bool checked = false;
  std::vector<std::string> items;
  int selected = -1;  // index into items; -1: none
  bool enabled = true;
  bool visible = true;
  std::string page;       // the tab page; empty: the dialog has no tabs
  std::string group;      // the group box; empty: none
  int rows = 1;           // height of a list or preview, in lines
  bool remember = false;  // the host keeps the value for the next showing
  bool save = false;      // a file field naming a file to write, not to open
};

// Why OK was refused: the message the user sees and the field to go back to.
struct Refusal {
  std::string message;
  std::string field;
};

class DialogHost;

class DialogModel {
 public:
  virtual ~DialogModel() = default;
  virtual std::string Title() const = 0;
  virtual std::string HelpTopic() const { return ""; }
  // False for a window that only informs: it shows OK alone.
  virtual bool HasCancel() const { return true; }
  // The fields in Tab order. Hosts write what the user changes straight into
  // them, then call Changed with the field's id.
  virtual std::vector<Field>& Fields() = 0;
  virtual void Changed(std::string_view id) {}
  virtual void Pressed(std::string_view id, DialogHost& host) {}
  // Called on OK; nullopt closes the dialog, a refusal keeps it open.
  virtual std::optional<Refusal> Accept() = 0;
};

class DialogHost {
 public:
  virtual ~DialogHost() = default;
  // True when the user confirmed and the model accepted.
  virtual bool Show(DialogModel& model) = 0;
};

Field MakeField(std::string id, FieldKind kind, std::string caption = "");

// The field with that id, or null.
Field* FindField(std::vector<Field>& fields, std::string_view id);

}  // namespace tavrin::builders
