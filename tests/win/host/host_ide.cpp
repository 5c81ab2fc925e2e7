#include "tests/win/host/host_ide.h"

#include <string>
#include <utility>

#include "ide/memory/memory_designer.h"
#include "tests/win/host/host_command_bars.h"
#include "tests/win/host/host_tool_windows.h"

namespace tavrin::test_host {
namespace {

using namespace ide;

template <class T>
using Make = ComPtr<IDispatch> (*)(std::shared_ptr<T>);

ComPtr<IDispatch> MakeWindow(std::shared_ptr<IWindow> window);
ComPtr<IDispatch> MakeCodePane(std::shared_ptr<ICodePane> pane);
ComPtr<IDispatch> MakeCodeModule(std::shared_ptr<ICodeModule> module);
ComPtr<IDispatch> MakeComponent(std::shared_ptr<IComponent> component);
ComPtr<IDispatch> MakeProject(std::shared_ptr<IProject> project);

// An object or Nothing.
template <class T>
Variant ObjectOf(std::shared_ptr<T> object, Make<T> make) {
  if (!object) return Variant::Object(nullptr);
  return Variant::Object(make(std::move(object)).get());
}

// Count, Item(number or name), and Parent when the collection has one.
template <class T, class C>
ComPtr<IDispatch> MakeCollection(std::shared_ptr<C> items, Make<T> make,
                                 std::function<Variant()> parent = nullptr,
                                 std::vector<HostMember> more = {}) {
  std::vector<HostMember> members = {
      Property(L"Count", [items] { return Variant::Long(items->Count()); }),
      Method(L"Item", 1, 1,
             [items, make](HostCall& call) {
               if (call.IsString(0)) return ObjectOf<T>(items->Item(call.String(0)), make);
               return ObjectOf<T>(items->Item(static_cast<int>(call.Long(0))), make);
             }),
  };
  if (parent) members.push_back(Property(L"Parent", std::move(parent)));
  for (HostMember& member : more) members.push_back(std::move(member));
  return MakeHostObject(std::move(members));
}

// `handle` is what the window tells as its HWnd.
ComPtr<IDispatch> MakeWindowWithHandle(std::shared_ptr<IWindow> window, HWND handle) {
  return MakeHostObject({
      Property(L"HWnd",
               [handle] { return Variant::Long(static_cast<long>(reinterpret_cast<LONG_PTR>(handle))); }),
      Property(L"Type", [window] { return Variant::Long(static_cast<long>(window->Type())); }),
      Property(L"Caption", [window] { return Variant::String(window->Caption()); }),
      Property(
          L"Visible", [window] { return Variant::Bool(window->Visible()); },
          [window](const VARIANT& value) { window->SetVisible(win::VariantToBool(value)); }),
      Method(L"SetFocus", 0, 0,
             [window](HostCall&) {
               window->SetFocus();
               return Variant();
             }),
  });
}

ComPtr<IDispatch> MakeWindow(std::shared_ptr<IWindow> window) {
  return MakeWindowWithHandle(std::move(window), nullptr);
}

ComPtr<IDispatch> MakeCodePane(std::shared_ptr<ICodePane> pane) {
  return MakeHostObject({
      Method(L"GetSelection", 4, 4,
             [pane](HostCall& call) {
               const TextRange range = pane->GetSelection();
               call.LongRef(0) = range.start_line;
               call.LongRef(1) = range.start_column;
               call.LongRef(2) = range.end_line;
               call.LongRef(3) = range.end_column;
               return Variant();
             }),
      Method(L"SetSelection", 4, 4,
             [pane](HostCall& call) {
               pane->SetSelection({static_cast<int>(call.Long(0)), static_cast<int>(call.Long(1)),
                                   static_cast<int>(call.Long(2)),
                                   static_cast<int>(call.Long(3))});
               return Variant();
             }),
      Property(L"CodeModule", [pane] { return ObjectOf(pane->CodeModule(), &MakeCodeModule); }),
      Property(L"Window", [pane] { return ObjectOf(pane->Window(), &MakeWindow); }),
      Method(L"Show", 0, 0,
             [pane](HostCall&) {
               pane->Show();
               return Variant();
             }),
  });
}

ComPtr<IDispatch> MakeCodeModule(std::shared_ptr<ICodeModule> module) {
  auto proc_line = [module](int (ICodeModule::*member)(std::string_view, ProcKind)) {
    return [module, member](HostCall& call) {
      return Variant::Long(((*module).*member)(call.String(0),
                                               static_cast<ProcKind>(call.Long(1))));
    };
  };
  return MakeHostObject({
      Property(L"Parent", [module] { return ObjectOf(module->Parent(), &MakeComponent); }),
      PropertyWithArgs(L"Lines", 2, 2,
                       [module](HostCall& call) {
                         return Variant::String(module->Lines(
                             static_cast<int>(call.Long(0)), static_cast<int>(call.Long(1))));
                       }),
      Property(L"CountOfLines", [module] { return Variant::Long(module->CountOfLines()); }),
      Property(L"CountOfDeclarationLines",
               [module] { return Variant::Long(module->CountOfDeclarationLines()); }),
      Method(L"InsertLines", 2, 2,
             [module](HostCall& call) {
               module->InsertLines(static_cast<int>(call.Long(0)), call.String(1));
               return Variant();
             }),
      Method(L"ReplaceLine", 2, 2,
             [module](HostCall& call) {
               module->ReplaceLine(static_cast<int>(call.Long(0)), call.String(1));
               return Variant();
             }),
      Method(L"DeleteLines", 1, 2,
             [module](HostCall& call) {
               const long count = call.Missing(1) ? 1 : call.Long(1);
               module->DeleteLines(static_cast<int>(call.Long(0)), static_cast<int>(count));
               return Variant();
             }),
      Method(L"Find", 5, 8,
             [module](HostCall& call) {
               TextRange range{static_cast<int>(call.LongRef(1)),
                               static_cast<int>(call.LongRef(2)),
                               static_cast<int>(call.LongRef(3)),
                               static_cast<int>(call.LongRef(4))};
               FindOptions options{call.Bool(5, false), call.Bool(6, false),
                                   call.Bool(7, false)};
               const bool found = module->Find(call.String(0), range, options);
               if (found) {
                 call.LongRef(1) = range.start_line;
                 call.LongRef(2) = range.start_column;
                 call.LongRef(3) = range.end_line;
                 call.LongRef(4) = range.end_column;
               }
               return Variant::Bool(found);
             }),
      PropertyWithArgs(L"ProcOfLine", 2, 2,
                       [module](HostCall& call) {
                         long& kind = call.LongRef(1);
                         const ProcRef proc = module->ProcOfLine(static_cast<int>(call.Long(0)));
                         kind = static_cast<long>(proc.kind);
                         return Variant::String(proc.name);
                       }),
      PropertyWithArgs(L"ProcStartLine", 2, 2, proc_line(&ICodeModule::ProcStartLine)),
      PropertyWithArgs(L"ProcBodyLine", 2, 2, proc_line(&ICodeModule::ProcBodyLine)),
      PropertyWithArgs(L"ProcCountLines", 2, 2, proc_line(&ICodeModule::ProcCountLines)),
      Property(L"CodePane", [module] { return ObjectOf(module->CodePane(), &MakeCodePane); }),
  });
}

ComPtr<IDispatch> MakeProperty(std::shared_ptr<IProperty> property) {
  return MakeHostObject({
      Property(L"Name", [property] { return Variant::String(property->Name()); }),
      Property(
          L"Value", [property] { return Variant::String(property->Value()); },
          [property](const VARIANT& value) { property->SetValue(win::VariantToString(value)); }),
  });
}

ComPtr<IDispatch> MakeControl(std::shared_ptr<IControl> control) {
  return MakeHostObject({
      Property(L"ClassName", [control] { return Variant::String(control->ClassName()); }),
      Property(L"ProgId", [control] { return Variant::String(control->ProgId()); }),
      Property(L"Properties",
               [control] {
                 return Variant::Object(
                     MakeCollection<IProperty>(control->Properties(), &MakeProperty).get());
               }),
      Property(L"Container",
               [control] {
                 const auto memory = std::dynamic_pointer_cast<memory::MemoryControl>(control);
                 std::shared_ptr<IControl> container;
                 if (memory) container = memory->Container();
                 return ObjectOf(container, &MakeControl);
               }),
  }, control);
}

ComPtr<IDispatch> MakeDesigner(std::shared_ptr<IDesigner> designer) {
  return MakeHostObject({
      Property(L"VBControls",
               [designer] {
                 return Variant::Object(
                     MakeCollection<IControl>(
                         designer->VBControls(), &MakeControl, nullptr,
                         {Method(L"Add", 1, 3,
                                 [designer](HostCall& call) {
                                   return ObjectOf<IControl>(
                                       designer->AddControl(call.String(0)), &MakeControl);
                                 })})
                         .get());
               }),
  }, designer);
}

// Add, Remove and Import, which raise the model's component events.
ComPtr<IDispatch> MakeComponents(std::shared_ptr<IProject> project) {
  const auto components = project->VBComponents();
  return MakeCollection<IComponent>(
      components, &MakeComponent, [project] { return ObjectOf(project, &MakeProject); },
      {
          Method(L"Add", 1, 1,
                 [components](HostCall& call) {
                   return ObjectOf(components->Add(static_cast<ComponentType>(call.Long(0))),
                                   &MakeComponent);
                 }),
          Method(L"Remove", 1, 1,
                 [components](HostCall& call) {
                   const auto component =
                       std::static_pointer_cast<IComponent>(HostIdentity(call.Object(0).get()));
                   if (!component) throw HostFailure{DISP_E_TYPEMISMATCH};
                   components->Remove(*component);
                   return Variant();
                 }),
          Method(L"Import", 1, 1,
                 [components](HostCall& call) {
                   return ObjectOf(components->Import(call.String(0)), &MakeComponent);
                 }),
      });
}

ComPtr<IDispatch> MakeComponent(std::shared_ptr<IComponent> component) {
  return MakeHostObject({
      Property(
          L"Name", [component] { return Variant::String(component->Name()); },
          [component](const VARIANT& value) { component->SetName(win::VariantToString(value)); }),
      Property(L"Type",
               [component] { return Variant::Long(static_cast<long>(component->Type())); }),
      Property(L"CodeModule",
               [component] { return ObjectOf(component->CodeModule(), &MakeCodeModule); }),
      Property(L"Designer",
               [component] { return ObjectOf(component->Designer(), &MakeDesigner); }),
      Property(L"Collection",
               [component] {
                 return Variant::Object(MakeComponents(component->Project()).get());
               }),
      Method(L"Export", 1, 1,
             [component](HostCall& call) {
               component->Export(call.String(0));
               return Variant();
             }),
  }, component);
}

ComPtr<IDispatch> MakeReference(std::shared_ptr<IReference> reference) {
  return MakeHostObject({
      Property(L"Name", [reference] { return Variant::String(reference->Name()); }),
      Property(L"Description", [reference] { return Variant::String(reference->Description()); }),
      Property(L"Guid", [reference] { return Variant::String(reference->Guid()); }),
      Property(L"Major", [reference] { return Variant::Long(reference->Major()); }),
      Property(L"Minor", [reference] { return Variant::Long(reference->Minor()); }),
      Property(L"FullPath", [reference] { return Variant::String(reference->FullPath()); }),
      Property(L"Type",
               [reference] { return Variant::Long(static_cast<long>(reference->Type())); }),
      Property(L"BuiltIn", [reference] { return Variant::Bool(reference->BuiltIn()); }),
      Property(L"IsBroken", [reference] { return Variant::Bool(reference->IsBroken()); }),
  }, reference);
}

// References, with the methods of the References dialog.
ComPtr<IDispatch> MakeReferences(std::shared_ptr<IProject> project) {
  const auto references = project->References();
  return MakeCollection<IReference>(
      references, &MakeReference, [project] { return ObjectOf(project, &MakeProject); },
      {Method(L"AddFromFile", 1, 1,
              [references](HostCall& call) {
                return ObjectOf(references->AddFromFile(call.String(0)), &MakeReference);
              }),
       Method(L"AddFromGuid", 3, 3,
              [references](HostCall& call) {
                return ObjectOf(references->AddFromGuid(call.String(0),
                                                        static_cast<int>(call.Long(1)),
                                                        static_cast<int>(call.Long(2))),
                                &MakeReference);
              }),
       Method(L"Remove", 1, 1, [references](HostCall& call) {
         const auto identity = std::static_pointer_cast<IReference>(
             HostIdentity(call.Object(0).get()));
         if (!identity) throw ide::Error(13, "Type mismatch");
         references->Remove(*identity);
         return Variant();
       })});
}

ComPtr<IDispatch> MakeProject(std::shared_ptr<IProject> project) {
  return MakeHostObject({
      Property(L"References",
               [project] { return Variant::Object(MakeReferences(project).get()); }),
      Property(L"Name", [project] { return Variant::String(project->Name()); }),
      Property(L"FileName", [project] { return Variant::String(project->FileName()); }),
      Property(L"VBComponents",
               [project] { return Variant::Object(MakeComponents(project).get()); }),
  }, project);
}

}  // namespace

ComPtr<IDispatch> MakeHostProject(std::shared_ptr<ide::IProject> project) {
  return MakeProject(std::move(project));
}
ComPtr<IDispatch> MakeHostComponent(std::shared_ptr<ide::IComponent> component) {
  return MakeComponent(std::move(component));
}
ComPtr<IDispatch> MakeHostControl(std::shared_ptr<ide::IControl> control) {
  return MakeControl(std::move(control));
}

ComPtr<IDispatch> MakeHostVbe(std::shared_ptr<ide::memory::MemoryVbe> vbe, HWND main_window) {
  return MakeHostObject({
      Property(L"Version", [] { return Variant::String("6.00"); }),
      Property(L"VBProjects",
               [vbe] {
                 return Variant::Object(
                     MakeCollection<IProject>(vbe->VBProjects(), &MakeProject).get());
               }),
      Property(L"ActiveVBProject", [vbe] { return ObjectOf(vbe->ActiveVBProject(), &MakeProject); }),
      Property(L"ActiveCodePane", [vbe] { return ObjectOf(vbe->ActiveCodePane(), &MakeCodePane); }),
      Property(L"ActiveWindow", [vbe] { return ObjectOf(vbe->ActiveWindow(), &MakeWindow); }),
      Property(L"MainWindow",
               [vbe, main_window] { return Variant::Object(MakeWindowWithHandle(vbe->MainWindow(), main_window).get()); }),
      Property(L"Windows",
               [vbe] {
                 return Variant::Object(
                     MakeCollection<IWindow>(vbe->Windows(), &MakeWindow, nullptr,
                                             {CreateToolWindowMember()})
                         .get());
               }),
      Property(L"CommandBars", [vbe] { return Variant::Object(MakeHostCommandBars(vbe).get()); }),
      Property(L"Events", [vbe] { return Variant::Object(MakeHostEvents(vbe).get()); }),
      Property(L"Addins", [vbe] { return Variant::Object(MakeHostAddins(vbe).get()); }),
  });
}

}  // namespace tavrin::test_host
