#include "ide/memory/component_kind.h"

#include "base/text.h"
#include "ide/memory/designer_layout.h"

namespace tavrin::ide::memory {
namespace {

std::string_view Extension(std::string_view path) {
  const auto slash = path.find_last_of("/\\");
  const std::string_view file = slash == std::string_view::npos ? path : path.substr(slash + 1);
  const auto dot = file.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : file.substr(dot + 1);
}

std::string Quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

}  // namespace

ComponentType ComponentTypeOf(std::string_view path, const SourceFile& source) {
  const std::string extension = ToLowerAscii(Extension(path));
  const std::string root = RootProgId(source.header());
  if (extension == "bas") return ComponentType::kStdModule;
  if (extension == "cls") return ComponentType::kClassModule;
  if (extension == "ctl") return ComponentType::kUserControl;
  if (extension == "pag") return ComponentType::kPropPage;
  if (extension == "dob") return ComponentType::kDocObject;
  if (extension == "dsr") return ComponentType::kActiveXDesigner;
  if (extension == "frm" || !root.empty()) {
    return EqualsIgnoreCase(root, "VB.MDIForm") ? ComponentType::kVBMDIForm
                                                : ComponentType::kVBForm;
  }
  return ComponentType::kStdModule;
}

bool HasDesigner(ComponentType type) {
  switch (type) {
    case ComponentType::kVBForm:
    case ComponentType::kVBMDIForm:
    case ComponentType::kUserControl:
    case ComponentType::kPropPage:
    case ComponentType::kDocObject:
    case ComponentType::kActiveXDesigner:
    case ComponentType::kMSForm:
      return true;
    default:
      return false;
  }
}

std::string DesignerCaptionWord(ComponentType type) {
  switch (type) {
    case ComponentType::kVBMDIForm: return "MDIForm";
    case ComponentType::kUserControl: return "UserControl";
    case ComponentType::kPropPage: return "PropertyPage";
    case ComponentType::kDocObject: return "UserDocument";
    case ComponentType::kActiveXDesigner: return "Designer";
    case ComponentType::kMSForm: return "UserForm";
    default: return "Form";
  }
}

std::vector<std::string> NewComponentHeader(ComponentType type, std::string_view name) {
  std::vector<std::string> lines;
  const std::string vb_name = "Attribute VB_Name = " + Quoted(name);
  auto designer = [&](std::string_view version, std::string_view prog_id,
                      std::string_view object_name) {
    lines.push_back("VERSION " + std::string(version));
    lines.push_back("Begin " + std::string(prog_id) + " " + std::string(object_name));
    lines.push_back("   Caption         =   " + Quoted(name));
    lines.push_back("End");
  };
  switch (type) {
    case ComponentType::kStdModule:
      break;
    case ComponentType::kClassModule:
      lines = {"VERSION 1.0 CLASS", "BEGIN", "  MultiUse = -1  'True", "END"};
      break;
    case ComponentType::kVBMDIForm:
      designer("5.00", "VB.MDIForm", name);
      break;
    case ComponentType::kUserControl:
      designer("5.00", "VB.UserControl", name);
      break;
    case ComponentType::kPropPage:
      designer("5.00", "VB.PropertyPage", name);
      break;
    case ComponentType::kDocObject:
      designer("5.00", "VB.UserDocument", name);
      break;
    default:
      if (HasDesigner(type)) designer("5.00", "VB.Form", name);
      break;
  }
  lines.push_back(vb_name);
  if (type != ComponentType::kStdModule) {
    const bool creatable = type == ComponentType::kClassModule;
    lines.push_back("Attribute VB_GlobalNameSpace = False");
    lines.push_back(std::string("Attribute VB_Creatable = ") + (creatable ? "True" : "False"));
    lines.push_back("Attribute VB_PredeclaredId = " +
                    std::string(type == ComponentType::kClassModule ? "False" : "True"));
    lines.push_back("Attribute VB_Exposed = False");
  }
  return lines;
}

std::string FileStem(std::string_view path) {
  const auto slash = path.find_last_of("/\\");
  std::string_view file = slash == std::string_view::npos ? path : path.substr(slash + 1);
  const auto dot = file.rfind('.');
  if (dot != std::string_view::npos && dot > 0) file = file.substr(0, dot);
  return std::string(file);
}

}  // namespace tavrin::ide::memory
