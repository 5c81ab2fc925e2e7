#include "ide/memory/memory_command_bars.h"

#include <algorithm>

#include "ide/memory/memory_collection.h"

namespace tavrin::ide::memory {
namespace {

[[noreturn]] void NoSuchMember() {
  throw Error(kErrorNoSuchMember, "Object doesn't support this property or method");
}

[[noreturn]] void InvalidArgument() { throw Error(5, "Invalid procedure call or argument"); }

// The face of a built-in control: what CopyFace puts on the clipboard.
Picture BuiltInFace(int face_id) { return {"face " + std::to_string(face_id), ""}; }

// A live view of a bar's controls: Add shows at once in Count and Item.
class MemoryCommandBarControls : public ICommandBarControls {
 public:
  explicit MemoryCommandBarControls(std::shared_ptr<MemoryCommandBar> bar)
      : bar_(std::move(bar)) {}

  int Count() override { return static_cast<int>(bar_->ControlList().size()); }

  std::shared_ptr<ICommandBarControl> Item(int index) override {
    return ItemAt(bar_->ControlList(), index);
  }

  std::shared_ptr<ICommandBarControl> Item(std::string_view caption) override {
    return ItemNamed(bar_->ControlList(), caption,
                     [](ICommandBarControl& control) { return control.Caption(); });
  }

  std::shared_ptr<ICommandBarControl> Add(ControlType type, int id, std::string_view parameter,
                                          std::optional<int> before, bool) override {
    auto control = bar_->AddControl(type, id, before);
    control->SetParameter(parameter);
    return control;
  }

 private:
  std::shared_ptr<MemoryCommandBar> bar_;
};

bool Matches(MemoryCommandBarControl& control, std::optional<ControlType> type,
             std::optional<int> id, std::string_view tag) {
  return (!type || control.Type() == *type) && (!id || control.Id() == *id) &&
         (tag.empty() || control.Tag() == tag);
}

std::shared_ptr<MemoryCommandBarControl> FindIn(const MemoryCommandBar& bar,
                                                std::optional<ControlType> type,
                                                std::optional<int> id, std::string_view tag,
                                                bool recursive) {
  for (const auto& control : bar.ControlList()) {
    if (Matches(*control, type, id, tag)) return control;
    if (recursive && control->PopupBar()) {
      if (auto found = FindIn(*control->PopupBar(), type, id, tag, true)) return found;
    }
  }
  return nullptr;
}

}  // namespace

MemoryCommandBarControl::MemoryCommandBarControl(std::shared_ptr<CommandBarHost> host,
                                                 std::weak_ptr<MemoryCommandBar> parent,
                                                 ControlType type, int id)
    : host_(std::move(host)), parent_(std::move(parent)), type_(type), id_(id) {
  if (type_ == ControlType::kPopup)
    popup_bar_ = std::make_shared<MemoryCommandBar>(host_, "", BarPosition::kPopup, false);
  if (id_ != 1) face_id_ = id_;
}

int MemoryCommandBarControl::Index() {
  const auto parent = parent_.lock();
  if (!parent) return 0;
  const auto& list = parent->ControlList();
  const auto found = std::find_if(list.begin(), list.end(),
                                  [this](const auto& control) { return control.get() == this; });
  return found == list.end() ? 0 : static_cast<int>(found - list.begin()) + 1;
}

void MemoryCommandBarControl::SetCaption(std::string_view caption) {
  caption_ = caption;
}

std::shared_ptr<ICommandBar> MemoryCommandBarControl::Parent() { return parent_.lock(); }

void MemoryCommandBarControl::Delete() {
  if (auto parent = parent_.lock()) parent->RemoveControl(*this);
}

void MemoryCommandBarControl::Execute() {
  if (!enabled_ || !host_->click) return;
  host_->click(shared_from_this());
}

bool MemoryCommandBarControl::IsButtonLike() const {
  return type_ == ControlType::kButton || type_ == ControlType::kCustom ||
         type_ == ControlType::kDropdown;
}

void MemoryCommandBarControl::RequireButton() const {
  if (!IsButtonLike()) NoSuchMember();
}

void MemoryCommandBarControl::RequirePictureProperty() const {
  RequireButton();
  if (!host_->has_picture_property) NoSuchMember();
}

ButtonStyle MemoryCommandBarControl::Style() {
  RequireButton();
  return style_;
}

void MemoryCommandBarControl::SetStyle(ButtonStyle style) {
  RequireButton();
  style_ = style;
}

int MemoryCommandBarControl::FaceId() {
  RequireButton();
  return face_id_;
}

void MemoryCommandBarControl::SetFaceId(int face_id) {
  RequireButton();
  face_id_ = face_id;
  face_ = face_id == 0 ? Picture{} : BuiltInFace(face_id);
  mask_ = {};
}

void MemoryCommandBarControl::CopyFace() {
  RequireButton();
  if (face_.name.empty() && face_id_ == 0) throw Error(5, "The control has no face to copy");
  host_->clipboard = face_.name.empty() ? BuiltInFace(face_id_) : face_;
}

void MemoryCommandBarControl::PasteFace() {
  RequireButton();
  if (!host_->clipboard) throw Error(5, "The clipboard holds no picture");
  face_ = *host_->clipboard;
  mask_ = {};
}

Picture MemoryCommandBarControl::GetPicture() {
  RequirePictureProperty();
  return face_;
}

void MemoryCommandBarControl::SetPicture(const Picture& picture) {
  RequirePictureProperty();
  face_ = picture;
}

Picture MemoryCommandBarControl::GetMask() {
  RequirePictureProperty();
  return mask_;
}

void MemoryCommandBarControl::SetMask(const Picture& mask) {
  RequirePictureProperty();
  mask_ = mask;
}

std::shared_ptr<ICommandBarControls> MemoryCommandBarControl::Controls() {
  if (!popup_bar_) NoSuchMember();
  return popup_bar_->Controls();
}

std::shared_ptr<ICommandBar> MemoryCommandBarControl::CommandBar() {
  if (!popup_bar_) NoSuchMember();
  return popup_bar_;
}

MemoryCommandBar::MemoryCommandBar(std::shared_ptr<CommandBarHost> host, std::string name,
                                   BarPosition position, bool built_in)
    : host_(std::move(host)), name_(std::move(name)), position_(position), built_in_(built_in) {}

void MemoryCommandBar::SetPosition(BarPosition position) {
  const int value = static_cast<int>(position);
  if (position_ == BarPosition::kPopup || value < 0 || value > 4) InvalidArgument();
  position_ = position;
}

std::shared_ptr<ICommandBarControls> MemoryCommandBar::Controls() {
  return std::make_shared<MemoryCommandBarControls>(shared_from_this());
}

std::shared_ptr<ICommandBarControl> MemoryCommandBar::FindControl(std::optional<ControlType> type,
                                                                  std::optional<int> id,
                                                                  std::string_view tag,
                                                                  bool recursive) {
  return FindIn(*this, type, id, tag, recursive);
}

void MemoryCommandBar::Delete() {
  if (built_in_) InvalidArgument();
  deleted_ = true;
  controls_.clear();
  if (auto on_delete = std::move(on_delete_)) on_delete();
}

void MemoryCommandBar::ShowPopup(std::optional<int>, std::optional<int>) {
  if (position_ != BarPosition::kPopup || deleted_) InvalidArgument();
  ++popups_shown_;
}

std::shared_ptr<MemoryCommandBarControl> MemoryCommandBar::AddControl(ControlType type, int id,
                                                                      std::optional<int> before) {
  const int value = static_cast<int>(type);
  if (!(value >= 1 && value <= 4) && type != ControlType::kPopup) InvalidArgument();
  if (before && (*before < 1 || *before > static_cast<int>(controls_.size()) + 1))
    InvalidArgument();
  auto control = std::make_shared<MemoryCommandBarControl>(host_, weak_from_this(), type, id);
  const auto at = before ? controls_.begin() + (*before - 1) : controls_.end();
  controls_.insert(at, control);
  return control;
}

void MemoryCommandBar::RemoveControl(const MemoryCommandBarControl& control) {
  std::erase_if(controls_, [&](const auto& each) { return each.get() == &control; });
}

MemoryCommandBars::MemoryCommandBars(std::shared_ptr<CommandBarHost> host)
    : host_(std::move(host)) {}

std::shared_ptr<MemoryCommandBar> MemoryCommandBars::AddBar(std::string name,
                                                            BarPosition position,
                                                            bool built_in) {
  auto bar = std::make_shared<MemoryCommandBar>(host_, std::move(name), position, built_in);
  bar->SetOnDelete([weak_self = weak_from_this(), raw = bar.get()] {
    if (auto self = weak_self.lock())
      std::erase_if(self->bars_, [raw](const auto& each) { return each.get() == raw; });
  });
  bars_.push_back(bar);
  return bar;
}

void MemoryCommandBars::AddBuiltInBars() {
  struct BuiltIn {
    int id;
    const char* caption;
  };
  const auto add = [this](const char* name, BarPosition position, bool visible,
                          std::initializer_list<BuiltIn> controls) {
    auto bar = AddBar(name, position, true);
    bar->SetVisible(visible);
    for (const BuiltIn& each : controls)
      bar->AddControl(ControlType::kButton, each.id, std::nullopt)->SetCaption(each.caption);
  };
  add("Menu Bar", BarPosition::kTop, true, {});
  add("Standard", BarPosition::kTop, true, {{3, "&Save"}, {21, "Cu&t"}, {19, "&Copy"},
                                             {22, "&Paste"}, {141, "&Find..."}});
  add("Code Window", BarPosition::kPopup, false, {{21, "Cu&t"}, {19, "&Copy"}, {22, "&Paste"}});
}

std::shared_ptr<ICommandBar> MemoryCommandBars::Item(int index) { return ItemAt(bars_, index); }

std::shared_ptr<ICommandBar> MemoryCommandBars::Item(std::string_view name) {
  return ItemNamed(bars_, name, [](ICommandBar& bar) { return bar.Name(); }, 5);
}

std::shared_ptr<ICommandBar> MemoryCommandBars::Add(std::string_view name, BarPosition position,
                                                    bool, bool) {
  std::string bar_name(name);
  if (bar_name.empty()) bar_name = "Custom " + std::to_string(++custom_count_);
  for (const auto& bar : bars_)
    if (EqualsIgnoreCase(bar->Name(), bar_name)) InvalidArgument();  // names are unique
  return AddBar(std::move(bar_name), position, false);
}

std::shared_ptr<ICommandBarControl> MemoryCommandBars::FindControl(std::optional<ControlType> type,
                                                                   std::optional<int> id,
                                                                   std::string_view tag) {
  for (const auto& bar : bars_)
    if (auto found = FindIn(*bar, type, id, tag, true)) return found;
  return nullptr;
}

}  // namespace tavrin::ide::memory
