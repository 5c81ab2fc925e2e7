// The add-in's three dockable tool windows (Tab order, Shortcuts and Search,
// Code Explorer): their classes, captions and position identifiers, the
// interfaces of their documents that the add-in talks to, and their
// creation through the IDE.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ide/object_model.h"

namespace tavrin::addin {

// The Code Explorer: a tree of the open projects and their components.
class ICodeExplorerDocument : public ide::IUserDocument {
 public:
  // Builds the tree from the IDE.
  virtual void Initialize(bool from_ide) = 0;
  // True once the tree has been built.
  virtual bool Initialized() = 0;
  // True once the user has opened the window.
  virtual bool OnceOpened() = 0;
  virtual void VBProjectAdd(std::shared_ptr<ide::IProject> project) = 0;
  virtual void VBProjectRemove(std::string_view project_name) = 0;
  virtual void VBComponentAdd(std::shared_ptr<ide::IComponent> component) = 0;
  virtual void VBComponentRemove(std::string_view project_name,
                                 std::string_view component_name) = 0;
};

// The Tab order window: the controls of the active form.
class ITabOrderDocument : public ide::IUserDocument {
 public:
  virtual void RefreshList(int flag) = 0;
  virtual void ControlAdded(std::shared_ptr<ide::IControl> control) = 0;
  virtual void ControlRenamed(std::shared_ptr<ide::IControl> control, std::string_view old_name,
                              int old_index) = 0;
  virtual void ControlRemoved(std::shared_ptr<ide::IControl> control) = 0;
};

struct ToolWindowClass {
  std::string_view class_word;  // "TabOrder"
  int caption_id;               // string resource of the caption
  // The IDE keeps the window's place under this; it must never change.
  std::string_view guid_position;
};

inline constexpr ToolWindowClass kTabOrderWindow{"TabOrder", 2010, "_T_A_B__O_R_D_E_R_"};
inline constexpr ToolWindowClass kDirectAccessWindow{"DirectAccess", 2012,
                                                     "DirectAccessTavrin"};
inline constexpr ToolWindowClass kCodeExplorerWindow{"CodeExplorer", 2013,
                                                     "CodeExplorerTavrin"};
inline constexpr ToolWindowClass kToolWindowClasses[] = {kTabOrderWindow, kDirectAccessWindow,
                                                         kCodeExplorerWindow};

// "Tavrin.doc" + the class word.
std::string ProgIdOf(const ToolWindowClass& window_class);

// The separate tab order add-in, which has a Tab order window of its own.
inline constexpr std::string_view kTabOrderAddInProgId = "TabOrder.Connect";

struct ToolWindow {
  std::shared_ptr<ide::IWindow> window;
  std::shared_ptr<ide::IUserDocument> document;
};

// Creates the window through VBInst.Windows.CreateToolWindow; a document of
// ours is attached to `vbe` (the add-in detaches it at disconnection).
ToolWindow CreateToolWindow(ide::IVbe& vbe, std::shared_ptr<ide::IAddIn> add_in,
                            const ToolWindowClass& window_class);

// The documents of the three classes (addin/tool_documents.h), for hosts
// without the windows of their own to register under ProgIdOf(class).
using DocumentFactory = std::function<std::shared_ptr<ide::IUserDocument>()>;
std::vector<std::pair<std::string, DocumentFactory>> ToolWindowDocumentClasses();

}  // namespace tavrin::addin
