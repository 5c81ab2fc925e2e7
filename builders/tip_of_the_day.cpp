#include "builders/tip_of_the_day.h"

#include <array>

namespace tavrin::builders {
namespace {

constexpr auto kStartupTips = std::to_array<std::string_view>({
    "Every builder is on the Tavrin toolbar and in the \"Tavrin\" menu; the ones that insert "
    "at the caret are also in the code window's context menu under \"Tavrin Insert\".",
    "Add Procedure writes a whole procedure: header, name constant, error handler and return "
    "line, each as your settings say.",
    "Insert Line Of Code writes a call to any procedure of your project, with one box per "
    "argument and a preview of the exact line.",
    "The If, Select, For/While and Do entries insert a block at the caret, indented like the "
    "line you are on, with the caret where you type the condition.",
    "Add Error Handling merges your error-handler template into the procedure at the caret; "
    "the template lives in the ErrorHandlers code folder.",
    "Line numbers: \"Line Numbers\" > \"Add\" numbers the selected lines for Erl, and "
    "\"Remove\" takes them off again.",
    "Select some lines and use \"Comment Lines\" > \"Add\" to comment them out in one go.",
    "View Code Explorer shows every project, module and member in one tree; right-click a "
    "module to export it, print it or see it as a coloured HTML page.",
    "View Shortcuts and Search finds a procedure, variable or constant anywhere in your "
    "projects as you type a few letters of its name.",
    "Verify Shortcuts checks the access keys of the active form and lists the letters used "
    "twice.",
    "Your name, company and the error-handling labels are in Help > Settings; every builder "
    "reads them.",
    "The code folders under vbcode hold your templates, error handlers and library; change "
    "the files there and the builders use them at once.",
});

constexpr auto kVariableTips = std::to_array<std::string_view>({
    "Type the name without a prefix: the builder adds the scope and type prefixes of your "
    "naming settings.",
    "The \"Variable\" menu has one entry per simple type, so a Long counter is two clicks "
    "away.",
    "Prefixes live in tvrtp.ini; change them in Help > Settings under Scope Prefix and "
    "Argument Prefix.",
    "A variable declared in the declarations section is module-wide; declare it in a "
    "procedure to keep it local.",
    "Declare object variables with their class rather than As Object: you get IntelliSense "
    "and early binding.",
    "A Collection variable is created with New when it is declared As New Collection; the "
    "builder writes the declaration, you decide where to create it.",
    "Insert Variable puts a variable you already declared at the caret, picked from the "
    "ones in scope.",
    "Constants have their own builder under \"Constant\", with the file and folder pickers "
    "for paths.",
    "New User-Defined Data Type and New Enum build the type or enum in the declarations "
    "section.",
});

constexpr auto kCodeLineTips = std::to_array<std::string_view>({
    "Pick the module first, then the procedure: the builder shows one box per argument, with "
    "its declared type.",
    "Leave an optional argument empty and it is left out of the call; later ones are named or "
    "kept in place with an empty comma.",
    "Turn on Explicit arguments to write name:=value, which keeps the call readable and safe "
    "when arguments are reordered.",
    "Each argument on a new line writes one argument per continuation line, lined up under "
    "the first.",
    "Include comment writes a comment line above the call naming the procedure and its "
    "description.",
    "A Function's result goes to <New Variable>: the caret stands where you type the "
    "variable's name.",
    "A Function that returns an object is assigned with Set; the builder writes it for you.",
    "The defaults of the check boxes are the \"Lines Of Code Builder\" settings.",
    "Turn off \"Open On Current Project\" to call the procedures of the files in your "
    "Library code folder instead.",
    "GoTo, Resume and On Error GoTo offer the labels of the procedure at the caret; pick "
    "<New Label> to type one yourself.",
    "Debug.Print offers the variables in scope; select an expression in the code first and it "
    "is typed in for you.",
});

constexpr auto kFragmentTips = std::to_array<std::string_view>({
    "Fragments are ordinary code files in the Fragments code folder: add your own with any "
    "editor.",
    "Subfolders of the Fragments folder show as groups in the fragment browser.",
    "Insert Fragment writes the fragment at the caret, indented like the line you are on.",
    "Fragment variables such as your name come from tvrvars.ini and are filled in as the "
    "fragment is inserted.",
    "A fragment can include another one, so common pieces are written once.",
    "Keep a fragment small and focused: a loop over a recordset, a file read, a registry "
    "call.",
    "The Library folder holds whole modules whose procedures Insert Line Of Code can call.",
    "Back up the vbcode folder with your projects: it holds all your templates and "
    "fragments.",
});

constexpr auto kProcedureTips = std::to_array<std::string_view>({
    "The preview shows the exact text that OK inserts, header and error handler included.",
    "The procedure goes below the procedure at the caret, never inside one.",
    "In a standard module the options come from \"Procedure Builder\"; in a class, form or "
    "user control from \"Method Builder\".",
    "Add arguments with Add; each has its own small dialog for its type, ByVal, Optional "
    "and default.",
    "Optional arguments must come after the required ones, and a ParamArray last: the "
    "builder refuses any other order.",
    "Move Up and Move Down reorder the arguments without typing them again.",
    "The header template is the Procedure Header File of your settings; edit it to add your "
    "own fields.",
    "Name constant adds a constant holding the procedure's name, which the error handler "
    "reports.",
    "Return line ends a Function with the assignment of its result, ready to fill in.",
    "Hourglass shows the wait cursor while the procedure runs and restores it on the way "
    "out.",
    "Arguments on separate lines puts every argument after the first on its own "
    "continuation line.",
});

}  // namespace

std::optional<TipSet> TipSetOf(std::string_view name) {
  if (name == "Tavrin_Startup") return TipSet::kStartup;
  if (name == "VarBuilder") return TipSet::kVariableBuilder;
  if (name == "CodelineBuilder") return TipSet::kCodeLineBuilder;
  if (name == "FragmentBuilder") return TipSet::kFragmentBuilder;
  if (name == "ProcBuilder") return TipSet::kProcedureBuilder;
  return std::nullopt;
}

std::span<const std::string_view> TipsOf(TipSet set) {
  switch (set) {
    case TipSet::kStartup:
      return kStartupTips;
    case TipSet::kVariableBuilder:
      return kVariableTips;
    case TipSet::kCodeLineBuilder:
      return kCodeLineTips;
    case TipSet::kFragmentBuilder:
      return kFragmentTips;
    case TipSet::kProcedureBuilder:
      return kProcedureTips;
  }
  return kStartupTips;
}

TipOfTheDayDialog::TipOfTheDayDialog(TipSet set, int first, bool show_at_startup)
    : tips_(TipsOf(set)) {
  const int count = static_cast<int>(tips_.size());
  index_ = ((first % count) + count) % count;
  fields_.push_back(MakeField("heading", FieldKind::kLabel, "Did you know..."));
  fields_.push_back(MakeField("tip", FieldKind::kNote));
  fields_.back().rows = 7;
  fields_.push_back(MakeField("counter", FieldKind::kLabel));
  fields_.push_back(MakeField("startup", FieldKind::kCheck, "&Show tips at start-up"));
  fields_.back().checked = show_at_startup;
  fields_.push_back(MakeField("previous", FieldKind::kButton, "&Previous Tip"));
  fields_.push_back(MakeField("next", FieldKind::kButton, "&Next Tip"));
  Show();
}

void TipOfTheDayDialog::Show() {
  fields_[1].text = std::string(tips_[index_]);
  fields_[2].caption =
      "Tip " + std::to_string(index_ + 1) + " of " + std::to_string(tips_.size());
}

void TipOfTheDayDialog::Pressed(std::string_view id, DialogHost&) {
  const int count = static_cast<int>(tips_.size());
  if (id == "next") index_ = (index_ + 1) % count;
  if (id == "previous") index_ = (index_ + count - 1) % count;
  Show();
}

bool TipOfTheDayDialog::ShowAtStartup() const { return fields_[3].checked; }

}  // namespace tavrin::builders
