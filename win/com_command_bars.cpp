// VBE.CommandBars over IDispatch: the Office command bars of the host (the
// Office 97 library in VB6, the host's own Office library in the VBA
// editor), all through names, as their vtables differ between versions.
#include <string>
#include <vector>

#include "win/bitmap_picture.h"
#include "win/com_ide_objects.h"

namespace tavrin::win {
namespace {

using ide::ICommandBar;
using ide::ICommandBarControl;
using ide::ICommandBarControls;

std::string GetString(const Dispatch& object, std::string_view name) {
  return VariantToString(*object.Get(name).get());
}
long GetLong(const Dispatch& object, std::string_view name) {
  return VariantToLong(*object.Get(name).get());
}
bool GetBool(const Dispatch& object, std::string_view name) {
  return VariantToBool(*object.Get(name).get());
}

template <class... Values>
std::vector<Variant> Args(Values... values) {
  std::vector<Variant> args;
  (args.push_back(std::move(values)), ...);
  return args;
}

Variant OptionalLong(std::optional<int> value) {
  return value ? Variant::Long(*value) : Variant::Missing();
}
Variant OptionalText(std::string_view text) {
  return text.empty() ? Variant::Missing() : Variant::String(text);
}

std::shared_ptr<ICommandBar> MakeBar(Dispatch bar);

class ComControls : public ICommandBarControls, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  int Count() override { return GetLong(object_, "Count"); }
  std::shared_ptr<ICommandBarControl> Item(int index) override {
    return Wrap(object_.CallObject("Item", Args(Variant::Long(index))));
  }
  std::shared_ptr<ICommandBarControl> Item(std::string_view name) override {
    return Wrap(object_.CallObject("Item", Args(Variant::String(name))));
  }
  std::shared_ptr<ICommandBarControl> Add(ide::ControlType type, int id,
                                          std::string_view parameter,
                                          std::optional<int> before, bool temporary) override {
    return Wrap(object_.CallObject(
        "Add", Args(Variant::Long(static_cast<long>(type)), Variant::Long(id),
                    OptionalText(parameter), OptionalLong(before), Variant::Bool(temporary))));
  }

 private:
  std::shared_ptr<ICommandBarControl> Wrap(ComPtr<IDispatch> control) {
    if (!control) throw ide::Error(9, "Subscript out of range");
    return MakeCommandBarControl(object_.Wrap(std::move(control), "CommandBarControl"));
  }
};

std::shared_ptr<ICommandBarControls> MakeControls(const Dispatch& owner) {
  return std::make_shared<ComControls>(owner.Wrap(owner.GetObject("Controls"), "CommandBarControls"));
}

class ComControl : public ICommandBarControl, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  ide::ControlType Type() override { return static_cast<ide::ControlType>(GetLong(object_, "Type")); }
  int Id() override { return GetLong(object_, "Id"); }
  int Index() override { return GetLong(object_, "Index"); }
  std::string Caption() override { return GetString(object_, "Caption"); }
  void SetCaption(std::string_view caption) override {
    object_.Put("Caption", Variant::String(caption));
  }
  bool BeginGroup() override { return GetBool(object_, "BeginGroup"); }
  void SetBeginGroup(bool value) override { object_.Put("BeginGroup", Variant::Bool(value)); }
  bool Enabled() override { return GetBool(object_, "Enabled"); }
  void SetEnabled(bool value) override { object_.Put("Enabled", Variant::Bool(value)); }
  bool Visible() override { return GetBool(object_, "Visible"); }
  void SetVisible(bool value) override { object_.Put("Visible", Variant::Bool(value)); }
  std::string TooltipText() override { return GetString(object_, "TooltipText"); }
  void SetTooltipText(std::string_view text) override {
    object_.Put("TooltipText", Variant::String(text));
  }
  std::string Tag() override { return GetString(object_, "Tag"); }
  void SetTag(std::string_view tag) override { object_.Put("Tag", Variant::String(tag)); }
  std::string Parameter() override { return GetString(object_, "Parameter"); }
  void SetParameter(std::string_view parameter) override {
    object_.Put("Parameter", Variant::String(parameter));
  }
  std::shared_ptr<ICommandBar> Parent() override {
    return MakeBar(object_.Wrap(object_.GetObject("Parent"), "CommandBar"));
  }
  void Delete() override { object_.Call("Delete"); }
  void Execute() override { object_.Call("Execute"); }

  ide::ButtonStyle Style() override {
    return static_cast<ide::ButtonStyle>(GetLong(object_, "Style"));
  }
  void SetStyle(ide::ButtonStyle style) override {
    object_.Put("Style", Variant::Long(static_cast<long>(style)));
  }
  int FaceId() override { return GetLong(object_, "FaceId"); }
  void SetFaceId(int face_id) override { object_.Put("FaceId", Variant::Long(face_id)); }
  void CopyFace() override { object_.Call("CopyFace"); }
  void PasteFace() override { object_.Call("PasteFace"); }
  ide::Picture GetPicture() override { return ReadPicture("Picture"); }
  void SetPicture(const ide::Picture& picture) override { WritePicture("Picture", picture); }
  ide::Picture GetMask() override { return ReadPicture("Mask"); }
  void SetMask(const ide::Picture& mask) override { WritePicture("Mask", mask); }

  std::shared_ptr<ICommandBarControls> Controls() override { return MakeControls(object_); }
  std::shared_ptr<ICommandBar> CommandBar() override {
    return MakeBar(object_.Wrap(object_.GetObject("CommandBar"), "CommandBar"));
  }

 private:
  // The command bars of the VB6 IDE and of Office 2000 have no Picture:
  // reading it fails there with 438, which callers take as "use PasteFace".
  ide::Picture ReadPicture(std::string_view member) {
    if (!HasMember(member)) {
      throw ide::Error(ide::kErrorNoSuchMember, "Object doesn't support this property or method");
    }
    const auto picture = VariantToObject(*object_.Get(member).get());
    ide::Picture result;
    if (picture) {
      if (auto disp = picture.As<IPictureDisp>()) result.bmp = BmpFromPicture(disp.get());
    }
    return result;
  }
  void WritePicture(std::string_view member, const ide::Picture& picture) {
    if (!HasMember(member)) {
      throw ide::Error(ide::kErrorNoSuchMember, "Object doesn't support this property or method");
    }
    const auto disp = PictureFromBmp(picture.bmp);
    if (!disp) throw ide::Error(481, "Invalid picture");
    object_.Put(member, Variant::Object(disp.get()));
  }
  // Members that differ between button kinds are looked up on the object
  // itself, not through the cache shared by all controls.
  bool HasMember(std::string_view member) {
    return object_.Wrap(ComPtr<IDispatch>(object_.get()), "CommandBarControl:" +
                                                              std::to_string(static_cast<int>(Type())))
        .Has(member);
  }
};

class ComBar : public ICommandBar, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::string Name() override { return GetString(object_, "Name"); }
  ide::BarPosition Position() override {
    return static_cast<ide::BarPosition>(GetLong(object_, "Position"));
  }
  void SetPosition(ide::BarPosition position) override {
    object_.Put("Position", Variant::Long(static_cast<long>(position)));
  }
  int RowIndex() override { return GetLong(object_, "RowIndex"); }
  void SetRowIndex(int row_index) override { object_.Put("RowIndex", Variant::Long(row_index)); }
  int Left() override { return GetLong(object_, "Left"); }
  void SetLeft(int left) override { object_.Put("Left", Variant::Long(left)); }
  int Top() override { return GetLong(object_, "Top"); }
  void SetTop(int top) override { object_.Put("Top", Variant::Long(top)); }
  bool Visible() override { return GetBool(object_, "Visible"); }
  void SetVisible(bool value) override { object_.Put("Visible", Variant::Bool(value)); }
  bool Enabled() override { return GetBool(object_, "Enabled"); }
  void SetEnabled(bool value) override { object_.Put("Enabled", Variant::Bool(value)); }
  std::shared_ptr<ICommandBarControls> Controls() override { return MakeControls(object_); }
  std::shared_ptr<ICommandBarControl> FindControl(std::optional<ide::ControlType> type,
                                                  std::optional<int> id, std::string_view tag,
                                                  bool recursive) override {
    const auto control = object_.CallObject(
        "FindControl",
        Args(type ? Variant::Long(static_cast<long>(*type)) : Variant::Missing(), OptionalLong(id),
             OptionalText(tag), Variant::Missing(), Variant::Bool(recursive)));
    if (!control) return nullptr;
    return MakeCommandBarControl(object_.Wrap(control, "CommandBarControl"));
  }
  void Delete() override { object_.Call("Delete"); }
  void ShowPopup(std::optional<int> x, std::optional<int> y) override {
    object_.Call("ShowPopup", Args(OptionalLong(x), OptionalLong(y)));
  }
};

class ComBars : public ide::ICommandBars, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  int Count() override { return GetLong(object_, "Count"); }
  std::shared_ptr<ICommandBar> Item(int index) override {
    return Wrap(object_.CallObject("Item", Args(Variant::Long(index))));
  }
  std::shared_ptr<ICommandBar> Item(std::string_view name) override {
    return Wrap(object_.CallObject("Item", Args(Variant::String(name))));
  }
  std::shared_ptr<ICommandBar> Add(std::string_view name, ide::BarPosition position,
                                   bool menu_bar, bool temporary) override {
    return Wrap(object_.CallObject(
        "Add", Args(Variant::String(name), Variant::Long(static_cast<long>(position)),
                    Variant::Bool(menu_bar), Variant::Bool(temporary))));
  }
  std::shared_ptr<ICommandBarControl> FindControl(std::optional<ide::ControlType> type,
                                                  std::optional<int> id,
                                                  std::string_view tag) override {
    const auto control = object_.CallObject(
        "FindControl",
        Args(type ? Variant::Long(static_cast<long>(*type)) : Variant::Missing(), OptionalLong(id),
             OptionalText(tag)));
    if (!control) return nullptr;
    return MakeCommandBarControl(object_.Wrap(control, "CommandBarControl"));
  }

 private:
  std::shared_ptr<ICommandBar> Wrap(ComPtr<IDispatch> bar) {
    if (!bar) throw ide::Error(9, "Subscript out of range");
    return MakeBar(object_.Wrap(std::move(bar), "CommandBar"));
  }
};

std::shared_ptr<ICommandBar> MakeBar(Dispatch bar) {
  if (!bar) throw ide::Error(91, "Object variable or With block variable not set");
  return std::make_shared<ComBar>(std::move(bar));
}

}  // namespace

std::shared_ptr<ide::ICommandBars> MakeCommandBars(Dispatch bars) {
  return std::make_shared<ComBars>(std::move(bars));
}

std::shared_ptr<ide::ICommandBarControl> MakeCommandBarControl(Dispatch control) {
  return std::make_shared<ComControl>(std::move(control));
}

}  // namespace tavrin::win
