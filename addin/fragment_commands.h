// The fragment library's commands: "Insert Fragme&nt..." (the browser, the
// variables, the text at the caret, the references the fragment needs),
// saving code as a new fragment, and the help book.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "addin/context.h"
#include "fragments/fragment_library.h"
#include "platform/file_system.h"

namespace tavrin::addin {

class CommandHost;

// Inserts the fragment at the caret: expanded (placeholders, includes),
// its variables filled from `given`, then "tvrvars.ini" [Variables], then
// asked in one dialog (or input boxes without a dialog host) with the last
// answers remembered; indented to the caret's margin. The references it
// needs are named to the user (the IDE model has no references to add them
// to). False when nothing was inserted; the reason has been shown.
bool InsertFragment(Context& context, const fragments::FragmentEntry& fragment,
                    const fragments::VariableValues& given = {});

// The one place that gives the active project the references a fragment
// needs ("tvrrefra.ini"): those given by GUID or file are added when the
// project lacks them; the user is told what was added and what to add by
// hand (a library named only, or one the IDE refused).
void AddFragmentReferences(Context& context, const fragments::FragmentEntry& fragment,
                           const std::vector<std::string>& references);

// "Insert Fragme&nt...": the browser, then InsertFragment.
bool InsertFragmentCommand(Context& context);

// The selection of the active code pane, or the procedure at the caret when
// nothing is selected: the text a new fragment is made of.
std::string FragmentSourceText(Context& context);

// "Export File...": the fragment editor over FragmentSourceText.
bool SaveFragmentCommand(Context& context);

// The help book beside the add-in: "<add-in folder>/help/<page>".
std::string HelpPagePath(const Context& context, std::string_view page);

// Operations of the command table.
void RunInsertFragment(CommandHost& host, std::string_view);
void RunSaveFragment(CommandHost& host, std::string_view);
// Opens a page of the help book in the user's browser.
void OpenHelpPage(CommandHost& host, std::string_view page);

}  // namespace tavrin::addin
