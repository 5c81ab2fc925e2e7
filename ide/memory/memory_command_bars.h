// The command bars of the in-memory IDE: the IDE's own bars ("Menu Bar",
// "Standard", the "Code Window" context menu) and the ones add-ins create,
// with controls that keep every property a caller sets, faces through a
// clipboard, and clicks that fire the IDE's CommandBarEvents.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ide/command_bars.h"

namespace tavrin::ide::memory {

class MemoryCommandBar;
class MemoryCommandBarControl;

// What the bars share with the rest of the IDE: the clipboard that faces go
// through, whether controls have a Picture property (the command bars of the
// VB6 IDE have none), and where clicks go.
struct CommandBarHost {
  std::optional<Picture> clipboard;
  bool has_picture_property = true;
  std::function<void(const std::shared_ptr<ICommandBarControl>&)> click;
};

class MemoryCommandBarControl : public ICommandBarControl,
                                public std::enable_shared_from_this<MemoryCommandBarControl> {
 public:
  MemoryCommandBarControl(std::shared_ptr<CommandBarHost> host,
                          std::weak_ptr<MemoryCommandBar> parent, ControlType type, int id);

  ControlType Type() override { return type_; }
  int Id() override { return id_; }
  int Index() override;
  std::string Caption() override { return caption_; }
  void SetCaption(std::string_view caption) override;
  bool BeginGroup() override { return begin_group_; }
  void SetBeginGroup(bool begin_group) override { begin_group_ = begin_group; }
  bool Enabled() override { return enabled_; }
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }
  std::string TooltipText() override { return tooltip_text_; }
  void SetTooltipText(std::string_view text) override { tooltip_text_ = text; }
  std::string Tag() override { return tag_; }
  void SetTag(std::string_view tag) override { tag_ = tag; }
  std::string Parameter() override { return parameter_; }
  void SetParameter(std::string_view parameter) override { parameter_ = parameter; }
  std::shared_ptr<ICommandBar> Parent() override;
  void Delete() override;
  // A disabled control does not run.
  void Execute() override;

  ButtonStyle Style() override;
  void SetStyle(ButtonStyle style) override;
  int FaceId() override;
  void SetFaceId(int face_id) override;
  void CopyFace() override;
  void PasteFace() override;
  Picture GetPicture() override;
  void SetPicture(const Picture& picture) override;
  Picture GetMask() override;
  void SetMask(const Picture& mask) override;

  std::shared_ptr<ICommandBarControls> Controls() override;
  std::shared_ptr<ICommandBar> CommandBar() override;

  // The face shown, however it was set (Picture, PasteFace, FaceId); empty
  // for none.
  const Picture& Face() const { return face_; }
  const Picture& FaceMask() const { return mask_; }
  // The entries of a pop-up; nullptr for other controls.
  std::shared_ptr<MemoryCommandBar> PopupBar() const { return popup_bar_; }

 private:
  bool IsButtonLike() const;
  void RequireButton() const;
  void RequirePictureProperty() const;

  std::shared_ptr<CommandBarHost> host_;
  std::weak_ptr<MemoryCommandBar> parent_;
  ControlType type_;
  int id_;
  std::string caption_;
  bool begin_group_ = false;
  bool enabled_ = true;
  bool visible_ = true;
  std::string tooltip_text_;
  std::string tag_;
  std::string parameter_;
  ButtonStyle style_ = ButtonStyle::kAutomatic;
  int face_id_ = 0;
  Picture face_;
  Picture mask_;
  std::shared_ptr<MemoryCommandBar> popup_bar_;
};

class MemoryCommandBar : public ICommandBar, public std::enable_shared_from_this<MemoryCommandBar> {
 public:
  MemoryCommandBar(std::shared_ptr<CommandBarHost> host, std::string name,
                   BarPosition position, bool built_in);

  std::string Name() override { return name_; }
  BarPosition Position() override { return position_; }
  void SetPosition(BarPosition position) override;
  int RowIndex() override { return row_index_; }
  void SetRowIndex(int row_index) override { row_index_ = row_index; }
  int Left() override { return left_; }
  void SetLeft(int left) override { left_ = left; }
  int Top() override { return top_; }
  void SetTop(int top) override { top_ = top; }
  bool Visible() override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }
  bool Enabled() override { return enabled_; }
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  std::shared_ptr<ICommandBarControls> Controls() override;
  std::shared_ptr<ICommandBarControl> FindControl(std::optional<ControlType> type,
                                                  std::optional<int> id, std::string_view tag,
                                                  bool recursive) override;
  // A built-in bar cannot be deleted (error 5).
  void Delete() override;
  // Counts the showings; a test then clicks an entry with Execute.
  void ShowPopup(std::optional<int> x, std::optional<int> y) override;
  int PopupsShown() const { return popups_shown_; }

  std::shared_ptr<MemoryCommandBarControl> AddControl(ControlType type, int id,
                                                      std::optional<int> before);
  void RemoveControl(const MemoryCommandBarControl& control);
  const std::vector<std::shared_ptr<MemoryCommandBarControl>>& ControlList() const {
    return controls_;
  }
  bool Deleted() const { return deleted_; }
  // The bar that lists this one, for a bar that is not a pop-up's.
  void SetOnDelete(std::function<void()> on_delete) { on_delete_ = std::move(on_delete); }

 private:
  std::shared_ptr<CommandBarHost> host_;
  std::string name_;
  BarPosition position_;
  bool built_in_;
  int row_index_ = 0;
  int left_ = 0;
  int top_ = 0;
  bool visible_ = false;
  bool enabled_ = true;
  bool deleted_ = false;
  int popups_shown_ = 0;
  std::vector<std::shared_ptr<MemoryCommandBarControl>> controls_;
  std::function<void()> on_delete_;
};

class MemoryCommandBars : public ICommandBars,
                          public std::enable_shared_from_this<MemoryCommandBars> {
 public:
  explicit MemoryCommandBars(std::shared_ptr<CommandBarHost> host);
  // Adds the IDE's own bars.
  void AddBuiltInBars();

  int Count() override { return static_cast<int>(bars_.size()); }
  std::shared_ptr<ICommandBar> Item(int index) override;
  std::shared_ptr<ICommandBar> Item(std::string_view name) override;
  std::shared_ptr<ICommandBar> Add(std::string_view name, BarPosition position, bool menu_bar,
                                   bool temporary) override;
  std::shared_ptr<ICommandBarControl> FindControl(std::optional<ControlType> type,
                                                  std::optional<int> id,
                                                  std::string_view tag) override;

  const std::vector<std::shared_ptr<MemoryCommandBar>>& Bars() const { return bars_; }

 private:
  std::shared_ptr<MemoryCommandBar> AddBar(std::string name, BarPosition position,
                                           bool built_in);

  std::shared_ptr<CommandBarHost> host_;
  std::vector<std::shared_ptr<MemoryCommandBar>> bars_;
  int custom_count_ = 0;
};

}  // namespace tavrin::ide::memory
