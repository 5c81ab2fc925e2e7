// Small glyphs for the Code Explorer: a coloured tile with a letter for
// projects, components and members (solid when public, outlined when
// private) and a folder shape for folders. Drawn with GDI when the tree is
// created, so no bitmap resources are needed.
#include <array>

#include "win/tool_panes.h"

namespace tavrin::win {
namespace {

constexpr int kSize = 16;
constexpr COLORREF kTransparent = RGB(255, 0, 255);

struct Glyph {
  wchar_t letter;  // 0: the folder shape
  COLORREF colour;
  bool solid;
};

enum Image : int {
  kProject,
  kFolder,
  kModule,
  kClass,
  kForm,
  kDesigner,
  kSub,
  kPrivateSub = kSub + 1,
  kFunction,
  kPrivateFunction = kFunction + 1,
  kProperty,
  kPrivateProperty = kProperty + 1,
  kAccessor,
  kEnum,
  kPrivateEnum = kEnum + 1,
  kType,
  kPrivateType = kType + 1,
  kConstant,
  kPrivateConstant = kConstant + 1,
  kVariable,
  kPrivateVariable = kVariable + 1,
  kDeclare,
  kPrivateDeclare = kDeclare + 1,
  kMember,
};

constexpr std::array<Glyph, 24> kGlyphs = {{
    {L'P', RGB(0, 51, 128), true},     // project
    {0, RGB(240, 196, 64), true},      // folder
    {L'M', RGB(0, 120, 60), true},     // standard module
    {L'C', RGB(200, 96, 0), true},     // class module
    {L'F', RGB(0, 96, 200), true},     // form
    {L'D', RGB(96, 96, 96), true},     // other designers, documents
    {L'S', RGB(120, 40, 160), true},   // Sub
    {L'S', RGB(120, 40, 160), false},  // private Sub
    {L'F', RGB(176, 0, 96), true},     // Function
    {L'F', RGB(176, 0, 96), false},    // private Function
    {L'P', RGB(0, 128, 128), true},    // Property
    {L'P', RGB(0, 128, 128), false},   // private Property
    {L'\u00B7', RGB(0, 128, 128), true},  // Get, Let, Set
    {L'E', RGB(150, 110, 0), true},    // Enum
    {L'E', RGB(150, 110, 0), false},   // private Enum
    {L'T', RGB(60, 100, 20), true},    // Type
    {L'T', RGB(60, 100, 20), false},   // private Type
    {L'K', RGB(160, 60, 40), true},    // Const
    {L'K', RGB(160, 60, 40), false},   // private Const
    {L'V', RGB(40, 80, 140), true},    // variable
    {L'V', RGB(40, 80, 140), false},   // private variable
    {L'D', RGB(90, 60, 120), true},    // Declare
    {L'D', RGB(90, 60, 120), false},   // private Declare
    {L'\u00B7', RGB(150, 110, 0), true},  // a member of an enum or type
}};

void DrawFolder(HDC dc, COLORREF colour) {
  const HBRUSH brush = ::CreateSolidBrush(colour);
  const HPEN pen = ::CreatePen(PS_SOLID, 1, RGB(150, 110, 20));
  const HGDIOBJ old_brush = ::SelectObject(dc, brush);
  const HGDIOBJ old_pen = ::SelectObject(dc, pen);
  const POINT outline[] = {{1, 3}, {6, 3}, {7, 5}, {14, 5}, {14, 13}, {1, 13}};
  ::Polygon(dc, outline, 6);
  ::SelectObject(dc, old_brush);
  ::SelectObject(dc, old_pen);
  ::DeleteObject(brush);
  ::DeleteObject(pen);
}

void DrawTile(HDC dc, const Glyph& glyph, HFONT font) {
  const HBRUSH brush = ::CreateSolidBrush(glyph.solid ? glyph.colour : RGB(255, 255, 255));
  const HPEN pen = ::CreatePen(PS_SOLID, 1, glyph.colour);
  const HGDIOBJ old_brush = ::SelectObject(dc, brush);
  const HGDIOBJ old_pen = ::SelectObject(dc, pen);
  ::RoundRect(dc, 1, 1, kSize - 1, kSize - 1, 4, 4);
  ::SelectObject(dc, old_brush);
  ::SelectObject(dc, old_pen);
  ::DeleteObject(brush);
  ::DeleteObject(pen);
  const HGDIOBJ old_font = ::SelectObject(dc, font);
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, glyph.solid ? RGB(255, 255, 255) : glyph.colour);
  RECT area{1, 1, kSize - 1, kSize - 1};
  ::DrawTextW(dc, &glyph.letter, 1, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  ::SelectObject(dc, old_font);
}

}  // namespace

UniqueImageList MakeTreeImages() {
  UniqueImageList list(
      ::ImageList_Create(kSize, kSize, ILC_COLOR24 | ILC_MASK, kGlyphs.size(), 0));
  if (!list) return list;
  const HDC screen = ::GetDC(nullptr);
  const HDC dc = ::CreateCompatibleDC(screen);
  const UniqueGdiObject font(::CreateFontW(-11, 0, 0, 0, FW_BOLD, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                           ANTIALIASED_QUALITY, 0, L"Tahoma"));
  for (const Glyph& glyph : kGlyphs) {
    const UniqueGdiObject bitmap(::CreateCompatibleBitmap(screen, kSize, kSize));
    const HGDIOBJ old = ::SelectObject(dc, bitmap.get());
    const HBRUSH background = ::CreateSolidBrush(kTransparent);
    const RECT all{0, 0, kSize, kSize};
    ::FillRect(dc, &all, background);
    ::DeleteObject(background);
    if (glyph.letter == 0) {
      DrawFolder(dc, glyph.colour);
    } else {
      DrawTile(dc, glyph, static_cast<HFONT>(font.get()));
    }
    ::SelectObject(dc, old);
    ::ImageList_AddMasked(list.get(), static_cast<HBITMAP>(bitmap.get()), kTransparent);
  }
  ::DeleteDC(dc);
  ::ReleaseDC(nullptr, screen);
  return list;
}

int TreeImageOf(const toolwindows::Node& node) {
  using toolwindows::NodeKind;
  const int scope = node.is_public ? 0 : 1;
  switch (node.kind) {
    case NodeKind::kProject: return kProject;
    case NodeKind::kFolder: return kFolder;
    case NodeKind::kProcedure: return kSub + scope;
    case NodeKind::kFunction: return kFunction + scope;
    case NodeKind::kProperty: return kProperty + scope;
    case NodeKind::kAccessor: return kAccessor;
    case NodeKind::kEnum: return kEnum + scope;
    case NodeKind::kType: return kType + scope;
    case NodeKind::kConstant: return kConstant + scope;
    case NodeKind::kVariable: return kVariable + scope;
    case NodeKind::kDeclare: return kDeclare + scope;
    case NodeKind::kEnumMember:
    case NodeKind::kTypeMember: return kMember;
    case NodeKind::kComponent: break;
  }
  switch (node.component_type) {
    case ide::ComponentType::kStdModule: return kModule;
    case ide::ComponentType::kClassModule: return kClass;
    case ide::ComponentType::kVBForm:
    case ide::ComponentType::kVBMDIForm:
    case ide::ComponentType::kMSForm: return kForm;
    default: return kDesigner;
  }
}

}  // namespace tavrin::win
