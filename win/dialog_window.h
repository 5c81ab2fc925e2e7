// One showing of a dialog model as a modal Win32 dialog: builds the
// template from the layout, forwards what the user does to the model
// (Changed, Pressed, Accept) and shows the model's state after each step.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "builders/dialog.h"
#include "win/dialog_layout.h"
#include "win/win_support.h"

namespace tavrin::win {

class WindowsDialogHost;

struct FontTraits {
  using Handle = HFONT;
  static constexpr HFONT kEmpty = nullptr;
  static void Close(HFONT font) { ::DeleteObject(font); }
};
using UniqueFont = UniqueHandle<FontTraits>;

class DialogWindow {
 public:
  // The layout pass runs at the start and again whenever a field shows or
  // hides or a caption of the label column changes.
  using LayoutPass = std::function<DialogLayout(const std::vector<builders::Field>&)>;
  DialogWindow(builders::DialogModel& model, WindowsDialogHost& host, LayoutPass lay_out);

  // Shows the dialog owned by `owner` until it closes; true on an accepted
  // OK.
  bool Run(HWND owner);

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam,
                                    LPARAM lparam) noexcept;
  INT_PTR Handle(UINT message, WPARAM wparam, LPARAM lparam);
  void Initialize();
  void Command(int id, int code);
  void FieldCommand(std::size_t index, int part, int code);
  void Ok();
  void Close(int result);
  void Browse(std::size_t index);
  void ShowPage(int page);
  void Refresh();
  void RefreshItems(std::size_t index, HWND control);
  std::string LayoutKey();
  void LayOut();
  Box GroupBoxOf(std::size_t index) const;
  void PlaceWindow();
  std::vector<DWORD> Template() const;
  std::vector<builders::Field>& Fields() { return model_.Fields(); }

  builders::DialogModel& model_;
  WindowsDialogHost& host_;
  LayoutPass lay_out_;
  DialogLayout layout_;
  std::string laid_out_;  // the LayoutKey of layout_
  std::wstring title_;
  HWND dialog_ = nullptr;
  UniqueFont fixed_font_;
  int page_ = 0;
  bool refreshing_ = false;
  std::vector<std::vector<std::string>> shown_items_;
};

}  // namespace tavrin::win
