// The contents of the three tool windows (ToolPane), and the small Win32
// helpers they share. Each pane draws its document (addin/tool_documents.h)
// and hands the user's actions to it.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "toolwindows/code_explorer.h"
#include "win/tool_window_control.h"

#include <commctrl.h>

namespace tavrin::win {

std::unique_ptr<ToolPane> MakeCodeExplorerPane();
std::unique_ptr<ToolPane> MakeSearchPane();
std::unique_ptr<ToolPane> MakeTabOrderPane();

// Child control ids, which tests use to find the controls.
enum PaneControlId : int {
  kExplorerTreeId = 100,
  kExplorerFilterId = 101,
  kSearchEditId = 200,
  kSearchListId = 201,
  kShortcutFirstId = 210,
  kTabOrderListId = 300,
  kMoveUpId = 301,
  kMoveDownId = 302,
  kByPositionId = 303,
  kApplyId = 304,
};

struct ImageListTraits {
  using Handle = HIMAGELIST;
  static constexpr HIMAGELIST kEmpty = nullptr;
  static void Close(HIMAGELIST list) { ::ImageList_Destroy(list); }
};
using UniqueImageList = UniqueHandle<ImageListTraits>;

// The images of the Code Explorer's nodes, drawn at run time, and the one
// a node shows: its kind, and for members whether they are public.
UniqueImageList MakeTreeImages();
int TreeImageOf(const toolwindows::Node& node);

// A string of the string table as UTF-16.
std::wstring ResourceText(int id);

// The text of a window; the height of a line of `font` in it.
std::wstring WindowText(HWND window);
int LineHeight(HWND window, HFONT font);

// A label and the edit box it names, side by side across `width` at `top`.
struct LabelledEdit {
  HWND label = nullptr;
  HWND edit = nullptr;
  int label_width = 0;
  int height = 20;
  void Create(HWND parent, int caption_id, int edit_id, HFONT font);
  void Layout(int left, int top, int width) const;
};

// A visible child control with the window's font.
HWND CreateChild(HWND parent, const wchar_t* window_class, const std::wstring& text,
                 DWORD style, int id, HFONT font, DWORD extended_style = 0);

// List views in report mode: full-row selection, one column per caption id.
void AddListColumns(HWND list, std::initializer_list<std::pair<int, int>> caption_and_width);
// Shares the list's width among its columns, in percent, so that no
// horizontal scroll bar shows in a narrow dock.
void FitListColumns(HWND list, std::initializer_list<int> percents);
void SetListRow(HWND list, int row, std::initializer_list<std::wstring> texts);
// -1 when nothing is selected.
int SelectedRow(HWND list);
void SelectRow(HWND list, int row);

}  // namespace tavrin::win
