#include "win/com_ide.h"

#include <string>
#include <utility>
#include <vector>

#include "addin/tool_windows.h"
#include "formtools/access_keys.h"
#include "ide/events.h"
#include "win/bitmap_picture.h"
#include "win/com_ide_objects.h"
#include "win/tool_window_control.h"

namespace tavrin::win {
namespace {

using ide::ICollection;

std::vector<Variant> Args(std::initializer_list<long> values) {
  std::vector<Variant> args;
  for (long value : values) args.push_back(Variant::Long(value));
  return args;
}

// A 1-based collection of the IDE (VBProjects, VBComponents, Windows,
// VBControls, Properties): Count, and Item by number or by name.
template <class T, class Base = ICollection<T>>
class ComCollection : public Base {
 public:
  using Make = std::function<std::shared_ptr<T>(Dispatch)>;
  ComCollection(Dispatch collection, std::string item_kind, Make make)
      : collection_(std::move(collection)), item_kind_(std::move(item_kind)),
        make_(std::move(make)) {}

  int Count() override { return VariantToLong(*collection_.Get("Count").get()); }
  std::shared_ptr<T> Item(int index) override {
    return Wrap(collection_.CallObject("Item", Args({index})));
  }
  std::shared_ptr<T> Item(std::string_view name) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(name));
    return Wrap(collection_.CallObject("Item", std::move(args)));
  }

 private:
  std::shared_ptr<T> Wrap(ComPtr<IDispatch> item) {
    if (!item) throw ide::Error(9, "Subscript out of range");
    return make_(collection_.Wrap(std::move(item), item_kind_));
  }

  Dispatch collection_;
  std::string item_kind_;
  Make make_;
};

std::string GetString(const Dispatch& object, std::string_view name) {
  return VariantToString(*object.Get(name).get());
}
long GetLong(const Dispatch& object, std::string_view name) {
  return VariantToLong(*object.Get(name).get());
}


// An object reached through a member, or nothing for Nothing.
template <class Make>
auto Child(const Dispatch& parent, std::string_view member, std::string kind, Make make)
    -> decltype(make(Dispatch())) {
  auto object = parent.GetObject(member);
  if (!object) return nullptr;
  return make(parent.Wrap(std::move(object), std::move(kind)));
}

class ComWindow : public ide::IWindow, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;
  ide::WindowType Type() override {
    return static_cast<ide::WindowType>(GetLong(object_, "Type"));
  }
  std::string Caption() override { return GetString(object_, "Caption"); }
  bool Visible() override { return VariantToBool(*object_.Get("Visible").get()); }
  void SetVisible(bool visible) override { object_.Put("Visible", Variant::Bool(visible)); }
  void SetFocus() override { object_.Call("SetFocus"); }
};

// A tool window whose document class is not registered: the add-in keeps
// running with the placeholder document of that class, in a window that
// only remembers whether it is to be shown.
class StandInWindow : public ide::IWindow {
 public:
  explicit StandInWindow(std::string caption) : caption_(std::move(caption)) {}
  ide::WindowType Type() override { return ide::WindowType::kToolWindow; }
  std::string Caption() override { return caption_; }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }
  void SetFocus() override {}

 private:
  std::string caption_;
  bool visible_ = false;
};

// The object a real tool window hosts, reached through IDispatch only.
class ComUserDocument : public ide::IUserDocument, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;
};

bool IsRegisteredClass(std::string_view prog_id) {
  CLSID clsid{};
  return SUCCEEDED(::CLSIDFromProgID(Utf8ToWide(prog_id).c_str(), &clsid));
}

class ComWindows : public ComCollection<ide::IWindow, ide::IWindows> {
 public:
  explicit ComWindows(Dispatch windows)
      : ComCollection(windows, "Window", MakeWindow), windows_(std::move(windows)) {}

  std::shared_ptr<ide::IWindow> CreateToolWindow(
      std::shared_ptr<ide::IAddIn> add_in, std::string_view prog_id, std::string_view caption,
      std::string_view guid_position, std::shared_ptr<ide::IUserDocument>& doc_object) override {
    if (!IsRegisteredClass(prog_id)) return StandIn(prog_id, caption, doc_object);
    IDispatch* document = nullptr;
    std::vector<Variant> args;
    args.push_back(Variant::Object(DispatchOf(add_in).get()));
    args.push_back(Variant::String(prog_id));
    args.push_back(Variant::String(caption));
    args.push_back(Variant::String(guid_position));
    args.push_back(Variant::ObjectRef(&document));
    auto window = windows_.CallObject("CreateToolWindow", std::move(args));
    // The by-reference argument came back holding a reference of ours.
    const auto owned = ComPtr<IDispatch>::Attach(document);
    doc_object = DocumentOf(owned);
    if (!window) throw ide::Error(91, "Object variable or With block variable not set");
    return MakeWindow(windows_.Wrap(std::move(window), "Window"));
  }

 private:
  // Our own controls hand back their C++ document; anything else is
  // reached through IDispatch.
  std::shared_ptr<ide::IUserDocument> DocumentOf(const ComPtr<IDispatch>& object) {
    if (!object) return nullptr;
    std::shared_ptr<ide::IUserDocument> document;
    if (const auto ours = object.As<ITavrinToolDocument>()) ours->GetDocument(&document);
    if (document) return document;
    return std::make_shared<ComUserDocument>(windows_.Wrap(object, "UserDocument"));
  }

  static std::shared_ptr<ide::IWindow> StandIn(std::string_view prog_id, std::string_view caption,
                                               std::shared_ptr<ide::IUserDocument>& doc_object) {
    doc_object = nullptr;
    for (const auto& [name, make] : addin::ToolWindowDocumentClasses()) {
      if (name == prog_id) doc_object = make();
    }
    if (!doc_object) throw ide::Error(429, "ActiveX component can't create object");
    return std::make_shared<StandInWindow>(std::string(caption));
  }

  Dispatch windows_;
};

class ComCodePane : public ide::ICodePane, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  ide::TextRange GetSelection() override {
    long start_line = 0, start_column = 0, end_line = 0, end_column = 0;
    std::vector<Variant> args;
    args.push_back(Variant::LongRef(&start_line));
    args.push_back(Variant::LongRef(&start_column));
    args.push_back(Variant::LongRef(&end_line));
    args.push_back(Variant::LongRef(&end_column));
    object_.Call("GetSelection", std::move(args));
    return {static_cast<int>(start_line), static_cast<int>(start_column),
            static_cast<int>(end_line), static_cast<int>(end_column)};
  }
  void SetSelection(const ide::TextRange& range) override {
    object_.Call("SetSelection", Args({range.start_line, range.start_column, range.end_line,
                                     range.end_column}));
  }
  std::shared_ptr<ide::ICodeModule> CodeModule() override {
    return Child(object_, "CodeModule", "CodeModule", MakeCodeModule);
  }
  std::shared_ptr<ide::IWindow> Window() override {
    return Child(object_, "Window", "Window", MakeWindow);
  }
  void Show() override { object_.Call("Show"); }
};

class ComCodeModule : public ide::ICodeModule, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::shared_ptr<ide::IComponent> Parent() override {
    return Child(object_, "Parent", "VBComponent", MakeComponent);
  }
  std::string Lines(int start_line, int count) override {
    return VariantToString(*object_.Get("Lines", Args({start_line, count})).get());
  }
  int CountOfLines() override { return GetLong(object_, "CountOfLines"); }
  int CountOfDeclarationLines() override {
    return GetLong(object_, "CountOfDeclarationLines");
  }
  void InsertLines(int line, std::string_view text) override {
    object_.Call("InsertLines", LineAndText(line, text));
  }
  void ReplaceLine(int line, std::string_view text) override {
    object_.Call("ReplaceLine", LineAndText(line, text));
  }
  void DeleteLines(int start_line, int count) override {
    object_.Call("DeleteLines", Args({start_line, count}));
  }
  bool Find(std::string_view target, ide::TextRange& range,
            ide::FindOptions options) override {
    long start_line = range.start_line, start_column = range.start_column;
    long end_line = range.end_line, end_column = range.end_column;
    std::vector<Variant> args;
    args.push_back(Variant::String(target));
    args.push_back(Variant::LongRef(&start_line));
    args.push_back(Variant::LongRef(&start_column));
    args.push_back(Variant::LongRef(&end_line));
    args.push_back(Variant::LongRef(&end_column));
    args.push_back(Variant::Bool(options.whole_word));
    args.push_back(Variant::Bool(options.match_case));
    args.push_back(Variant::Bool(options.pattern_search));
    const bool found = VariantToBool(*object_.Call("Find", std::move(args)).get());
    if (found) {
      range = {static_cast<int>(start_line), static_cast<int>(start_column),
               static_cast<int>(end_line), static_cast<int>(end_column)};
    }
    return found;
  }
  ide::ProcRef ProcOfLine(int line) override {
    long kind = 0;
    std::vector<Variant> args;
    args.push_back(Variant::Long(line));
    args.push_back(Variant::LongRef(&kind));
    ide::ProcRef proc;
    proc.name = VariantToString(*object_.Get("ProcOfLine", std::move(args)).get());
    proc.kind = static_cast<ide::ProcKind>(kind);
    return proc;
  }
  int ProcStartLine(std::string_view name, ide::ProcKind kind) override {
    return ProcLine("ProcStartLine", name, kind);
  }
  int ProcBodyLine(std::string_view name, ide::ProcKind kind) override {
    return ProcLine("ProcBodyLine", name, kind);
  }
  int ProcCountLines(std::string_view name, ide::ProcKind kind) override {
    return ProcLine("ProcCountLines", name, kind);
  }
  std::shared_ptr<ide::ICodePane> CodePane() override {
    return Child(object_, "CodePane", "CodePane", MakeCodePane);
  }

 private:
  static std::vector<Variant> LineAndText(int line, std::string_view text) {
    std::vector<Variant> args;
    args.push_back(Variant::Long(line));
    args.push_back(Variant::String(text));
    return args;
  }
  int ProcLine(std::string_view member, std::string_view name, ide::ProcKind kind) {
    std::vector<Variant> args;
    args.push_back(Variant::String(name));
    args.push_back(Variant::Long(static_cast<long>(kind)));
    return VariantToLong(*object_.Get(member, std::move(args)).get());
  }
};

// A property of a VB6 designer control (Properties("Caption")).
class ComProperty : public ide::IProperty, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;
  std::string Name() override { return GetString(object_, "Name"); }
  std::string Value() override { return GetString(object_, "Value"); }
  void SetValue(std::string_view value) override {
    object_.Put("Value", Variant::String(value));
  }
};

// A property of a VBA UserForm control, which is an ordinary member of the
// control itself: VBA has no Properties layer.
class ComMemberProperty : public ide::IProperty {
 public:
  ComMemberProperty(Dispatch control, std::string name)
      : control_(std::move(control)), name_(std::move(name)) {}
  std::string Name() override { return name_; }
  std::string Value() override { return GetString(control_, name_); }
  void SetValue(std::string_view value) override {
    control_.Put(name_, Variant::String(value));
  }

 private:
  Dispatch control_;
  std::string name_;
};

// The members of a UserForm control reached by name only; VBA offers no
// list of them without a type library.
class ComMemberProperties : public ICollection<ide::IProperty> {
 public:
  explicit ComMemberProperties(Dispatch control) : control_(std::move(control)) {}
  int Count() override { return 0; }
  std::shared_ptr<ide::IProperty> Item(int) override {
    throw ide::Error(9, "Subscript out of range");
  }
  std::shared_ptr<ide::IProperty> Item(std::string_view name) override {
    if (!control_.Has(name)) throw ide::Error(9, "Subscript out of range");
    return std::make_shared<ComMemberProperty>(control_, std::string(name));
  }

 private:
  Dispatch control_;
};

class ComControl : public ide::IControl, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::string ClassName() override {
    if (object_.Has("ClassName")) return GetString(object_, "ClassName");
    return TypeName();
  }
  std::string ProgId() override {
    if (object_.Has("ProgId")) return GetString(object_, "ProgId");
    return "Forms." + TypeName() + ".1";
  }
  std::shared_ptr<ICollection<ide::IProperty>> Properties() override {
    if (!object_.Has("Properties")) return std::make_shared<ComMemberProperties>(object_);
    return std::make_shared<ComCollection<ide::IProperty>>(
        object_.Wrap(object_.GetObject("Properties"), "Properties"), "Property",
        [](Dispatch property) { return std::make_shared<ComProperty>(std::move(property)); });
  }
  // VB6's VBControl.Container (an MSForms control's Parent), named as the
  // designer names its controls. The form, Nothing or a failure: no
  // container, so the control counts as the form's.
  std::string ContainerName() override {
    try {
      const char* member = object_.Has("Container") ? "Container"
                           : object_.Has("Parent")  ? "Parent"
                                                    : nullptr;
      if (!member) return {};
      auto container = object_.GetObject(member);
      if (!container) return {};
      ComControl wrapped(object_.Wrap(std::move(container), "VBControl"));
      return formtools::ControlDisplayName(wrapped);
    } catch (const ide::Error&) {
      return {};
    }
  }

 private:
  // The class name from the control's type information ("CommandButton").
  std::string TypeName() {
    ComPtr<ITypeInfo> info;
    Bstr name;
    if (FAILED(object_.get()->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info ||
        FAILED(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr))) {
      return {};
    }
    return name.ToUtf8();
  }
};

class ComDesigner : public ide::IDesigner, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::shared_ptr<ICollection<ide::IControl>> VBControls() override {
    // VB6's VBForm has VBControls; a VBA UserForm designer has Controls.
    const char* member = object_.Has("VBControls") ? "VBControls" : "Controls";
    return std::make_shared<ComCollection<ide::IControl>>(
        object_.Wrap(object_.GetObject(member), member), "VBControl", MakeControl);
  }
  std::shared_ptr<ide::IControl> AddControl(std::string_view prog_id) override {
    const char* member = object_.Has("VBControls") ? "VBControls" : "Controls";
    const Dispatch controls = object_.Wrap(object_.GetObject(member), member);
    std::vector<Variant> args;
    args.push_back(Variant::String(prog_id));
    return MakeControl(controls.Wrap(controls.CallObject("Add", std::move(args)), "VBControl"));
  }
};

class ComComponent : public ide::IComponent, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::string Name() override { return GetString(object_, "Name"); }
  ide::ComponentType Type() override {
    return static_cast<ide::ComponentType>(GetLong(object_, "Type"));
  }
  std::shared_ptr<ide::ICodeModule> CodeModule() override {
    return Child(object_, "CodeModule", "CodeModule", MakeCodeModule);
  }
  std::shared_ptr<ide::IDesigner> Designer() override {
    return Child(object_, "Designer", "Designer", [](Dispatch designer) {
      return std::make_shared<ComDesigner>(std::move(designer));
    });
  }
  std::shared_ptr<ide::IProject> Project() override {
    // The component's collection (VBComponents) belongs to the project.
    const Dispatch components =
        object_.Wrap(object_.GetObject("Collection"), "VBComponents");
    return Child(components, "Parent", "VBProject", MakeProject);
  }
  void SetName(std::string_view name) override { object_.Put("Name", Variant::String(name)); }
  void Export(std::string_view path) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(path));
    object_.Call("Export", std::move(args));
  }
};

// VBComponents: the collection, and Add, Remove and Import on it.
class ComComponents : public ComCollection<ide::IComponent, ide::IComponents> {
 public:
  explicit ComComponents(Dispatch components)
      : ComCollection(components, "VBComponent", MakeComponent),
        components_(std::move(components)) {}

  std::shared_ptr<ide::IComponent> Add(ide::ComponentType type) override {
    return Made(components_.CallObject("Add", Args({static_cast<int>(type)})));
  }
  void Remove(ide::IComponent& component) override {
    const auto* wrapper = dynamic_cast<const ComWrapper*>(&component);
    if (!wrapper) throw ide::Error(13, "Type mismatch");
    std::vector<Variant> args;
    args.push_back(Variant::Object(wrapper->Object().get()));
    components_.Call("Remove", std::move(args));
  }
  std::shared_ptr<ide::IComponent> Import(std::string_view path) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(path));
    return Made(components_.CallObject("Import", std::move(args)));
  }

 private:
  std::shared_ptr<ide::IComponent> Made(ComPtr<IDispatch> component) {
    if (!component) return nullptr;
    return MakeComponent(components_.Wrap(std::move(component), "VBComponent"));
  }

  Dispatch components_;
};

class ComProject : public ide::IProject, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::string Name() override { return GetString(object_, "Name"); }
  std::string FileName() override { return GetString(object_, "FileName"); }
  std::shared_ptr<ide::IComponents> VBComponents() override {
    return std::make_shared<ComComponents>(
        object_.Wrap(object_.GetObject("VBComponents"), "VBComponents"));
  }
  std::shared_ptr<ide::IReferences> References() override {
    return MakeReferences(object_.Wrap(object_.GetObject("References"), "References"));
  }
};

class ComVbe : public ide::IVbe {
 public:
  ComVbe(Dispatch vbe, KeyTyper type_keys)
      : vbe_(std::move(vbe)), type_keys_(std::move(type_keys)) {}

  std::shared_ptr<ICollection<ide::IProject>> VBProjects() override {
    return std::make_shared<ComCollection<ide::IProject>>(
        vbe_.Wrap(vbe_.GetObject("VBProjects"), "VBProjects"), "VBProject", MakeProject);
  }
  std::shared_ptr<ide::IProject> ActiveVBProject() override {
    return Child(vbe_, "ActiveVBProject", "VBProject", MakeProject);
  }
  std::shared_ptr<ide::ICodePane> ActiveCodePane() override {
    return Child(vbe_, "ActiveCodePane", "CodePane", MakeCodePane);
  }
  std::shared_ptr<ide::IWindow> ActiveWindow() override {
    return Child(vbe_, "ActiveWindow", "Window", MakeWindow);
  }
  std::shared_ptr<ide::IWindows> Windows() override {
    return std::make_shared<ComWindows>(vbe_.Wrap(vbe_.GetObject("Windows"), "Windows"));
  }
  void SendKeys(std::string_view keys) override {
    if (type_keys_) type_keys_(keys);
  }
  std::shared_ptr<ide::ICommandBars> CommandBars() override {
    return MakeCommandBars(vbe_.Wrap(vbe_.GetObject("CommandBars"), "CommandBars"));
  }
  std::shared_ptr<ide::IEvents> Events() override {
    return MakeEvents(vbe_.Wrap(vbe_.GetObject("Events"), "Events"));
  }
  std::shared_ptr<ide::IAddins> Addins() override {
    return MakeAddins(vbe_.Wrap(vbe_.GetObject("Addins"), "Addins"));
  }
  void DoEvents() override {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
  }
  void ClipboardSetData(const ide::Picture& picture) override {
    if (!SetClipboardBitmap(picture.bmp)) throw ide::Error(521, "Can't open Clipboard");
  }

 private:
  Dispatch vbe_;
  KeyTyper type_keys_;
};

class ComAddIn : public ide::IAddIn, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;
  std::string ProgId() override { return GetString(object_, "ProgId"); }
  std::string Description() override { return GetString(object_, "Description"); }
  std::string Guid() override { return GetString(object_, "Guid"); }
  bool Connect() override { return VariantToBool(*object_.Get("Connect").get()); }
  void SetConnect(bool connect) override { object_.Put("Connect", Variant::Bool(connect)); }
};

class ComAddins : public ComCollection<ide::IAddIn, ide::IAddins> {
 public:
  explicit ComAddins(Dispatch add_ins)
      : ComCollection(add_ins, "AddIn", MakeAddIn), add_ins_(std::move(add_ins)) {}
  void Update() override { add_ins_.Call("Update"); }

 private:
  Dispatch add_ins_;
};

}  // namespace

std::shared_ptr<ide::IWindow> MakeWindow(Dispatch window) {
  return std::make_shared<ComWindow>(std::move(window));
}
std::shared_ptr<ide::ICodePane> MakeCodePane(Dispatch pane) {
  return std::make_shared<ComCodePane>(std::move(pane));
}
std::shared_ptr<ide::ICodeModule> MakeCodeModule(Dispatch module) {
  return std::make_shared<ComCodeModule>(std::move(module));
}
std::shared_ptr<ide::IComponent> MakeComponent(Dispatch component) {
  return std::make_shared<ComComponent>(std::move(component));
}
std::shared_ptr<ide::IProject> MakeProject(Dispatch project) {
  return std::make_shared<ComProject>(std::move(project));
}
std::shared_ptr<ide::IControl> MakeControl(Dispatch control) {
  return std::make_shared<ComControl>(std::move(control));
}
std::shared_ptr<ide::IAddins> MakeAddins(Dispatch add_ins) {
  return std::make_shared<ComAddins>(std::move(add_ins));
}
std::shared_ptr<ide::IAddIn> MakeAddIn(Dispatch add_in) {
  return std::make_shared<ComAddIn>(std::move(add_in));
}

std::shared_ptr<ide::IAddIn> MakeComAddIn(ComPtr<IDispatch> add_in) {
  return MakeAddIn(Dispatch(std::move(add_in), std::make_shared<DispIdCache>(), "AddIn"));
}

HWND MainWindowHandle(const ComPtr<IDispatch>& vbe) noexcept {
  try {
    const Dispatch root(vbe, std::make_shared<DispIdCache>(), "VBE");
    const Dispatch window = root.Wrap(root.GetObject("MainWindow"), "Window");
    // Window handles keep 32 significant bits on 64-bit Windows too.
    return reinterpret_cast<HWND>(
        static_cast<LONG_PTR>(VariantToLong(*window.Get("HWnd").get())));
  } catch (...) {
    return nullptr;  // dialogs without an owner still work
  }
}

std::shared_ptr<ide::IVbe> MakeComVbe(ComPtr<IDispatch> vbe, KeyTyper type_keys) {
  return std::make_shared<ComVbe>(
      Dispatch(std::move(vbe), std::make_shared<DispIdCache>(), "VBE"), std::move(type_keys));
}

}  // namespace tavrin::win
