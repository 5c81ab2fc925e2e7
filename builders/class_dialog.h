// The class builder ("Add Cl&ass..."): a new class module named by the
// naming rules, either a plain class with the properties typed in one box
// ("Name As String, Total As Currency"), written by the property
// generator, or a collection class from the user's template with the
// class of its items filled in. Both get the module header and, when
// checked, Option Explicit.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "builders/class_code.h"
#include "builders/declaration_target.h"
#include "builders/dialog.h"
#include "codegen/template_environment.h"
#include "settings/naming.h"
#include "settings/type_prefixes.h"

namespace tavrin::builders {

inline constexpr std::string_view kClassDialogTitle = "Add Class";
inline constexpr std::string_view kPlainClass = "Class";
inline constexpr std::string_view kCollectionClass = "Collection class";

// What the class builder knows of the project the class goes into.
struct ClassTarget {
  std::string project_name;
  std::vector<std::string> component_names;  // every module of the project
  std::vector<std::string> class_modules;    // the project's class modules, the items' choice
  DeclarationTarget declarations;  // the symbols of the open projects, the indent
  // The collection class template's text, nullopt when its file is missing,
  // and the file's path for the message that says so.
  std::optional<std::string> collection_template;
  std::string template_path;
};

// "The collection class template was not found:", the path and where to
// set it, one a line.
std::string MissingTemplateMessage(std::string_view path);

class ClassDialog : public DialogModel {
 public:
  ClassDialog(ClassTarget target, settings::NamingRules rules, settings::TypePrefixTable prefixes,
              codegen::TemplateEnvironment environment);

  std::string Title() const override { return std::string(kClassDialogTitle); }
  std::string HelpTopic() const override { return "classes.html"; }
  std::vector<Field>& Fields() override { return fields_; }
  void Changed(std::string_view id) override;
  std::optional<Refusal> Accept() override;

  bool IsCollection() const;
  // The typed name with the class prefix ("cls", or "col" for a
  // collection; the "Class" and "Collection" rows of the prefix table
  // give other ones).
  std::string DeclaredName() const;
  // The exported .cls file, and its code as the code pane shows it.
  std::string FileText() const;
  std::string Code() const;

 private:
  const Field& F(std::string_view id) const;
  std::vector<PropertySpec> Properties() const;
  ClassSpec Spec() const;
  void Refresh();
  // Picks the class whose name is the collection's in the singular
  // ("colStockItems" holds "clsStockItem") until the user picks one.
  void GuessItemClass();

  bool item_picked_ = false;
  ClassTarget target_;
  settings::NamingRules rules_;
  settings::TypePrefixTable prefixes_;
  codegen::TemplateEnvironment environment_;
  std::vector<Field> fields_;
};

}  // namespace tavrin::builders
