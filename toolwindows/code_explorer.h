// The Code Explorer's tree: the open projects, their components grouped by
// kind, and each component's members. The model holds what it read per
// component, so an IDE event about one component reads that one again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::toolwindows {

enum class NodeKind {
  kProject,
  kFolder,
  kComponent,
  kProcedure,
  kFunction,
  kProperty,
  kAccessor,
  // The declarations at the top of a module; an enum's or type's members
  // sit under it.
  kEnum,
  kType,
  kConstant,
  kVariable,
  kDeclare,
  kEnumMember,
  kTypeMember,
};

// True for the kinds whose name the search box inserts at the caret rather
// than going to its declaration.
bool InsertsName(NodeKind kind);

struct Node {
  NodeKind kind = NodeKind::kProject;
  std::string caption;
  // Components and folders: the kind of component, for the icon.
  ide::ComponentType component_type = ide::ComponentType::kStdModule;
  // Members: the accessor's kind and the scope, for the icon.
  ide::ProcKind proc_kind = ide::ProcKind::kProc;
  bool is_public = false;
  int line = 0;  // the declaration to go to; 0 for no member
  // A component whose code or designer the IDE could not open.
  bool unreadable = false;
  std::vector<Node> children;
};

// The folder a kind of component is listed under ("Modules", "Forms"...).
std::string_view FolderCaption(ide::ComponentType type);

class CodeExplorer {
 public:
  explicit CodeExplorer(ide::IVbe& vbe) : vbe_(vbe) {}

  // Reads every project again.
  void Build();
  // A component added or changed: reads that component alone again.
  void Refresh(ide::IComponent& component);
  void Remove(std::string_view project, std::string_view component);
  void Rename(std::string_view project, std::string_view old_name, std::string_view new_name);

  // The tree: one node per project, in the IDE's order; folders in a fixed
  // order; components by name; members in line order.
  std::vector<Node> Tree() const;
  // How many components were read since construction (reads are the cost).
  int ComponentReads() const { return component_reads_; }

 private:
  struct Component {
    std::string name;
    ide::ComponentType type = ide::ComponentType::kStdModule;
    std::vector<Node> members;
    bool unreadable = false;
  };
  struct Project {
    std::string name;
    std::vector<Component> components;
  };
  Component Read(ide::IComponent& component);
  Project* FindProject(std::string_view name);

  ide::IVbe& vbe_;
  std::vector<Project> projects_;
  int component_reads_ = 0;
};

// What the tree adds to the caption of a component the IDE could not open.
std::string_view UnreadableMark();

// The tree as indented text, two spaces a level; members show their line.
std::string TreeAsText(const std::vector<Node>& tree);

}  // namespace tavrin::toolwindows
