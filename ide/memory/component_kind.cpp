#include "ide/memory/component_kind.h"

#include "base/text.h"
#include "ide/memory/designer_layout.h"

namespace tavrin::ide::memory {
namespace {

struct Kind {
  ComponentType type;
  std::string_view extension;  // empty: no file of its own
  std::string_view designer;   // the root object's class; empty: no designer
  std::string_view caption_word;
};

// VBMDIForm shares .frm with VBForm and is told apart by its root class.
constexpr Kind kKinds[] = {
    {ComponentType::kStdModule, "bas", "", ""},
    {ComponentType::kClassModule, "cls", "", ""},
    {ComponentType::kVBForm, "frm", "VB.Form", "Form"},
    {ComponentType::kVBMDIForm, "", "VB.MDIForm", "MDIForm"},
    {ComponentType::kUserControl, "ctl", "VB.UserControl", "UserControl"},
    {ComponentType::kPropPage, "pag", "VB.PropertyPage", "PropertyPage"},
    {ComponentType::kDocObject, "dob", "VB.UserDocument", "UserDocument"},
    {ComponentType::kActiveXDesigner, "dsr", "VB.Form", "Designer"},
    {ComponentType::kMSForm, "", "VB.Form", "UserForm"},
};

const Kind* KindOf(ComponentType type) {
  for (const Kind& kind : kKinds)
    if (kind.type == type) return &kind;
  return nullptr;
}

// The file's name without its folder.
std::string_view FileName(std::string_view path) {
  const auto slash = path.find_last_of("/\\");
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

const Kind* KindOfFile(std::string_view path) {
  const std::string_view file = FileName(path);
  const auto dot = file.rfind('.');
  if (dot == std::string_view::npos) return nullptr;
  for (const Kind& kind : kKinds)
    if (!kind.extension.empty() && EqualsIgnoreCase(file.substr(dot + 1), kind.extension))
      return &kind;
  return nullptr;
}

std::string Quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

}  // namespace

bool IsSourceFileName(std::string_view path) { return KindOfFile(path) != nullptr; }

ComponentType ComponentTypeOf(std::string_view path, const SourceFile& source) {
  const Kind* kind = KindOfFile(path);
  const std::string root = RootProgId(source.header());
  if (kind && kind->type != ComponentType::kVBForm) return kind->type;
  if (kind || !root.empty()) {
    return EqualsIgnoreCase(root, "VB.MDIForm") ? ComponentType::kVBMDIForm
                                                : ComponentType::kVBForm;
  }
  return ComponentType::kStdModule;
}

bool HasDesigner(ComponentType type) {
  const Kind* kind = KindOf(type);
  return kind && !kind->designer.empty();
}

std::string DesignerCaptionWord(ComponentType type) {
  const Kind* kind = KindOf(type);
  return kind && !kind->caption_word.empty() ? std::string(kind->caption_word) : "Form";
}

std::vector<std::string> NewComponentHeader(ComponentType type, std::string_view name) {
  std::vector<std::string> lines;
  if (type == ComponentType::kClassModule) {
    lines = {"VERSION 1.0 CLASS", "BEGIN", "  MultiUse = -1  'True", "END"};
  } else if (HasDesigner(type)) {
    lines = {"VERSION 5.00", "Begin " + std::string(KindOf(type)->designer) + " " + std::string(name),
             "   Caption         =   " + Quoted(name), "End"};
  }
  lines.push_back("Attribute VB_Name = " + Quoted(name));
  if (type != ComponentType::kStdModule) {
    const bool is_class = type == ComponentType::kClassModule;
    lines.push_back("Attribute VB_GlobalNameSpace = False");
    lines.push_back(std::string("Attribute VB_Creatable = ") + (is_class ? "True" : "False"));
    lines.push_back(std::string("Attribute VB_PredeclaredId = ") + (is_class ? "False" : "True"));
    lines.push_back("Attribute VB_Exposed = False");
  }
  return lines;
}

std::string NewComponentStem(ComponentType type) {
  switch (type) {
    case ComponentType::kStdModule: return "Module";
    case ComponentType::kClassModule: return "Class";
    default: return DesignerCaptionWord(type);
  }
}

bool IsValidComponentName(std::string_view name) {
  static constexpr std::string_view kKeywords[] = {
      "And", "As", "Boolean", "ByRef", "Byte", "ByVal", "Call", "Case", "Const", "Currency",
      "Date", "Declare", "Dim", "Do", "Double", "Each", "Else", "ElseIf", "End", "Enum",
      "Eqv", "Event", "Exit", "False", "For", "Function", "Get", "Global", "GoSub", "GoTo",
      "If", "Imp", "Implements", "In", "Integer", "Is", "Let", "Like", "Long", "Loop", "Me",
      "Mod", "New", "Next", "Not", "Nothing", "Object", "On", "Option", "Optional", "Or",
      "ParamArray", "Private", "Property", "Public", "RaiseEvent", "ReDim", "Resume",
      "Return", "Select", "Set", "Single", "Static", "Step", "Stop", "String", "Sub", "Then",
      "To", "True", "Type", "TypeOf", "Until", "Variant", "Wend", "While", "With", "WithEvents",
      "Xor"};
  if (name.empty() || name.size() > 40) return false;
  auto is_letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  if (!is_letter(name[0])) return false;
  for (char c : name)
    if (!is_letter(c) && !(c >= '0' && c <= '9') && c != '_') return false;
  for (std::string_view keyword : kKeywords)
    if (EqualsIgnoreCase(name, keyword)) return false;
  return true;
}

std::string FileStem(std::string_view path) {
  std::string_view file = FileName(path);
  const auto dot = file.rfind('.');
  if (dot != std::string_view::npos && dot > 0) file = file.substr(0, dot);
  return std::string(file);
}

}  // namespace tavrin::ide::memory
