#include "ide/memory/send_keys.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/utf8.h"
#include "ide/memory/like_pattern.h"

namespace tavrin::ide::memory {
namespace {

[[noreturn]] void BadKeys() { throw Error(5, "Invalid procedure call or argument"); }

struct NamedKey {
  std::string_view name;
  KeyKind kind;
};

constexpr NamedKey kNamedKeys[] = {
    {"BACKSPACE", KeyKind::kBackspace}, {"BS", KeyKind::kBackspace},
    {"BKSP", KeyKind::kBackspace},      {"DELETE", KeyKind::kDelete},
    {"DEL", KeyKind::kDelete},          {"ENTER", KeyKind::kEnter},
    {"LEFT", KeyKind::kLeft},           {"RIGHT", KeyKind::kRight},
    {"UP", KeyKind::kUp},               {"DOWN", KeyKind::kDown},
    {"HOME", KeyKind::kHome},           {"END", KeyKind::kEnd},
    {"TAB", KeyKind::kTab},             {"ESC", KeyKind::kNone},
    {"ESCAPE", KeyKind::kNone},         {"INSERT", KeyKind::kNone},
    {"INS", KeyKind::kNone},            {"PGUP", KeyKind::kNone},
    {"PGDN", KeyKind::kNone},           {"CAPSLOCK", KeyKind::kNone},
    {"NUMLOCK", KeyKind::kNone},        {"SCROLLLOCK", KeyKind::kNone},
    {"BREAK", KeyKind::kNone},          {"HELP", KeyKind::kNone},
    {"PRTSC", KeyKind::kNone},
};

bool IsFunctionKey(std::string_view name) {
  if (name.size() < 2 || ToUpperAscii(name[0]) != 'F') return false;
  const long long number = LeadingNumber(name.substr(1));
  return number >= 1 && number <= 16 &&
         name.substr(1).find_first_not_of("0123456789") == std::string_view::npos;
}

// One {…} group starting at keys[i] == '{'; appends its keystrokes.
std::size_t ParseBrace(std::string_view keys, std::size_t i, std::vector<Keystroke>& out) {
  // "{}}" and "{{}" name the braces themselves.
  const std::size_t close = keys.find('}', i + 2);
  if (i + 1 >= keys.size() || close == std::string_view::npos) BadKeys();
  std::string_view body = keys.substr(i + 1, close - i - 1);
  int repeat = 1;
  if (const auto blank = body.rfind(' '); blank != std::string_view::npos && blank > 0) {
    const std::string_view count = body.substr(blank + 1);
    if (count.empty() || count.find_first_not_of("0123456789") != std::string_view::npos ||
        count.size() > 4) {
      BadKeys();
    }
    repeat = static_cast<int>(LeadingNumber(count));
    body = body.substr(0, blank);
  }
  Keystroke stroke;
  if (body.size() == 1) {
    stroke = {KeyKind::kText, std::string(body)};
  } else if (IsFunctionKey(body)) {
    stroke = {KeyKind::kNone, {}};
  } else {
    const auto named = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                    [&](const NamedKey& key) { return EqualsIgnoreCase(key.name, body); });
    if (named == std::end(kNamedKeys)) BadKeys();
    stroke = {named->kind, {}};
  }
  for (int k = 0; k < repeat; ++k) out.push_back(stroke);
  return close + 1;
}

// One key or a (group) after a modifier.
std::size_t ParseOne(std::string_view keys, std::size_t i, std::vector<Keystroke>& out);

std::size_t ParseModified(std::string_view keys, std::size_t i, std::vector<Keystroke>& out) {
  const char modifier = keys[i++];
  if (i >= keys.size()) return i;
  std::vector<Keystroke> modified;
  if (keys[i] == '(') {
    const std::size_t close = keys.find(')', i);
    if (close == std::string_view::npos) BadKeys();
    for (std::size_t k = i + 1; k < close;) k = ParseOne(keys, k, modified);
    i = close + 1;
  } else {
    i = ParseOne(keys, i, modified);
  }
  for (Keystroke& stroke : modified) {
    if (modifier != '+') {
      stroke = {KeyKind::kNone, {}};  // Ctrl and Alt chords type nothing
    } else if (stroke.kind == KeyKind::kText && stroke.text.size() == 1) {
      stroke.text[0] = ToUpperAscii(stroke.text[0]);
    }
    out.push_back(std::move(stroke));
  }
  return i;
}

std::size_t ParseOne(std::string_view keys, std::size_t i, std::vector<Keystroke>& out) {
  const char c = keys[i];
  if (c == '{') return ParseBrace(keys, i, out);
  if (c == '+' || c == '^' || c == '%') return ParseModified(keys, i, out);
  if (c == '~' || c == '\n') {
    out.push_back({KeyKind::kEnter, {}});
    return i + 1;
  }
  if (c == '\r') {
    out.push_back({KeyKind::kEnter, {}});
    return i + 1 < keys.size() && keys[i + 1] == '\n' ? i + 2 : i + 1;
  }
  std::size_t next = i;
  NextChar(keys, next);
  out.push_back({KeyKind::kText, std::string(keys.substr(i, next - i))});
  return next;
}

int LineLength(std::string_view text) { return utf8::CharCount(text); }

// The editing state of one call: the module, the selection and the lines.
class Typist {
 public:
  Typist(ICodePane& pane, int tab_width)
      : pane_(pane), module_(pane.CodeModule()), tab_width_(tab_width),
        selection_(pane.GetSelection()) {}

  void Type(const Keystroke& key) {
    switch (key.kind) {
      case KeyKind::kText: InsertText(key.text); break;
      case KeyKind::kTab: {
        DeleteSelection();
        const int column = selection_.start_column;
        InsertText(Blanks(tab_width_ - (column - 1) % tab_width_));
        break;
      }
      case KeyKind::kEnter: Enter(); break;
      case KeyKind::kBackspace: Backspace(); break;
      case KeyKind::kDelete: Delete(); break;
      case KeyKind::kLeft: Left(); break;
      case KeyKind::kRight: Right(); break;
      case KeyKind::kUp:
        Collapse(Start());
        if (Line() > 1) Caret(Line() - 1, Column());
        break;
      case KeyKind::kDown:
        Collapse(Start());
        if (Line() < Count()) Caret(Line() + 1, Column());
        break;
      case KeyKind::kHome: Collapse(Start()); Caret(Line(), 1); break;
      case KeyKind::kEnd: Collapse(Start()); Caret(Line(), LineLength(Text(Line())) + 1); break;
      case KeyKind::kNone: break;
    }
    pane_.SetSelection(selection_);
  }

 private:
  using Position = std::pair<int, int>;

  int Count() { return module_->CountOfLines(); }
  std::string Text(int line) { return line >= 1 && line <= Count() ? module_->Lines(line, 1) : ""; }
  int Line() const { return selection_.start_line; }
  int Column() const { return selection_.start_column; }
  void Caret(int line, int column) { selection_ = {line, column, line, column}; }
  Position Start() const {
    return std::min(Position{selection_.start_line, selection_.start_column},
                    Position{selection_.end_line, selection_.end_column});
  }
  Position End() const {
    return std::max(Position{selection_.start_line, selection_.start_column},
                    Position{selection_.end_line, selection_.end_column});
  }
  void Collapse(Position at) { Caret(at.first, at.second); }

  // Returns true when there was a selection to delete.
  bool DeleteSelection() {
    if (selection_.IsCaret()) return false;
    const Position start = Start();
    Position end = End();
    Collapse(start);
    if (start.first > Count()) return true;
    if (end.first > Count()) end = {Count(), LineLength(Text(Count())) + 1};
    const std::string first = Text(start.first);
    const std::string last = Text(end.first);
    const std::string joined = first.substr(0, utf8::OffsetOfColumn(first, start.second)) +
                               last.substr(utf8::OffsetOfColumn(last, end.second));
    module_->ReplaceLine(start.first, joined);
    if (end.first > start.first) module_->DeleteLines(start.first + 1, end.first - start.first);
    return true;
  }

  // Typing on the line after the last one adds that line.
  void EnsureLine(int line) {
    while (Count() < line) module_->InsertLines(Count() + 1, "");
  }

  void InsertText(std::string_view text) {
    DeleteSelection();
    EnsureLine(Line());
    std::string line = Text(Line());
    const int length = LineLength(line);
    if (Column() - 1 > length) line += Blanks(Column() - 1 - length);
    line.insert(utf8::OffsetOfColumn(line, Column()), text);
    module_->ReplaceLine(Line(), line);
    Caret(Line(), Column() + utf8::CharCount(text));
  }

  // The new line keeps the indentation of the line it was split from.
  void Enter() {
    DeleteSelection();
    EnsureLine(Line());
    const std::string line = Text(Line());
    const std::size_t at = utf8::OffsetOfColumn(line, Column());
    const int indent = std::min(CountLeadingBlanks(line), Column() - 1);
    const std::string rest(TrimLeftBlanks(std::string_view(line).substr(at)));
    module_->ReplaceLine(Line(), line.substr(0, at));
    module_->InsertLines(Line() + 1, Blanks(indent) + rest);
    Caret(Line() + 1, indent + 1);
  }

  void Backspace() {
    if (DeleteSelection()) return;
    if (Column() > 1) {
      std::string line = Text(Line());
      if (Column() - 1 > LineLength(line) || Line() > Count()) {
        Caret(Line(), Column() - 1);  // in the blank space past the end
        return;
      }
      const std::size_t from = utf8::OffsetOfColumn(line, Column() - 1);
      line.erase(from, utf8::OffsetOfColumn(line, Column()) - from);
      module_->ReplaceLine(Line(), line);
      Caret(Line(), Column() - 1);
    } else if (Line() > 1) {
      const int above = Line() - 1;
      const std::string previous = Text(above);
      if (Line() <= Count()) {
        module_->ReplaceLine(above, previous + Text(Line()));
        module_->DeleteLines(Line(), 1);
      }
      Caret(above, LineLength(previous) + 1);
    }
  }

  void Delete() {
    if (DeleteSelection() || Line() > Count()) return;
    std::string line = Text(Line());
    const int length = LineLength(line);
    if (Column() <= length) {
      const std::size_t from = utf8::OffsetOfColumn(line, Column());
      line.erase(from, utf8::OffsetOfColumn(line, Column() + 1) - from);
      module_->ReplaceLine(Line(), line);
    } else if (Line() < Count()) {
      line += Blanks(Column() - 1 - length);
      module_->ReplaceLine(Line(), line + Text(Line() + 1));
      module_->DeleteLines(Line() + 1, 1);
    }
  }

  void Left() {
    if (!selection_.IsCaret()) return Collapse(Start());
    if (Column() > 1) Caret(Line(), Column() - 1);
    else if (Line() > 1) Caret(Line() - 1, LineLength(Text(Line() - 1)) + 1);
  }

  void Right() {
    if (!selection_.IsCaret()) return Collapse(End());
    if (Column() <= LineLength(Text(Line()))) Caret(Line(), Column() + 1);
    else if (Line() < Count()) Caret(Line() + 1, 1);
  }

  ICodePane& pane_;
  std::shared_ptr<ICodeModule> module_;
  int tab_width_;
  TextRange selection_;
};

}  // namespace

std::vector<Keystroke> ParseKeys(std::string_view keys) {
  std::vector<Keystroke> strokes;
  for (std::size_t i = 0; i < keys.size();) i = ParseOne(keys, i, strokes);
  return strokes;
}

void TypeKeys(ICodePane& pane, const std::vector<Keystroke>& keys, int tab_width) {
  Typist typist(pane, std::max(tab_width, 1));
  for (const Keystroke& key : keys) typist.Type(key);
}

}  // namespace tavrin::ide::memory
