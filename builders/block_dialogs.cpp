#include "builders/block_dialogs.h"

#include <algorithm>

#include "base/text.h"
#include "builders/literal.h"
#include "builders/name_check.h"
#include "builders/variable_dialog.h"

namespace tavrin::builders {
namespace {

using scan::DeclKind;

// "Green = 5" → name and value; "X As Long" → name and type.
std::pair<std::string, std::string> NameAndRest(std::string_view member, BlockKind kind) {
  const std::size_t split =
      kind == BlockKind::kEnum ? member.find('=') : FindIgnoreCase(member, " As ");
  if (split == std::string_view::npos) return {std::string(TrimBlanks(member)), ""};
  const std::size_t skip = kind == BlockKind::kEnum ? 1 : 4;
  return {std::string(TrimBlanks(member.substr(0, split))),
          std::string(TrimBlanks(member.substr(split + skip)))};
}

std::optional<Refusal> MemberProblem(const std::string& name, const std::string& rest,
                                     BlockKind kind) {
  if (auto problem = NameProblem(name)) return Refusal{*problem + " (" + name + ")", "members"};
  if (rest.empty()) return std::nullopt;
  if (kind == BlockKind::kEnum) {
    if (!LiteralFor(rest, "Long").problem.empty())
      return Refusal{"The value of " + name + " must be a whole number.", "members"};
  } else if (auto problem = TypeProblem(rest)) {
    return Refusal{*problem, "members"};
  }
  return std::nullopt;
}

Field Scope(const DeclarationTarget& target) {
  Field scope = MakeField("scope", FieldKind::kChoice, "&Scope:");
  if (target.standard_module) scope.items.emplace_back(kScopeGlobal);
  scope.items.emplace_back(kScopeModule);
  scope.selected = 0;
  scope.text = scope.items[0];
  return scope;
}

}  // namespace

std::vector<std::string> SplitMembers(std::string_view text) {
  std::vector<std::string> members;
  for (std::string_view line : SplitAnyLineBreak(text)) {
    std::size_t start = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
      if (i < line.size() && line[i] != ',') continue;
      const std::string_view member = TrimBlanks(line.substr(start, i - start));
      if (!member.empty()) members.emplace_back(member);
      start = i + 1;
    }
  }
  return members;
}

std::string NoBlockMessage(BlockKind kind) {
  return kind == BlockKind::kEnum ? "This module declares no Enum to add a constant to."
                                  : "This module declares no Type to add an item to.";
}

// The new block.

BlockDialog::BlockDialog(DeclarationTarget target, BlockKind kind)
    : target_(std::move(target)), kind_(kind) {
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  fields_.push_back(Scope(target_));
  fields_.push_back(MakeField("members", FieldKind::kText,
                              kind_ == BlockKind::kEnum ? "&Members (Red, Green = 5):"
                                                        : "&Members (X As Long, Y As Long):"));
  fields_.back().rows = 6;
  if (kind_ == BlockKind::kEnum) {
    fields_.push_back(MakeField("numbered", FieldKind::kCheck, "N&umbered"));
    fields_.push_back(MakeField("start", FieldKind::kNumber, "S&tart:"));
    fields_.back().text = "0";
  }
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  fields_.back().rows = 10;
  Changed("");
}

std::string BlockDialog::Title() const {
  return std::string(kind_ == BlockKind::kEnum ? kEnumDialogTitle : kTypeDialogTitle);
}

const Field& BlockDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

std::vector<std::string> BlockDialog::MemberLines() const {
  std::vector<std::string> lines;
  const bool numbered = kind_ == BlockKind::kEnum && F("numbered").checked;
  long long next = numbered ? LeadingNumber(F("start").text) : 0;
  for (const std::string& member : SplitMembers(F("members").text)) {
    auto [name, rest] = NameAndRest(member, kind_);
    if (kind_ == BlockKind::kType) {
      lines.push_back(name + " As " + (rest.empty() ? "Variant" : rest));
      continue;
    }
    if (!rest.empty()) next = LeadingNumber(rest);
    lines.push_back(rest.empty() && !numbered ? name
                                              : name + " = " + (rest.empty() ? std::to_string(next)
                                                                             : rest));
    ++next;
  }
  return lines;
}

std::string BlockDialog::Code() const {
  const std::string keyword = kind_ == BlockKind::kEnum ? "Enum" : "Type";
  const scan::DeclScope scope = ScopeOfEntry(F("scope").items[std::max(0, F("scope").selected)]);
  std::string code = std::string(ScopeKeyword(scope)) + " " + keyword + " " +
                     std::string(TrimBlanks(F("name").text)) + "\r\n";
  for (const std::string& line : MemberLines()) code += target_.indent + line + "\r\n";
  return code + "End " + keyword;
}

Insertion BlockDialog::Place() const {
  return PlaceDeclaration(target_, scan::DeclScope::kModule, Code());
}

void BlockDialog::Changed(std::string_view) {
  if (kind_ == BlockKind::kEnum) FindField(fields_, "start")->enabled = F("numbered").checked;
  FindField(fields_, "preview")->text = Code();
}

std::optional<Refusal> BlockDialog::Accept() {
  const std::string name(TrimBlanks(F("name").text));
  if (auto problem = NameProblem(name)) return Refusal{*problem, "name"};
  const scan::DeclScope scope = ScopeOfEntry(F("scope").items[std::max(0, F("scope").selected)]);
  if (auto clash = NameClash(target_, name, scope)) return Refusal{*clash, "name"};
  std::vector<std::string> names;
  for (const std::string& member : SplitMembers(F("members").text)) {
    auto [member_name, rest] = NameAndRest(member, kind_);
    if (auto problem = MemberProblem(member_name, rest, kind_)) return problem;
    if (std::any_of(names.begin(), names.end(), [&name = member_name](const std::string& n) {
          return EqualsIgnoreCase(n, name);
        }))
      return Refusal{"The member '" + member_name + "' is listed twice.", "members"};
    // Enum members are names of the module or the project; type members
    // live inside their type.
    if (kind_ == BlockKind::kEnum)
      if (auto clash = NameClash(target_, member_name, scope)) return Refusal{*clash, "members"};
    names.push_back(member_name);
  }
  if (names.empty()) return Refusal{"Type at least one member.", "members"};
  return std::nullopt;
}

// An item added to a block.

BlockItemDialog::BlockItemDialog(DeclarationTarget target, BlockKind kind)
    : target_(std::move(target)), kind_(kind) {
  const DeclKind wanted = kind_ == BlockKind::kEnum ? DeclKind::kEnum : DeclKind::kType;
  Field block = MakeField("block", FieldKind::kChoice,
                          kind_ == BlockKind::kEnum ? "&Enum:" : "&User-defined type:");
  for (const scan::Declaration& declaration : target_.module.declarations) {
    if (declaration.kind != wanted || declaration.end_line == 0) continue;
    if (declaration.line <= target_.caret_line && target_.caret_line <= declaration.end_line)
      block.selected = static_cast<int>(blocks_.size());
    blocks_.push_back(&declaration);
    block.items.push_back(declaration.name);
  }
  if (block.selected < 0 && !block.items.empty()) block.selected = 0;
  if (block.selected >= 0) block.text = block.items[block.selected];
  fields_.push_back(std::move(block));
  fields_.push_back(MakeField("name", FieldKind::kText, "&Name:"));
  if (kind_ == BlockKind::kEnum) {
    fields_.push_back(MakeField("value", FieldKind::kText, "&Value (empty: the next):"));
  } else {
    Field type = MakeField("type", FieldKind::kCombo, "&Type:");
    type.items = TypeChoices(target_);
    type.text = "String";
    fields_.push_back(std::move(type));
  }
  fields_.push_back(MakeField("preview", FieldKind::kPreview, "Preview:"));
  Changed("");
}

std::string BlockItemDialog::Title() const {
  return std::string(kind_ == BlockKind::kEnum ? kEnumItemDialogTitle : kTypeItemDialogTitle);
}

const Field& BlockItemDialog::F(std::string_view id) const {
  return *FindField(const_cast<std::vector<Field>&>(fields_), id);
}

const scan::Declaration* BlockItemDialog::Block() const {
  const int at = F("block").selected;
  return at >= 0 && at < static_cast<int>(blocks_.size()) ? blocks_[at] : nullptr;
}

std::string BlockItemDialog::Line() const {
  const std::string name(TrimBlanks(F("name").text));
  if (kind_ == BlockKind::kType)
    return target_.indent + name + " As " + std::string(TrimBlanks(F("type").text));
  const std::string value(TrimBlanks(F("value").text));
  return target_.indent + name + (value.empty() ? "" : " = " + value);
}

Insertion BlockItemDialog::Place() const {
  const scan::Declaration* block = Block();
  return {block ? block->end_line : 1, Line()};
}

void BlockItemDialog::Changed(std::string_view) { FindField(fields_, "preview")->text = Line(); }

std::optional<Refusal> BlockItemDialog::Accept() {
  const scan::Declaration* block = Block();
  if (!block) return Refusal{NoBlockMessage(kind_), "block"};
  const std::string name(TrimBlanks(F("name").text));
  const std::string rest(TrimBlanks(kind_ == BlockKind::kEnum ? F("value").text : F("type").text));
  if (auto problem = MemberProblem(name, rest, kind_)) return Refusal{problem->message, "name"};
  if (kind_ == BlockKind::kType && rest.empty()) return Refusal{"Choose or type the type.", "type"};
  for (const scan::Declaration& declaration : target_.module.declarations)
    if (declaration.parent == block->name && EqualsIgnoreCase(declaration.name, name))
      return Refusal{"'" + block->name + "' already has the member '" + declaration.name + "'.",
                     "name"};
  if (kind_ == BlockKind::kEnum)
    if (auto clash = NameClash(target_, name, block->scope)) return Refusal{*clash, "name"};
  return std::nullopt;
}

}  // namespace tavrin::builders
