#include "addin/tool_documents.h"

#include <algorithm>
#include <utility>

#include "addin/command_table.h"
#include "addin/toolbar.h"
#include "formtools/verify_shortcuts.h"
#include "resources/string_table.h"

namespace tavrin::addin {
namespace {

void AddPlaces(const toolwindows::Node& node, MemberPlace place,
               std::vector<MemberPlace>& places) {
  if (node.kind == toolwindows::NodeKind::kProject) place.project = node.caption;
  if (node.kind == toolwindows::NodeKind::kComponent) place.component = node.caption;
  if (node.kind == toolwindows::NodeKind::kProcedure ||
      node.kind == toolwindows::NodeKind::kFunction ||
      node.kind == toolwindows::NodeKind::kProperty)
    place.member = node.caption;
  place.line = node.line;
  places.push_back(place);
  for (const toolwindows::Node& child : node.children) AddPlaces(child, place, places);
}

}  // namespace

void GoToMember(ide::IVbe& vbe, const MemberPlace& place) {
  const auto project = vbe.VBProjects()->Item(place.project);
  const auto module = project->VBComponents()->Item(place.component)->CodeModule();
  if (!module) throw ide::Error(5, place.component + " has no code");
  const auto pane = module->CodePane();
  pane->Show();
  const int line = place.line > 0 ? place.line : 1;
  pane->SetSelection({line, 1, line, 1});
}

std::vector<MemberPlace> PlacesOf(const std::vector<toolwindows::Node>& tree) {
  std::vector<MemberPlace> places;
  for (const toolwindows::Node& node : tree) AddPlaces(node, {}, places);
  return places;
}

// Code Explorer

void CodeExplorerDocument::Attach(ide::IVbe* vbe) {
  vbe_ = vbe;
  model_.reset();
  built_ = false;
  if (vbe_) model_.emplace(*vbe_);
  Show();  // empty until built
}

void CodeExplorerDocument::Initialize(bool) {
  if (!model_) return;
  model_->Build();
  built_ = true;
  Show();
}

void CodeExplorerDocument::VBProjectAdd(std::shared_ptr<ide::IProject> project) {
  if (!model_ || !project) return;
  const auto components = project->VBComponents();
  for (int i = 1; i <= components->Count(); ++i) model_->Refresh(*components->Item(i));
  Show();
}

void CodeExplorerDocument::VBProjectRemove(std::string_view) {
  // The model keeps projects by name only; reading them all again drops the
  // one that went.
  Initialize(true);
}

void CodeExplorerDocument::VBComponentAdd(std::shared_ptr<ide::IComponent> component) {
  if (!model_ || !component) return;
  model_->Refresh(*component);
  Show();
}

void CodeExplorerDocument::VBComponentRemove(std::string_view project_name,
                                             std::string_view component_name) {
  if (!model_) return;
  model_->Remove(project_name, component_name);
  Show();
}

void CodeExplorerDocument::GoTo(const MemberPlace& place) {
  if (vbe_ && !place.component.empty()) GoToMember(*vbe_, place);
}

void CodeExplorerDocument::SetFilter(std::string_view query) {
  filter_ = std::string(query);
  Show();
}

void CodeExplorerDocument::Select(std::size_t index) {
  if (index < places_.size())
    selected_ = places_[index];
  else
    selected_.reset();
}

bool CodeExplorerDocument::ShowContextMenu(std::size_t index, std::optional<int> x,
                                           std::optional<int> y) {
  Select(index);
  if (!vbe_) return false;
  const auto popup = FindBar(*vbe_, kCodeExplorerPopUpName);
  if (!popup) return false;
  popup->ShowPopup(x, y);
  return true;
}

void CodeExplorerDocument::Show() {
  tree_ = model_ ? toolwindows::FilterTree(model_->Tree(), filter_)
                 : std::vector<toolwindows::Node>{};
  places_ = PlacesOf(tree_);
  Changed();
}

// Shortcuts and Search

void SearchDocument::Attach(ide::IVbe* vbe) {
  vbe_ = vbe;
  results_.clear();
  index_.reset();
  Changed();
}

void SearchDocument::Rebuild() {
  results_.clear();
  index_.reset();
  if (!vbe_) return;
  toolwindows::CodeExplorer explorer(*vbe_);
  explorer.Build();
  index_.emplace(explorer.Tree());
}

void SearchDocument::Search(std::string_view query) {
  if (!index_) Rebuild();
  results_ = index_ && !query.empty() ? index_->Find(query) : std::vector<toolwindows::SearchResult>{};
  Changed();
}

bool SearchDocument::GoTo(std::size_t position) {
  if (!vbe_ || position >= results_.size()) return false;
  const toolwindows::SearchEntry& entry = *results_[position].entry;
  GoToMember(*vbe_, {entry.project, entry.component, entry.line, {}});
  return true;
}

bool SearchDocument::Choose(std::size_t position) {
  if (!vbe_ || position >= results_.size()) return false;
  const toolwindows::SearchEntry& entry = *results_[position].entry;
  const auto pane = toolwindows::InsertsName(entry.kind) ? vbe_->ActiveCodePane() : nullptr;
  // The pane the user last typed in, although this window has the focus.
  if (!pane) return GoTo(position);
  const ide::TextRange caret = pane->GetSelection();
  const auto module = pane->CodeModule();
  std::string line = module->Lines(caret.start_line, 1);
  const std::size_t at = std::min(line.size(), std::size_t(std::max(caret.start_column - 1, 0)));
  if (caret.end_line == caret.start_line && caret.end_column > caret.start_column)
    line.erase(at, std::size_t(caret.end_column - caret.start_column));
  line.insert(at, entry.name);
  if (caret.start_line > module->CountOfLines())
    module->InsertLines(caret.start_line, line);
  else
    module->ReplaceLine(caret.start_line, line);
  const int column = int(at + entry.name.size()) + 1;
  pane->SetSelection({caret.start_line, column, caret.start_line, column});
  return true;
}

bool SearchDocument::RunShortcut(int caption_id) {
  if (!vbe_) return false;
  const auto bar = FindBar(*vbe_, kToolbarName);
  if (!bar) return false;
  const auto controls = bar->Controls();
  for (int i = 1; i <= controls->Count(); ++i) {
    const auto control = controls->Item(i);
    if (control->Caption() != resources::LoadResString(caption_id)) continue;
    control->Execute();
    return true;
  }
  return false;
}

// Tab order

void TabOrderDocument::Attach(ide::IVbe* vbe) {
  vbe_ = vbe;
  model_.reset();  // the stops hold the IDE's controls
  Changed();
}

void TabOrderDocument::RefreshList(int) {
  model_.reset();
  if (vbe_) {
    if (const auto designer = formtools::ActiveFormDesigner(*vbe_)) model_.emplace(*designer);
  }
  Changed();
}

const std::vector<toolwindows::TabStop>& TabOrderDocument::Stops() const {
  static const std::vector<toolwindows::TabStop> kNone;
  return model_ ? model_->Stops() : kNone;
}

std::vector<toolwindows::TabOrderLine> TabOrderDocument::Lines() const {
  return model_ ? model_->Lines() : std::vector<toolwindows::TabOrderLine>{};
}

bool TabOrderDocument::MoveUp(std::size_t position) {
  const bool moved = model_ && model_->MoveUp(position);
  if (moved) Changed();
  return moved;
}

bool TabOrderDocument::MoveDown(std::size_t position) {
  const bool moved = model_ && model_->MoveDown(position);
  if (moved) Changed();
  return moved;
}

void TabOrderDocument::OrderByPosition() {
  if (!model_) return;
  model_->OrderByPosition();
  Changed();
}

int TabOrderDocument::Apply() {
  if (!model_) return 0;
  const int written = model_->Apply();
  Changed();
  return written;
}

}  // namespace tavrin::addin
