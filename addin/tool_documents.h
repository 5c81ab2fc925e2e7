// The documents of the three tool windows: what each window shows, taken
// from the models in toolwindows/, and what the user's actions do in the
// IDE. A view (the window inside the IDE, or a test) draws what it is given
// and calls back; nothing here knows about windows.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "addin/tool_windows.h"
#include "toolwindows/code_explorer.h"
#include "toolwindows/search_index.h"
#include "toolwindows/tab_order.h"

namespace tavrin::addin {

// What the add-in tells each of its documents: the IDE to read, or nullptr
// at disconnection, when the document lets go of every object of the IDE.
class IToolDocument {
 public:
  virtual ~IToolDocument() = default;
  virtual void Attach(ide::IVbe* vbe) = 0;
};

// Where a tree node or a search result points.
struct MemberPlace {
  std::string project;
  std::string component;
  int line = 0;  // 0: the top of the module
  std::string member;  // the procedure or property; empty above members
};

// Shows the component's code pane with the caret at the start of `line`.
// Raises ide::Error when the project or component is gone.
void GoToMember(ide::IVbe& vbe, const MemberPlace& place);

// The place of every member node of `tree` in depth-first order (projects,
// folders and components included, each with the place it stands for).
std::vector<MemberPlace> PlacesOf(const std::vector<toolwindows::Node>& tree);

// Something that draws a document and is told when it changed.
class DocumentView {
 public:
  virtual ~DocumentView() = default;
  virtual void DocumentChanged() = 0;
};

// The common part: the IDE attached and the view to tell.
class ToolDocumentBase : public IToolDocument {
 public:
  void SetView(DocumentView* view) { view_ = view; }

 protected:
  void Changed() {
    if (view_) view_->DocumentChanged();
  }
  ide::IVbe* vbe_ = nullptr;

 private:
  DocumentView* view_ = nullptr;
};

class CodeExplorerDocument final : public ICodeExplorerDocument, public ToolDocumentBase {
 public:
  void Attach(ide::IVbe* vbe) override;
  void Initialize(bool from_ide) override;
  bool Initialized() override { return model_.has_value() && built_; }
  bool OnceOpened() override { return once_opened_; }
  void VBProjectAdd(std::shared_ptr<ide::IProject> project) override;
  void VBProjectRemove(std::string_view project_name) override;
  void VBComponentAdd(std::shared_ptr<ide::IComponent> component) override;
  void VBComponentRemove(std::string_view project_name, std::string_view component_name) override;

  // The tree as last read, and the place of each of its nodes (PlacesOf).
  const std::vector<toolwindows::Node>& Tree() const { return tree_; }
  const std::vector<MemberPlace>& Places() const { return places_; }
  void GoTo(const MemberPlace& place);
  void MarkOpened() { once_opened_ = true; }
  // The type-ahead filter (FilterTree); empty shows everything.
  void SetFilter(std::string_view query);
  const std::string& Filter() const { return filter_; }
  // The node the context menu acts on, by its index in Places(); an index
  // out of range clears it. Kept as a place, so a new tree keeps it.
  void Select(std::size_t index);
  const std::optional<MemberPlace>& Selected() const { return selected_; }
  // Selects the node and opens the context bar "CodeExplorerPopUp" at the
  // screen point (nullopt: the mouse pointer); false when the IDE has no
  // such bar.
  bool ShowContextMenu(std::size_t index, std::optional<int> x, std::optional<int> y);

 private:
  void Show();

  std::optional<toolwindows::CodeExplorer> model_;
  std::vector<toolwindows::Node> tree_;
  std::vector<MemberPlace> places_;
  std::string filter_;
  std::optional<MemberPlace> selected_;
  bool built_ = false;
  bool once_opened_ = false;
};

// The builders Shortcuts and Search offers as buttons: the caption ids of
// the add-in's toolbar buttons they click.
inline constexpr int kShortcutCaptionIds[] = {101, 105, 103, 102, 106};

// Shortcuts and Search: the search box over every name of the open
// projects, and the builders a click away.
class SearchDocument final : public ide::IUserDocument, public ToolDocumentBase {
 public:
  void Attach(ide::IVbe* vbe) override;
  // Reads the projects again (when the user starts a search).
  void Rebuild();
  // Ranked results of `query`; an empty query clears them.
  void Search(std::string_view query);
  const std::vector<toolwindows::SearchResult>& Results() const { return results_; }
  // Goes to the result at `position`; false when there is none.
  bool GoTo(std::size_t position);
  // What Enter does: a constant's, variable's, enum's or type's name is
  // typed at the caret of the active code pane (in place of a selection on
  // one line); any other result, or any result without a code pane, is gone
  // to. False when there is no such result.
  bool Choose(std::size_t position);
  // Clicks the add-in's toolbar button with that caption, as the user
  // would; false when it is not there.
  bool RunShortcut(int caption_id);

 private:
  std::optional<toolwindows::SearchIndex> index_;
  std::vector<toolwindows::SearchResult> results_;
};

// The Tab order window: the active form's controls in tab order.
class TabOrderDocument final : public ITabOrderDocument, public ToolDocumentBase {
 public:
  void Attach(ide::IVbe* vbe) override;
  // Reads the active form designer again (any flag).
  void RefreshList(int flag) override;
  void ControlAdded(std::shared_ptr<ide::IControl>) override { RefreshList(0); }
  void ControlRenamed(std::shared_ptr<ide::IControl>, std::string_view, int) override {
    RefreshList(0);
  }
  void ControlRemoved(std::shared_ptr<ide::IControl>) override { RefreshList(0); }

  // Empty without a form designer.
  const std::vector<toolwindows::TabStop>& Stops() const;
  // The stops with the captions of tabbed containers' tabs.
  std::vector<toolwindows::TabOrderLine> Lines() const;
  bool MoveUp(std::size_t position);
  bool MoveDown(std::size_t position);
  void OrderByPosition();
  // Writes TabIndex; the number of controls written.
  int Apply();

 private:
  std::optional<toolwindows::TabOrder> model_;
};

}  // namespace tavrin::addin
