// The class generator: the text of a new class module, as the code pane
// shows it and as its exported .cls file holds it. A plain class gets its
// members and property procedures from the property generator; a
// collection class comes from the user's template with the item class
// filled in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "builders/property_code.h"
#include "codegen/template_environment.h"

namespace tavrin::builders {

// Stands for the class of the items in a collection class template.
inline constexpr std::string_view kItemClassPlaceholder = "{ITEMCLASS}";

struct ClassSpec {
  std::string name;     // "clsOrder"
  std::string header;   // the expanded module header; "" for none
  bool option_explicit = true;
  std::vector<PropertySpec> properties;  // a plain class's
};

// A plain class's code: the header, Option Explicit, the member variables,
// then the property procedures, a blank line between the parts; CR LF, no
// line break after the last line.
std::string PlainClassCode(const ClassSpec& spec);

// The collection class template filled, as a whole .cls file:
// {MODULEHEADER} (or, without it, the header above the first code line),
// {PROJECTNAME}, {ITEMCLASS}, then the placeholders and includes of every
// template with the class as the module; `Attribute VB_Name` is the class's
// name. A template that is only code gets the file header of a new class.
// Option Explicit is added below the header when asked and missing.
std::string FillCollectionTemplate(const codegen::TemplateEnvironment& environment,
                                   std::string_view template_text, const ClassSpec& spec,
                                   std::string_view item_class, std::string_view project_name);

// The exported .cls file of a new class holding `code`.
std::string ClassFileText(std::string_view name, std::string_view code);

// A .cls file's code as the code pane shows it: the file header and the
// Attribute lines the IDE hides left out.
std::string CodePaneText(std::string_view file_text);

}  // namespace tavrin::builders
