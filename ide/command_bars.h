// The IDE's command bars (the Office command-bar library the IDE exposes as
// VBE.CommandBars): toolbars, menus, context menus and their controls.
//
// One control interface serves buttons, pop-ups and drop-downs, as a
// late-bound caller sees them: a member the control's type does not have
// (Controls of a button, Style of a pop-up) raises ide::Error 438, and so
// does Picture on hosts whose command bars have no Picture property.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ide/object_model.h"

namespace tavrin::ide {

class ICommandBar;
class ICommandBarControl;

// MsoControlType (the kinds a caller can create).
enum class ControlType {
  kCustom = 0,
  kButton = 1,
  kEdit = 2,
  kDropdown = 3,
  kComboBox = 4,
  kPopup = 10,
};

// MsoBarPosition.
enum class BarPosition {
  kLeft = 0,
  kTop = 1,
  kRight = 2,
  kBottom = 3,
  kFloating = 4,
  kPopup = 5,
};

// MsoButtonStyle (the values the add-in uses).
enum class ButtonStyle {
  kAutomatic = 0,
  kIcon = 1,
  kCaption = 2,
  kIconAndCaption = 3,
};

// The error a late-bound call raises for a member the object lacks.
inline constexpr int kErrorNoSuchMember = 438;

// A button face: a 16x16 bitmap as the bytes of a .bmp file, named by the
// resource it came from ("101", its mask "101m"). For a mask, white is
// transparent and black opaque.
struct Picture {
  std::string name;
  std::string bmp;
  friend bool operator==(const Picture&, const Picture&) = default;
};

// CommandBarControls: the controls of a bar or of a pop-up, in screen order.
// Item by name looks up the caption.
class ICommandBarControls : public ICollection<ICommandBarControl> {
 public:
  // Controls.Add(Type, Id, Parameter, Before, Temporary). id 1 is a blank
  // custom control, another id copies that built-in control; `before` is a
  // 1-based position (nullopt: at the end).
  virtual std::shared_ptr<ICommandBarControl> Add(ControlType type, int id = 1,
                                                  std::string_view parameter = {},
                                                  std::optional<int> before = std::nullopt,
                                                  bool temporary = false) = 0;
};

class ICommandBarControl {
 public:
  virtual ~ICommandBarControl() = default;

  virtual ControlType Type() = 0;
  virtual int Id() = 0;     // 1 for a custom control
  virtual int Index() = 0;  // 1-based position among its siblings
  virtual std::string Caption() = 0;
  virtual void SetCaption(std::string_view caption) = 0;
  virtual bool BeginGroup() = 0;
  virtual void SetBeginGroup(bool begin_group) = 0;
  virtual bool Enabled() = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual std::string TooltipText() = 0;
  virtual void SetTooltipText(std::string_view text) = 0;
  virtual std::string Tag() = 0;
  virtual void SetTag(std::string_view tag) = 0;
  virtual std::string Parameter() = 0;
  virtual void SetParameter(std::string_view parameter) = 0;
  // The bar the control sits on (a pop-up's own bar for its entries).
  virtual std::shared_ptr<ICommandBar> Parent() = 0;
  virtual void Delete() = 0;
  // Runs the control as a click does: its click events fire.
  virtual void Execute() = 0;

  // Buttons.
  virtual ButtonStyle Style() = 0;
  virtual void SetStyle(ButtonStyle style) = 0;
  virtual int FaceId() = 0;
  virtual void SetFaceId(int face_id) = 0;
  // Puts the control's face on the clipboard.
  virtual void CopyFace() = 0;
  // Sets the face from the clipboard; error when it holds no picture.
  virtual void PasteFace() = 0;
  virtual Picture GetPicture() = 0;
  virtual void SetPicture(const Picture& picture) = 0;
  virtual Picture GetMask() = 0;
  virtual void SetMask(const Picture& mask) = 0;

  // Pop-ups.
  virtual std::shared_ptr<ICommandBarControls> Controls() = 0;
  virtual std::shared_ptr<ICommandBar> CommandBar() = 0;
};

class ICommandBar {
 public:
  virtual ~ICommandBar() = default;
  virtual std::string Name() = 0;
  virtual BarPosition Position() = 0;
  virtual void SetPosition(BarPosition position) = 0;
  virtual int RowIndex() = 0;
  virtual void SetRowIndex(int row_index) = 0;
  virtual int Left() = 0;
  virtual void SetLeft(int left) = 0;
  virtual int Top() = 0;
  virtual void SetTop(int top) = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual std::shared_ptr<ICommandBarControls> Controls() = 0;
  // The first control of this bar (with `recursive`, also in its pop-ups)
  // of that type and id (nullopt: any) and tag (empty: any); nullptr when
  // there is none.
  virtual std::shared_ptr<ICommandBarControl> FindControl(std::optional<ControlType> type,
                                                          std::optional<int> id,
                                                          std::string_view tag = {},
                                                          bool recursive = false) = 0;
  // Removes a custom bar and its controls.
  virtual void Delete() = 0;
  // Opens a pop-up bar (position kPopup) as a context menu at the screen
  // point (nullopt: the mouse pointer); returns when the user has chosen,
  // after the chosen control's click. Another bar raises ide::Error.
  virtual void ShowPopup(std::optional<int> x, std::optional<int> y) = 0;
};

// VBE.CommandBars. Item by name raises ide::Error for a bar that is not
// there, which is how a caller learns that it is missing.
class ICommandBars : public ICollection<ICommandBar> {
 public:
  // CommandBars.Add(Name, Position, MenuBar, Temporary).
  virtual std::shared_ptr<ICommandBar> Add(std::string_view name, BarPosition position,
                                           bool menu_bar, bool temporary) = 0;
  // The first control of any bar with that id (and type and tag, when
  // given); nullptr when there is none.
  virtual std::shared_ptr<ICommandBarControl> FindControl(std::optional<ControlType> type,
                                                          std::optional<int> id,
                                                          std::string_view tag = {}) = 0;
};

}  // namespace tavrin::ide
