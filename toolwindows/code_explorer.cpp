#include "toolwindows/code_explorer.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "base/text.h"
#include "ide/memory/component_kind.h"
#include "resources/string_table.h"
#include "scan/project_scanner.h"

namespace tavrin::toolwindows {
namespace {

constexpr int kUnreadableMarkText = 2035;

using ide::ComponentType;

// Folders in the order the tree shows them.
constexpr std::array<std::string_view, 8> kFolders = {
    "Modules",        "Class Modules",  "Forms",     "User Controls",
    "Property Pages", "User Documents", "Designers", "Documents"};

std::size_t FolderRank(ComponentType type) {
  const auto caption = FolderCaption(type);
  return std::size_t(std::find(kFolders.begin(), kFolders.end(), caption) - kFolders.begin());
}

bool HasCode(ComponentType type) {
  return type != ComponentType::kResFile && type != ComponentType::kRelatedDocument;
}

std::string_view AccessorCaption(ide::ProcKind kind) {
  switch (kind) {
    case ide::ProcKind::kGet: return "Get";
    case ide::ProcKind::kLet: return "Let";
    case ide::ProcKind::kSet: return "Set";
    default: return "";
  }
}

std::optional<NodeKind> DeclarationKind(scan::DeclKind kind) {
  switch (kind) {
    case scan::DeclKind::kEnum: return NodeKind::kEnum;
    case scan::DeclKind::kType: return NodeKind::kType;
    case scan::DeclKind::kConstant: return NodeKind::kConstant;
    case scan::DeclKind::kVariable: return NodeKind::kVariable;
    case scan::DeclKind::kDeclare: return NodeKind::kDeclare;
    case scan::DeclKind::kEnumMember: return NodeKind::kEnumMember;
    case scan::DeclKind::kTypeMember: return NodeKind::kTypeMember;
    default: return std::nullopt;
  }
}

// The declaration area: enums and types with their members under them,
// constants, variables and Declare statements, in line order. A module
// whose declarations do not balance (an Enum without End Enum) still shows
// what was read.
void AddDeclarations(const scan::ModuleScan& scan, std::vector<Node>& members) {
  bool unclosed = false;  // the last enum or type has no End line
  for (const scan::Declaration& declaration : scan.declarations) {
    const auto kind = DeclarationKind(declaration.kind);
    if (!kind) continue;
    Node node;
    node.kind = *kind;
    node.caption = declaration.name;
    node.is_public = declaration.scope == scan::DeclScope::kGlobal;
    node.line = declaration.line;
    const bool member = *kind == NodeKind::kEnumMember || *kind == NodeKind::kTypeMember;
    // Without its End line, an enum or type runs on into the statements
    // after it: a keyword is no member's name.
    if (member && unclosed && !ide::memory::IsValidComponentName(declaration.name)) continue;
    if (*kind == NodeKind::kEnum || *kind == NodeKind::kType) unclosed = declaration.end_line == 0;
    if (member && !members.empty() && EqualsIgnoreCase(members.back().caption, declaration.parent)) {
      node.is_public = members.back().is_public;
      members.back().children.push_back(std::move(node));
    } else if (!member) {
      members.push_back(std::move(node));
    }
  }
}

// The module's text is read in one call and scanned here: asking the IDE
// for each procedure's lines costs a dozen calls a procedure, which through
// COM made a large project's tree take seconds.
std::vector<Node> Members(ide::IComponent& component) {
  std::vector<Node> members;
  const auto module = component.CodeModule();
  if (!module) return members;
  const scan::ModuleScan scan = scan::ScanCodeModule(*module);
  AddDeclarations(scan, members);
  // One node per name and kind, as the IDE knows one procedure by them.
  std::set<std::pair<std::string, ide::ProcKind>> listed;
  for (const scan::ScannedProc& proc : scan.procedures) {
    if (!listed.emplace(ToUpperAscii(proc.name), proc.kind).second) continue;
    Node node;
    node.caption = proc.name;
    node.proc_kind = proc.kind;
    node.is_public = proc.scope == scan::DeclScope::kGlobal;
    node.line = proc.line;
    if (node.proc_kind == ide::ProcKind::kProc) {
      node.kind = proc.is_function ? NodeKind::kFunction : NodeKind::kProcedure;
      members.push_back(std::move(node));
      continue;
    }
    // Accessors of one property sit under one node, placed at the first.
    auto property = std::find_if(members.begin(), members.end(), [&](const Node& member) {
      return member.kind == NodeKind::kProperty && EqualsIgnoreCase(member.caption, proc.name);
    });
    if (property == members.end()) {
      Node group;
      group.kind = NodeKind::kProperty;
      group.caption = proc.name;
      group.is_public = node.is_public;
      group.line = node.line;
      members.push_back(std::move(group));
      property = members.end() - 1;
    }
    property->is_public = property->is_public || node.is_public;
    node.kind = NodeKind::kAccessor;
    node.caption = std::string(AccessorCaption(node.proc_kind));
    property->children.push_back(std::move(node));
  }
  return members;
}

bool NameLess(const std::string& a, const std::string& b) {
  return ToLowerAscii(a) < ToLowerAscii(b);
}

}  // namespace

bool InsertsName(NodeKind kind) {
  return kind == NodeKind::kConstant || kind == NodeKind::kVariable ||
         kind == NodeKind::kEnumMember || kind == NodeKind::kEnum || kind == NodeKind::kType;
}

std::string_view FolderCaption(ComponentType type) {
  switch (type) {
    case ComponentType::kStdModule: return kFolders[0];
    case ComponentType::kClassModule: return kFolders[1];
    case ComponentType::kVBForm:
    case ComponentType::kVBMDIForm:
    case ComponentType::kMSForm: return kFolders[2];
    case ComponentType::kUserControl: return kFolders[3];
    case ComponentType::kPropPage: return kFolders[4];
    case ComponentType::kDocObject: return kFolders[5];
    case ComponentType::kActiveXDesigner: return kFolders[6];
    default: return kFolders[7];
  }
}

CodeExplorer::Component CodeExplorer::Read(ide::IComponent& component) {
  ++component_reads_;
  Component entry;
  // A component the IDE cannot read is still listed, without members.
  try {
    entry.name = component.Name();
    entry.type = component.Type();
    if (HasCode(entry.type)) entry.members = Members(component);
  } catch (const ide::Error&) {
    entry.unreadable = true;
  }
  return entry;
}

void CodeExplorer::Build() {
  projects_.clear();
  try {
    const auto projects = vbe_.VBProjects();
    for (int p = 1; p <= projects->Count(); ++p) {
      const auto project = projects->Item(p);
      Project entry{project->Name(), {}};
      const auto components = project->VBComponents();
      for (int c = 1; c <= components->Count(); ++c)
        entry.components.push_back(Read(*components->Item(c)));
      projects_.push_back(std::move(entry));
    }
  } catch (const ide::Error&) {
  }
}

CodeExplorer::Project* CodeExplorer::FindProject(std::string_view name) {
  for (Project& project : projects_)
    if (EqualsIgnoreCase(project.name, name)) return &project;
  return nullptr;
}

void CodeExplorer::Refresh(ide::IComponent& component) {
  std::string project_name;
  try {
    project_name = component.Project()->Name();
  } catch (const ide::Error&) {
    return;
  }
  Project* project = FindProject(project_name);
  if (!project) {
    projects_.push_back({project_name, {}});
    project = &projects_.back();
  }
  Component entry = Read(component);
  for (Component& existing : project->components) {
    if (EqualsIgnoreCase(existing.name, entry.name)) {
      existing = std::move(entry);
      return;
    }
  }
  project->components.push_back(std::move(entry));
}

void CodeExplorer::Remove(std::string_view project_name, std::string_view component) {
  if (Project* project = FindProject(project_name))
    std::erase_if(project->components,
                  [&](const Component& entry) { return EqualsIgnoreCase(entry.name, component); });
}

void CodeExplorer::Rename(std::string_view project_name, std::string_view old_name,
                          std::string_view new_name) {
  if (Project* project = FindProject(project_name))
    for (Component& entry : project->components)
      if (EqualsIgnoreCase(entry.name, old_name)) entry.name = std::string(new_name);
}

std::vector<Node> CodeExplorer::Tree() const {
  std::vector<Node> tree;
  for (const Project& project : projects_) {
    Node project_node;
    project_node.caption = project.name;
    std::vector<const Component*> sorted;
    for (const Component& component : project.components) sorted.push_back(&component);
    std::stable_sort(sorted.begin(), sorted.end(), [](const Component* a, const Component* b) {
      const auto ra = FolderRank(a->type), rb = FolderRank(b->type);
      return ra != rb ? ra < rb : NameLess(a->name, b->name);
    });
    for (const Component* component : sorted) {
      const auto folder = FolderCaption(component->type);
      if (project_node.children.empty() || project_node.children.back().caption != folder) {
        Node folder_node;
        folder_node.kind = NodeKind::kFolder;
        folder_node.caption = std::string(folder);
        folder_node.component_type = component->type;
        project_node.children.push_back(std::move(folder_node));
      }
      Node node;
      node.kind = NodeKind::kComponent;
      node.caption = component->name;
      node.component_type = component->type;
      node.unreadable = component->unreadable;
      node.children = component->members;
      project_node.children.back().children.push_back(std::move(node));
    }
    tree.push_back(std::move(project_node));
  }
  return tree;
}

namespace {

void AppendText(const Node& node, int depth, std::string& text) {
  text.append(std::size_t(depth) * 2, ' ');
  text += node.caption;
  if (node.unreadable) text += " " + std::string(UnreadableMark());
  if (node.kind == NodeKind::kFunction) text += " (Function)";
  if (node.kind == NodeKind::kProperty) text += " (Property)";
  if (node.kind == NodeKind::kEnum) text += " (Enum)";
  if (node.kind == NodeKind::kType) text += " (Type)";
  if (node.kind == NodeKind::kConstant) text += " (Const)";
  if (node.kind == NodeKind::kDeclare) text += " (Declare)";
  const bool child = node.kind == NodeKind::kAccessor || node.kind == NodeKind::kEnumMember ||
                     node.kind == NodeKind::kTypeMember;
  if (node.line > 0 && node.kind != NodeKind::kProperty) {
    if (!child) text += node.is_public ? " Public" : " Private";
    text += " :" + std::to_string(node.line);
  }
  text += '\n';
  for (const Node& child : node.children) AppendText(child, depth + 1, text);
}

}  // namespace

std::string_view UnreadableMark() { return resources::LoadResString(kUnreadableMarkText); }

std::string TreeAsText(const std::vector<Node>& tree) {
  std::string text;
  for (const Node& node : tree) AppendText(node, 0, text);
  return text;
}

}  // namespace tavrin::toolwindows
