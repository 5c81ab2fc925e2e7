// The enum and type builders. A new block ("New &Enum...", "New
// &User-Defined Data Type...") goes at the end of the declaration area with
// its members; an item ("Add Constant to En&um...", "Add Item to
// User-Defined Data Ty&pe...") goes before the End line of a block chosen
// from the module's enums or types.
#pragma once

#include <string>
#include <vector>

#include "builders/declaration_target.h"
#include "builders/dialog.h"

namespace tavrin::builders {

inline constexpr std::string_view kEnumDialogTitle = "New Enum";
inline constexpr std::string_view kTypeDialogTitle = "New User-Defined Data Type";
inline constexpr std::string_view kEnumItemDialogTitle = "Add Constant to Enum";
inline constexpr std::string_view kTypeItemDialogTitle = "Add Item to User-Defined Data Type";

enum class BlockKind { kEnum, kType };

// Members typed in one box: one a line or between commas, blanks trimmed,
// empty ones left out.
std::vector<std::string> SplitMembers(std::string_view text);

// Members are typed one per line or separated by commas: "Red, Green = 5"
// for an enum ("Numbered" gives every member its value, counting on from
// the last one given, from "Start" at first), "X As Long, Y As Long" for a
// type (a member without a type is a Variant).
class BlockDialog : public DialogModel {
 public:
  BlockDialog(DeclarationTarget target, BlockKind kind);

  std::string Title() const override;
  std::string HelpTopic() const override { return "variables.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  std::string Code() const;  // the whole block, CR LF between lines
  Insertion Place() const;

 private:
  const Field& F(std::string_view id) const;
  std::vector<std::string> MemberLines() const;

  DeclarationTarget target_;
  BlockKind kind_;
  std::vector<Field> fields_;
};

class BlockItemDialog : public DialogModel {
 public:
  // Shown only when the module has a block of that kind (Blocks() is not
  // empty); the block at the caret, else the first, is chosen at first.
  BlockItemDialog(DeclarationTarget target, BlockKind kind);

  std::string Title() const override;
  std::string HelpTopic() const override { return "variables.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  const std::vector<const scan::Declaration*>& Blocks() const { return blocks_; }
  std::string Line() const;  // "    ecBlue = 3", "    Label As String"
  Insertion Place() const;

 private:
  const Field& F(std::string_view id) const;
  const scan::Declaration* Block() const;

  DeclarationTarget target_;
  BlockKind kind_;
  std::vector<const scan::Declaration*> blocks_;
  std::vector<Field> fields_;
};

// The message when the module has no block to add to.
std::string NoBlockMessage(BlockKind kind);

}  // namespace tavrin::builders
