// The entries of the Code Explorer's context menu "CodeExplorerPopUp". Each
// acts on the node the menu was opened on (its component, or its project
// for a project or folder node); the builders and the import run as from
// the add-in's own menu, through the command table, once the node's code
// pane is shown.
#pragma once

#include <string_view>

#include "addin/command_table.h"

namespace tavrin::addin {

class CommandHost;

// Reads every project again.
void RunExplorerRefresh(CommandHost& host, std::string_view);
// Adds a component of that kind ("Module", "Form") to the node's project.
void RunExplorerAdd(CommandHost& host, std::string_view kind);
// Removes the node's component, once the user agrees.
void RunExplorerRemove(CommandHost& host, std::string_view);
void RunExplorerExport(CommandHost& host, std::string_view);
// The node's component (or member) as a coloured page: "Print" opens it
// with the browser's print dialog, anything else only shows it.
void RunExplorerHtml(CommandHost& host, std::string_view print);
// Shows the node's code pane, so the add-in's own command acts on it.
void ShowNodeCode(CommandHost& host);
template <Operation kRun>
void RunOnExplorerNode(CommandHost& host, std::string_view argument) {
  ShowNodeCode(host);
  kRun(host, argument);
}
// "Add" or "Remove": line numbers over the whole component, or over every
// component of the project for a project or folder node.
void RunExplorerLineNumbers(CommandHost& host, std::string_view add_or_remove);

}  // namespace tavrin::addin
