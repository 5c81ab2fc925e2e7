#include "builders/about_dialog.h"

#include "resources/string_table.h"
#include "resources/toolbar_pictures.h"
#include "tavrin_version.h"

namespace tavrin::builders {
namespace {

constexpr std::string_view kDescription =
    "Builds Visual Basic code in your own naming convention: procedures, call lines, "
    "statement blocks and error handlers, inserted at the caret.";
constexpr std::string_view kCredits =
    "Written by the Tavrin developers.\r\n"
    "The add-in uses only the C++ standard library and the Windows API; the command-line "
    "tool uses CLI11 and JSON for Modern C++ (nlohmann/json); the tests use GoogleTest.\r\n";

std::string Credits() {
  return std::string(kCredits) +
         std::string(resources::LoadResString(resources::kPictureCreditId));
}

Field Text(std::string id, FieldKind kind, std::string_view text, int rows = 1) {
  Field field = MakeField(std::move(id), kind);
  field.text = std::string(text);
  field.rows = rows;
  return field;
}

}  // namespace

std::string ProductAndVersion() { return std::string("Tavrin ") + TAVRIN_VERSION; }

AboutDialog::AboutDialog() {
  fields_.push_back(Text("product", FieldKind::kLabel, ProductAndVersion()));
  fields_.back().caption = fields_.back().text;
  fields_.push_back(Text("description", FieldKind::kNote, kDescription, 2));
  fields_.push_back(MakeField("credits_heading", FieldKind::kLabel, "Credits"));
  fields_.push_back(Text("credits", FieldKind::kNote, Credits(), 6));
}

std::string AboutText() {
  return ProductAndVersion() + "\r\n\r\n" + std::string(kDescription) + "\r\n\r\n" +
         Credits();
}

}  // namespace tavrin::builders
