#include "win/dialog_layout.h"

#include <algorithm>
#include <iterator>

namespace tavrin::win {
namespace {

using builders::Field;
using builders::FieldKind;

constexpr int kMargin = 7;
constexpr int kRowGap = 4;
constexpr int kLabelGap = 4;  // between a caption and its control
constexpr int kLineHeight = 8;
constexpr int kEditHeight = 14;
constexpr int kCheckHeight = 10;
constexpr int kCheckPitch = 13;
constexpr int kCheckBoxWidth = 16;  // the box and its gap before the caption
constexpr int kButtonHeight = 14;
constexpr int kButtonWidth = 50;
constexpr int kButtonPitch = 18;
constexpr int kBrowseWidth = 16;
constexpr int kGroupTop = 11;  // room for the group box's caption
constexpr int kGroupInset = 7;
constexpr int kTabTop = 18;  // room for the tabs
constexpr int kTabInset = 7;
constexpr int kControlWidth = 150;
constexpr int kNumberWidth = 40;
constexpr int kPreviewWidth = 260;
constexpr int kColumnGap = 10;

int Inset(const Field& field) {
  return (field.group.empty() ? 0 : kGroupInset) + (field.page.empty() ? 0 : kTabInset);
}

class Layouter {
 public:
  Layouter(const std::vector<Field>& fields, const TextWidth& text_width, DialogLayout& layout)
      : fields_(fields), width_(text_width), layout_(layout) {
    for (const Field& field : fields_)
      if (field.visible && HasSideLabel(field))
        label_width_ = std::max(label_width_, Text(field.caption) + Inset(field));
    column_width_ = (label_width_ ? label_width_ + kLabelGap : 0) + kControlWidth;
    for (const Field& field : fields_) {
      if (!field.visible) continue;
      if (field.kind == FieldKind::kCheck)
        column_width_ =
            std::max(column_width_, Text(field.caption) + kCheckBoxWidth + Inset(field));
      if (field.kind == FieldKind::kLabel && !HasSideLabel(field))
        column_width_ =
            std::max(column_width_, std::min(Text(LabelText(field)) + Inset(field), 300));
      if (field.kind == FieldKind::kNote) column_width_ = std::max(column_width_, kPreviewWidth);
    }
    // A list keeps a control's width beside the buttons that act on it.
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (fields_[i].kind != FieldKind::kList || !fields_[i].visible) continue;
      int buttons = 0;
      for (std::size_t k = i + 1; k < fields_.size() && fields_[k].kind == FieldKind::kButton; ++k)
        buttons = std::max(buttons, ButtonWidth(fields_[k]));
      if (buttons)
        column_width_ = std::max(column_width_, (label_width_ ? label_width_ + kLabelGap : 0) +
                                                    kControlWidth + kLabelGap + buttons +
                                                    Inset(fields_[i]));
    }
    // Four check boxes or more in a row take two columns at least.
    for (std::size_t i = 0; i < fields_.size();) {
      std::size_t end = i;
      int widest = 0;
      while (end < fields_.size() && fields_[end].kind == FieldKind::kCheck &&
             fields_[end].group == fields_[i].group) {
        widest = std::max(widest, Text(fields_[end].caption) + kCheckBoxWidth);
        ++end;
      }
      if (end - i >= 4)
        column_width_ = std::max(column_width_, 2 * (widest + kLabelGap) + Inset(fields_[i]) * 2);
      i = std::max(end, i + 1);
    }
    control_x_ = kMargin + (label_width_ ? label_width_ + kLabelGap : 0);
  }

  int ColumnWidth() const { return column_width_; }

  // Lays the fields out from `top` between `left` and `right`; returns the
  // bottom of the last one (`top` when there is none).
  int Column(const std::vector<std::size_t>& order, int left, int right, int top) {
    int y = top;
    bool first = true;
    for (std::size_t k = 0; k < order.size();) {
      const std::string& group = fields_[order[k]].group;
      std::size_t end = k + 1;
      while (end < order.size() && fields_[order[end]].group == group) ++end;
      const std::vector<std::size_t> run(order.begin() + k, order.begin() + end);
      if (!first) y += kRowGap;
      if (group.empty()) {
        y = Rows(run, left, right, y);
      } else {
        GroupPlace place{group, run.front(), {left, y, right - left, 0}};
        const int bottom = Rows(run, left + kGroupInset, right - kGroupInset, y + kGroupTop);
        place.box.height = bottom + kGroupInset - y;
        layout_.groups.push_back(place);
        y += place.box.height;
      }
      first = false;
      k = end;
    }
    return y;
  }

 private:
  int Text(std::string_view text) const { return width_(WithoutAccessMark(text)); }

  int Rows(const std::vector<std::size_t>& run, int left, int right, int y) {
    const int top = y;
    for (std::size_t k = 0; k < run.size();) {
      const Field& field = fields_[run[k]];
      std::size_t end = k + 1;
      const auto same_kind = [&](std::size_t at) {
        return at < run.size() && fields_[run[at]].kind == field.kind;
      };
      if (y > top) y += kRowGap;
      if (field.kind == FieldKind::kCheck) {
        while (same_kind(end)) ++end;
        y = Checks(run, k, end, field.group.empty() ? control_x_ : left, right, y);
      } else if (field.kind == FieldKind::kButton) {
        while (same_kind(end)) ++end;
        y = ButtonRow(run, k, end, field.group.empty() ? control_x_ : left, right, y);
      } else if (field.kind == FieldKind::kList) {
        while (end < run.size() && fields_[run[end]].kind == FieldKind::kButton) ++end;
        y = ListWithButtons(run, k, end, left, right, y);
      } else if (field.kind == FieldKind::kNote ||
                 (field.kind == FieldKind::kLabel && !HasSideLabel(field))) {
        const int lines = std::max(Lines(LabelText(field), right - left),
                                   field.kind == FieldKind::kNote ? field.rows : 1);
        Place(run[k]).control = {left, y, right - left, lines * kLineHeight};
        y += lines * kLineHeight;
      } else {
        y = LabelledRow(run[k], left, right, y);
      }
      k = end;
    }
    return y;
  }

  int Lines(const std::string& text, int width) const {
    int lines = 0;
    std::size_t start = 0;
    while (true) {
      const std::size_t end = text.find('\n', start);
      const int line_width = width_(text.substr(start, end - start));
      lines += std::max(1, (line_width + width - 1) / std::max(width, 1));
      if (end == std::string::npos) return lines;
      start = end + 1;
    }
  }

  FieldPlace& Place(std::size_t index) { return layout_.fields[index]; }

  Box SideLabel(std::size_t index, int left, int y) {
    if (!HasSideLabel(fields_[index]) || label_width_ == 0) return {};
    return {left, y, control_x_ - kLabelGap - left, kLineHeight};
  }

  int LabelledRow(std::size_t index, int left, int right, int y) {
    const Field& field = fields_[index];
    FieldPlace& place = Place(index);
    place.label = SideLabel(index, left, y + 3);
    int width = right - control_x_;
    if (field.kind == FieldKind::kNumber) width = std::min(width, kNumberWidth);
    if (field.kind == FieldKind::kFile || field.kind == FieldKind::kFolder) {
      width -= kBrowseWidth + 2;
      place.browse = {right - kBrowseWidth, y, kBrowseWidth, kEditHeight};
    }
    // A captioned label shows its value as text in line with the caption.
    if (field.kind == FieldKind::kLabel) {
      place.control = Box{control_x_, y + 3, width, kLineHeight};
      return y + kEditHeight;
    }
    const int height = field.kind == FieldKind::kText && field.rows > 1
                           ? field.rows * kLineHeight + 4
                           : kEditHeight;
    place.control = Box{control_x_, y, width, height};
    return y + height;
  }

  int Checks(const std::vector<std::size_t>& run, std::size_t from, std::size_t to, int left,
             int right, int y) {
    int widest = 0;
    for (std::size_t k = from; k < to; ++k)
      widest = std::max(widest, Text(fields_[run[k]].caption) + kCheckBoxWidth);
    const int columns = std::clamp((right - left) / std::max(widest + kLabelGap, 1), 1, 3);
    const int column_width = (right - left) / columns;
    int rows = 0;
    for (std::size_t k = from; k < to; ++k) {
      const int at = static_cast<int>(k - from);
      rows = at / columns + 1;
      Place(run[k]).control = {left + (at % columns) * column_width,
                               y + (at / columns) * kCheckPitch, column_width - kLabelGap,
                               kCheckHeight};
    }
    return y + (rows - 1) * kCheckPitch + kCheckHeight;
  }

  int ButtonWidth(const Field& field) const {
    return std::max(kButtonWidth, Text(field.caption) + 14);
  }

  int ButtonRow(const std::vector<std::size_t>& run, std::size_t from, std::size_t to, int left,
                int right, int y) {
    int x = left;
    for (std::size_t k = from; k < to; ++k) {
      const int width = ButtonWidth(fields_[run[k]]);
      if (x > left && x + width > right) {
        x = left;
        y += kButtonPitch;
      }
      Place(run[k]).control = {x, y, width, kButtonHeight};
      x += width + kLabelGap;
    }
    return y + kButtonHeight;
  }

  // A list, and the buttons that act on it in a column at its right.
  int ListWithButtons(const std::vector<std::size_t>& run, std::size_t list, std::size_t to,
                      int left, int right, int y) {
    int buttons_width = 0;
    for (std::size_t k = list + 1; k < to; ++k)
      buttons_width = std::max(buttons_width, ButtonWidth(fields_[run[k]]));
    const Field& field = fields_[run[list]];
    FieldPlace& place = Place(run[list]);
    place.label = SideLabel(run[list], left, y + 2);
    const int list_right = buttons_width ? right - buttons_width - kLabelGap : right;
    int bottom = y + std::max(field.rows, 3) * kLineHeight + 4;
    for (std::size_t k = list + 1; k < to; ++k) {
      const int at = y + static_cast<int>(k - list - 1) * kButtonPitch;
      Place(run[k]).control = {right - buttons_width, at, buttons_width, kButtonHeight};
      bottom = std::max(bottom, at + kButtonHeight);
    }
    // The list is as tall as its buttons.
    place.control = {control_x_, y, list_right - control_x_, bottom - y};
    return bottom;
  }

  const std::vector<Field>& fields_;
  const TextWidth& width_;
  DialogLayout& layout_;
  int label_width_ = 0;
  int column_width_ = 0;
  int control_x_ = kMargin;
};

}  // namespace

bool HasSideLabel(const Field& field) {
  switch (field.kind) {
    case FieldKind::kLabel: return field.caption.ends_with(':');
    case FieldKind::kCheck:
    case FieldKind::kButton:
    case FieldKind::kPreview:
    case FieldKind::kNote: return false;
    default: return true;
  }
}

const std::string& LabelText(const Field& field) {
  if (HasSideLabel(field)) return field.text;
  return field.text.empty() ? field.caption : field.text;
}

std::string WithoutAccessMark(std::string_view caption) {
  std::string shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;  // "&&" shows one "&"
    shown += caption[i];
  }
  return shown;
}

DialogLayout LayOutDialog(const std::vector<Field>& fields, DialogButtons buttons,
                          const TextWidth& text_width) {
  DialogLayout layout;
  layout.fields.resize(fields.size());
  Layouter layouter(fields, text_width, layout);
  std::vector<std::size_t> plain, previews, closing;
  std::vector<std::vector<std::size_t>> paged, page_previews;
  // Hidden fields take no room; the dialog lays itself out again when
  // they show.
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const Field& field = fields[i];
    if (field.page.empty()) {
      if (!field.visible) continue;
      if (field.kind == FieldKind::kPreview)
        previews.push_back(i);
      else
        plain.push_back(i);
    } else {
      const auto page = std::find(layout.pages.begin(), layout.pages.end(), field.page);
      const auto index = static_cast<std::size_t>(page - layout.pages.begin());
      if (page == layout.pages.end()) {
        if (layout.pages.empty()) layout.first_paged_field = i;
        layout.pages.push_back(field.page);
        paged.emplace_back();
        page_previews.emplace_back();
      }
      if (field.visible)
        (field.kind == FieldKind::kPreview ? page_previews : paged)[index].push_back(i);
    }
  }
  // In a dialog with pages, a button of no page (Apply) closes the dialog's
  // rows beside OK and Cancel rather than standing above the tabs.
  if (!paged.empty()) {
    const auto button = [&](std::size_t i) { return fields[i].kind == FieldKind::kButton; };
    std::copy_if(plain.begin(), plain.end(), std::back_inserter(closing), button);
    std::erase_if(plain, button);
  }

  const auto place_previews = [&](const std::vector<std::size_t>& column, int x, int y,
                                  int bottom) {
    for (std::size_t i : column) {
      FieldPlace& place = layout.fields[i];
      if (!fields[i].caption.empty()) {
        place.label = {x, y, kPreviewWidth, kLineHeight};
        y += kLineHeight + 2;
      }
      place.control = {x, y, kPreviewWidth, std::max(fields[i].rows, 3) * kLineHeight + 4};
      y += place.control.height + kRowGap;
    }
    // The last preview takes the height the other fields leave.
    Box& last = layout.fields[column.back()].control;
    last.height = std::max(last.height, bottom - last.y);
    return last.y + last.height;
  };

  const int left = kMargin;
  int right = kMargin + layouter.ColumnWidth();
  int bottom = layouter.Column(plain, left, right, kMargin);
  if (!paged.empty()) {
    const int top = plain.empty() ? kMargin : bottom + kRowGap * 2;
    // A page's previews stand on its right, inside the tabs; every tab
    // shows in one row, so the tabs are as wide as their captions too.
    int tabs_right = right;
    const bool page_preview = std::any_of(page_previews.begin(), page_previews.end(),
                                          [](const auto& column) { return !column.empty(); });
    const int preview_x = right - kTabInset + kColumnGap;
    if (page_preview) tabs_right = preview_x + kPreviewWidth + kTabInset;
    int captions = 4;
    for (const std::string& page : layout.pages) captions += text_width(page) + 10;
    tabs_right = std::max(tabs_right, left + captions);
    // A page without a preview gives its fields the whole width.
    int page_bottom = top + kTabTop;
    for (std::size_t p = 0; p < paged.size(); ++p) {
      const int page_right = page_previews[p].empty() ? tabs_right : right;
      page_bottom = std::max(page_bottom, layouter.Column(paged[p], left + kTabInset,
                                                          page_right - kTabInset, top + kTabTop));
    }
    for (const auto& column : page_previews)
      if (!column.empty())
        page_bottom = std::max(page_bottom,
                               place_previews(column, preview_x, top + kTabTop, page_bottom));
    layout.tabs = {left, top, tabs_right - left, page_bottom + kTabInset - top};
    bottom = layout.tabs.y + layout.tabs.height;
    right = tabs_right;
  }

  int content_right = right;
  if (!previews.empty()) {
    const int x = right + kColumnGap;
    bottom = std::max(bottom, place_previews(previews, x, kMargin, bottom));
    content_right = x + kPreviewWidth;
  }

  const int buttons_y = bottom + kMargin + 2;
  int x = content_right;
  const auto button = [&](Box& box) {
    x -= kButtonWidth;
    box = {x, buttons_y, kButtonWidth, kButtonHeight};
    x -= kLabelGap;
  };
  // From the right: Help, the dialog's own closing buttons, Cancel, OK.
  if (buttons.help) button(layout.help);
  for (auto i = closing.rbegin(); i != closing.rend(); ++i) button(layout.fields[*i].control);
  if (buttons.cancel) button(layout.cancel);
  button(layout.ok);
  layout.width = content_right + kMargin;
  layout.height = buttons_y + kButtonHeight + kMargin;
  return layout;
}

}  // namespace tavrin::win
