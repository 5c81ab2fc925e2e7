// The IDE's extensibility object model, as far as the add-in uses it.
//
// The same interfaces are implemented over COM for the VB6 IDE and the VBA
// editor (win/) and in memory over exported source files (ide/memory/). Member
// names are the object model's own. Lines and columns are 1-based and columns
// count characters; all text is UTF-8.
//
// Like the real IDE, an implementation raises ide::Error when an operation
// fails (a line out of range, an unknown procedure, a host failure).
// Callers that run a step "with errors ignored" use IgnoreErrors (addin/).
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tavrin::ide {

class IVbe;
class IProject;
class IComponent;
class IComponents;
class ICodeModule;
class ICodePane;
class IWindow;
class IDesigner;
class IControl;
class IProperty;
class IAddIn;
class IUserDocument;
class IReferences;
class ICommandBars;  // ide/command_bars.h
class IEvents;       // ide/events.h
struct Picture;      // ide/command_bars.h

// A run-time error raised by the IDE. The number is the IDE's error number
// where it has one (5 invalid argument, 9 out of range, 35 unknown procedure).
class Error : public std::runtime_error {
 public:
  Error(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int number() const { return number_; }

 private:
  int number_;
};

// vbext_ProcKind.
enum class ProcKind { kProc = 0, kLet = 1, kSet = 2, kGet = 3 };

// vbext_WindowType (the values the add-in tests for).
enum class WindowType {
  kCodeWindow = 0,
  kDesigner = 1,
  kBrowser = 2,
  kWatch = 3,
  kLocals = 4,
  kImmediate = 5,
  kProjectWindow = 6,
  kPropertyWindow = 7,
  kFind = 8,
  kFindReplace = 9,
  kToolbox = 10,
  kLinkedWindowFrame = 11,
  kMainWindow = 12,
  kToolWindow = 15,
};

// vbext_ComponentType.
enum class ComponentType {
  kStdModule = 1,
  kClassModule = 2,
  kMSForm = 3,
  kResFile = 4,
  kVBForm = 5,
  kVBMDIForm = 6,
  kPropPage = 7,
  kUserControl = 8,
  kDocObject = 9,
  kRelatedDocument = 10,
  kActiveXDesigner = 11,
  kDocument = 100,
};

// A selection or a search range: start and end positions, start inclusive.
// A caret is a range whose start equals its end.
struct TextRange {
  int start_line = 1;
  int start_column = 1;
  int end_line = 1;
  int end_column = 1;

  bool IsCaret() const {
    return start_line == end_line && start_column == end_column;
  }
  friend bool operator==(const TextRange&, const TextRange&) = default;
};

struct FindOptions {
  bool whole_word = false;
  bool match_case = false;
  bool pattern_search = false;  // the Like operator's wildcards: * ? # [list]
};

// The procedure a line belongs to; an empty name for the declarations.
struct ProcRef {
  std::string name;
  ProcKind kind = ProcKind::kProc;
};

// A 1-based collection, by position or by name (case-insensitive).
template <class T>
class ICollection {
 public:
  virtual ~ICollection() = default;
  virtual int Count() = 0;
  // Raises ide::Error (9) for a position or a name that is not there.
  virtual std::shared_ptr<T> Item(int index) = 0;
  virtual std::shared_ptr<T> Item(std::string_view name) = 0;
};

class ICodeModule {
 public:
  virtual ~ICodeModule() = default;
  virtual std::shared_ptr<IComponent> Parent() = 0;
  // Lines from start_line on, joined by CR LF, no line break after the last.
  // Lines past the end of the module read as nothing.
  virtual std::string Lines(int start_line, int count) = 0;
  virtual int CountOfLines() = 0;
  virtual int CountOfDeclarationLines() = 0;
  // A text with line breaks becomes several lines; existing lines move down.
  virtual void InsertLines(int line, std::string_view text) = 0;
  // A replacement with line breaks becomes several lines.
  virtual void ReplaceLine(int line, std::string_view text) = 0;
  virtual void DeleteLines(int start_line, int count = 1) = 0;
  // Searches from the start of the range to its end (end_line -1 or
  // end_column -1: to the end); on a match the range becomes the match.
  virtual bool Find(std::string_view target, TextRange& range,
                    FindOptions options = {}) = 0;
  virtual ProcRef ProcOfLine(int line) = 0;
  virtual int ProcStartLine(std::string_view name, ProcKind kind) = 0;
  virtual int ProcBodyLine(std::string_view name, ProcKind kind) = 0;
  virtual int ProcCountLines(std::string_view name, ProcKind kind) = 0;
  virtual std::shared_ptr<ICodePane> CodePane() = 0;
};

class ICodePane {
 public:
  virtual ~ICodePane() = default;
  virtual TextRange GetSelection() = 0;
  virtual void SetSelection(const TextRange& selection) = 0;
  virtual std::shared_ptr<ICodeModule> CodeModule() = 0;
  virtual std::shared_ptr<IWindow> Window() = 0;
  // Makes this pane the active one.
  virtual void Show() = 0;
};

class IWindow {
 public:
  virtual ~IWindow() = default;
  virtual WindowType Type() = 0;
  virtual std::string Caption() = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual void SetFocus() = 0;
};

// The object a tool window hosts (a user document or control), as
// CreateToolWindow hands it back. Each add-in knows its own documents'
// interfaces and casts to them.
class IUserDocument {
 public:
  virtual ~IUserDocument() = default;
};

class IWindows : public ICollection<IWindow> {
 public:
  // Creates a dockable tool window hosting a new object of the registered
  // class `prog_id`, and hands that object back in `doc_object`. The IDE
  // remembers the window's place by `guid_position`. An unknown class raises
  // ide::Error.
  virtual std::shared_ptr<IWindow> CreateToolWindow(
      std::shared_ptr<IAddIn> add_in, std::string_view prog_id, std::string_view caption,
      std::string_view guid_position, std::shared_ptr<IUserDocument>& doc_object) = 0;
};

// An add-in registered with the IDE (VBE.Addins, and the AddInInst argument
// of a connection).
class IAddIn {
 public:
  virtual ~IAddIn() = default;
  virtual std::string ProgId() = 0;  // "Tavrin.Connect"
  virtual std::string Description() = 0;
  virtual std::string Guid() = 0;
  // True while the add-in is connected.
  virtual bool Connect() = 0;
  virtual void SetConnect(bool connect) = 0;
};

// VBE.Addins: the registered add-ins, by position or by ProgID.
class IAddins : public ICollection<IAddIn> {
 public:
  // Reads the list of registered add-ins again.
  virtual void Update() = 0;
};

class IProperty {
 public:
  virtual ~IProperty() = default;
  virtual std::string Name() = 0;
  // The value as text: strings unquoted, numbers and booleans as the IDE
  // converts them to text ("3", "-1").
  virtual std::string Value() = 0;
  virtual void SetValue(std::string_view value) = 0;
};

class IControl {
 public:
  virtual ~IControl() = default;
  virtual std::string ClassName() = 0;  // "CommandButton"
  virtual std::string ProgId() = 0;     // "VB.CommandButton"
  // Raises ide::Error for a property the control does not have.
  virtual std::shared_ptr<ICollection<IProperty>> Properties() = 0;
  // The name of the control it sits in (a frame, a picture box, a tabbed
  // container); empty on the form itself or when the host cannot tell.
  virtual std::string ContainerName() { return {}; }
};

// The form designer of a form, a user control or a property page.
class IDesigner {
 public:
  virtual ~IDesigner() = default;
  // Every control of the form, nested ones included, in the designer's order.
  virtual std::shared_ptr<ICollection<IControl>> VBControls() = 0;
  // VBControls.Add: a new control of that class ("VB.TextBox") on the form,
  // named as the IDE names them (Text1, Label1, ...).
  virtual std::shared_ptr<IControl> AddControl(std::string_view prog_id) = 0;
};

class IComponent {
 public:
  virtual ~IComponent() = default;
  virtual std::string Name() = 0;
  virtual ComponentType Type() = 0;
  virtual std::shared_ptr<ICodeModule> CodeModule() = 0;
  // Nothing (nullptr) for a component without a designer.
  virtual std::shared_ptr<IDesigner> Designer() = 0;
  virtual std::shared_ptr<IProject> Project() = 0;  // the owning project
  // Renames the component. A name that is not an identifier (or is a
  // keyword) raises ide::Error (380); another component's name raises 32813.
  virtual void SetName(std::string_view name) = 0;
  // Writes the component's source file to `path`.
  virtual void Export(std::string_view path) = 0;
};

// VBProject.VBComponents, which also adds, imports and removes components.
class IComponents : public ICollection<IComponent> {
 public:
  // A new empty component named as the IDE names them: Module1, Class1,
  // Form1, ... with the first number no component has.
  virtual std::shared_ptr<IComponent> Add(ComponentType type) = 0;
  virtual void Remove(IComponent& component) = 0;
  // Adds a .bas .cls .frm .ctl ... file under the name of its Attribute
  // VB_Name. A missing file raises ide::Error (53); a name already taken 32813.
  virtual std::shared_ptr<IComponent> Import(std::string_view path) = 0;
};

// vbext_RefKind.
enum class ReferenceKind { kTypeLib = 0, kProject = 1 };

// A library or project the project references (VBProject.References).
class IReference {
 public:
  virtual ~IReference() = default;
  virtual std::string Name() = 0;         // the library's name: "stdole"
  virtual std::string Description() = 0;  // "OLE Automation"
  virtual std::string Guid() = 0;         // "{00020430-...}"; empty for a project
  virtual int Major() = 0;
  virtual int Minor() = 0;
  virtual std::string FullPath() = 0;
  virtual ReferenceKind Type() = 0;
  // The IDE's own libraries (VBA, VB), which cannot be removed.
  virtual bool BuiltIn() = 0;
  // The library is not found where the reference says.
  virtual bool IsBroken() = 0;
};

// VBProject.References: the references, by position or by name, and the
// changes the References dialog makes.
class IReferences : public ICollection<IReference> {
 public:
  // A type library, executable or project file; a missing file raises
  // ide::Error (53 or 48), a library already referenced 32813.
  virtual std::shared_ptr<IReference> AddFromFile(std::string_view path) = 0;
  // A registered type library by GUID and version.
  virtual std::shared_ptr<IReference> AddFromGuid(std::string_view guid, int major,
                                                  int minor) = 0;
  // A built-in reference raises ide::Error.
  virtual void Remove(IReference& reference) = 0;
};

class IProject {
 public:
  virtual ~IProject() = default;
  virtual std::string Name() = 0;
  // The project file's full path; empty for a project never saved.
  virtual std::string FileName() = 0;
  virtual std::shared_ptr<IComponents> VBComponents() = 0;
  virtual std::shared_ptr<IReferences> References() = 0;
};

class IVbe {
 public:
  virtual ~IVbe() = default;
  virtual std::shared_ptr<ICollection<IProject>> VBProjects() = 0;
  virtual std::shared_ptr<IProject> ActiveVBProject() = 0;  // may be nullptr
  virtual std::shared_ptr<ICodePane> ActiveCodePane() = 0;  // may be nullptr
  virtual std::shared_ptr<IWindow> ActiveWindow() = 0;      // may be nullptr
  virtual std::shared_ptr<IWindows> Windows() = 0;
  virtual std::shared_ptr<ICommandBars> CommandBars() = 0;
  virtual std::shared_ptr<IEvents> Events() = 0;
  virtual std::shared_ptr<IAddins> Addins() = 0;
  // Types keystrokes into the window that has the focus, as the language's
  // SendKeys does: plain characters, and {BACKSPACE} (also {BS}, {BKSP}),
  // {DELETE} ({DEL}), {ENTER} (also ~), {LEFT}, {RIGHT}, {UP}, {DOWN},
  // {HOME}, {END}, {TAB}, and {{} {}} {~} {+} {^} {%} for those characters.
  virtual void SendKeys(std::string_view keys) = 0;
  // The language's DoEvents: lets the IDE process pending messages.
  virtual void DoEvents() = 0;
  // The language's Clipboard.SetData: puts a picture on the clipboard, where
  // a command-bar control's PasteFace takes it from.
  virtual void ClipboardSetData(const Picture& picture) = 0;
};

}  // namespace tavrin::ide
