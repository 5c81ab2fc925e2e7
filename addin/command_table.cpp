#include "addin/command_table.h"

#include <algorithm>
#include <array>

#include "addin/class_builder.h"
#include "addin/command_host.h"
#include "addin/control_builder.h"
#include "addin/declaration_builders.h"
#include "addin/explicit_arguments.h"
#include "addin/explorer_commands.h"
#include "addin/export_file.h"
#include "addin/fragment_commands.h"
#include "addin/import_file.h"
#include "addin/insert_variable.h"
#include "addin/select_enum_command.h"
#include "addin/tool_commands.h"

namespace tavrin::addin {
namespace {

using ide::ControlType;

enum Flags : unsigned {
  kPlain = 0,
  kPicture = 1,
  kGroup = 2,        // a separator before the control
  kTestingOnly = 4,  // only with the testing flag
};

constexpr CommandRow Entry(int depth, int caption_id, unsigned flags, std::string_view handler,
                           Operation run = nullptr, std::string_view argument = {},
                           ControlType type = ControlType::kButton) {
  CommandRow row;
  row.depth = depth;
  row.type = type;
  row.caption_id = caption_id;
  row.picture = (flags & kPicture) != 0;
  row.begin_group = (flags & kGroup) != 0;
  row.testing_only = (flags & kTestingOnly) != 0;
  row.handler = handler;
  row.run = run;
  row.argument = argument;
  return row;
}

constexpr CommandRow Popup(int depth, int caption_id, unsigned flags = kPlain) {
  return Entry(depth, caption_id, flags, {}, nullptr, {}, ControlType::kPopup);
}

constexpr CommandRow InCodeWindow(CommandRow row) {
  row.bar = CommandBarRoot::kCodeWindow;
  return row;
}

constexpr CommandRow InExplorerPopUp(CommandRow row) {
  row.bar = CommandBarRoot::kCodeExplorerPopUp;
  return row;
}


// Screen order. Toolbar buttons run handlers with the plain name; the same
// command's menu entry has "TVR" after "mnuh". The type-named entries of
// the Variable, Constant and Property menus share captions 127-138.
constexpr auto kTable = std::to_array<CommandRow>({
    // The toolbar's buttons.
    Entry(0, 103, kPicture, "mnuhAddVariable_Click", RunAddVariable),
    Entry(0, 102, kPicture, "mnuhAddConstant_Click", RunAddConstant),
    Entry(0, 105, kPicture, "mnuhAddProperty_Click", RunAddProperty),
    Entry(0, 183, kPicture, "mnuhControlAdd_Click", RunAddControls),
    Entry(0, 182, kPicture, "mnuhInsertVariable_Click", RunInsertVariable),
    Entry(0, 101, kPicture | kGroup, "mnuhAddProcedure_Click", RunAddProcedure),
    Entry(0, 104, kPicture, "mnuhAddClass_Click", RunAddClass),
    Entry(0, 106, kPicture | kGroup, "mnuhCodeLines_Click", RunCodeLineBuilder),
    Entry(0, 181, kPicture, "mnuhFragmentAdd_Click", RunInsertFragment),
    Entry(0, 194, kPicture | kGroup, "mnuhDirectAccess_Click", RunShowToolWindow, "DirectAccess"),
    Entry(0, 195, kPicture, "mnuhCodeExplorer_Click", RunShowToolWindow, "CodeExplorer"),

    // "&Tavrin": every command.
    Popup(0, 122, kGroup),
    Popup(1, 123),  // "&Variable"
    Entry(2, 127, kPlain, "mnuhDimString_Click", RunAddVariable, "String"),
    Entry(2, 128, kPlain, "mnuhDimByte_Click", RunAddVariable, "Byte"),
    Entry(2, 129, kPlain, "mnuhDimBoolean_Click", RunAddVariable, "Boolean"),
    Entry(2, 130, kPlain, "mnuhDimInteger_Click", RunAddVariable, "Integer"),
    Entry(2, 131, kPlain, "mnuhDimLong_Click", RunAddVariable, "Long"),
    Entry(2, 132, kPlain, "mnuhDimSingle_Click", RunAddVariable, "Single"),
    Entry(2, 133, kPlain, "mnuhDimDouble_Click", RunAddVariable, "Double"),
    Entry(2, 134, kPlain, "mnuhDimCurrency_Click", RunAddVariable, "Currency"),
    Entry(2, 135, kPlain, "mnuhDimDate_Click", RunAddVariable, "Date"),
    Entry(2, 136, kPlain, "mnuhDimVariant_Click", RunAddVariable, "Variant"),
    Entry(2, 137, kPlain, "mnuhDimObject_Click", RunAddVariable, "Object"),
    Entry(2, 138, kPlain, "mnuhDimCollection_Click", RunAddVariable, "Collection"),
    Entry(2, 145, kPlain, "mnuhTypeNew_Click", RunNewBlock, "Type"),
    Entry(2, 146, kPlain, "mnuhTypeAddItem_Click", RunAddBlockItem, "Type"),
    Entry(2, 103, kPicture | kGroup, "mnuhDimAdd_Click", RunAddVariable),
    Popup(1, 124),  // "&Constant"
    Entry(2, 127, kPlain, "mnuhConstString_Click", RunAddConstant, "String"),
    Entry(2, 128, kPlain, "mnuhConstByte_Click", RunAddConstant, "Byte"),
    Entry(2, 129, kPlain, "mnuhConstBoolean_Click", RunAddConstant, "Boolean"),
    Entry(2, 130, kPlain, "mnuhConstInteger_Click", RunAddConstant, "Integer"),
    Entry(2, 131, kPlain, "mnuhConstLong_Click", RunAddConstant, "Long"),
    Entry(2, 132, kPlain, "mnuhConstSingle_Click", RunAddConstant, "Single"),
    Entry(2, 133, kPlain, "mnuhConstDouble_Click", RunAddConstant, "Double"),
    Entry(2, 134, kPlain, "mnuhConstCurrency_Click", RunAddConstant, "Currency"),
    Entry(2, 135, kPlain, "mnuhConstDate_Click", RunAddConstant, "Date"),
    Entry(2, 170, kPlain, "mnuhFilename_Click", RunAddPathConstant, "File"),
    Entry(2, 171, kPlain, "mnuhFolder_Click", RunAddPathConstant, "Folder"),
    Entry(2, 147, kPlain, "mnuhEnumNew_Click", RunNewBlock, "Enum"),
    Entry(2, 148, kPlain, "mnuhEnumAddItem_Click", RunAddBlockItem, "Enum"),
    Entry(2, 102, kPicture | kGroup, "mnuhConstAdd_Click", RunAddConstant),
    Popup(1, 125),  // "&Property"
    Entry(2, 127, kPlain, "mnuhPropString_Click", RunAddProperty, "String"),
    Entry(2, 128, kPlain, "mnuhPropByte_Click", RunAddProperty, "Byte"),
    Entry(2, 129, kPlain, "mnuhPropBoolean_Click", RunAddProperty, "Boolean"),
    Entry(2, 130, kPlain, "mnuhPropInteger_Click", RunAddProperty, "Integer"),
    Entry(2, 131, kPlain, "mnuhPropLong_Click", RunAddProperty, "Long"),
    Entry(2, 132, kPlain, "mnuhPropSingle_Click", RunAddProperty, "Single"),
    Entry(2, 133, kPlain, "mnuhPropDouble_Click", RunAddProperty, "Double"),
    Entry(2, 134, kPlain, "mnuhPropCurrency_Click", RunAddProperty, "Currency"),
    Entry(2, 135, kPlain, "mnuhPropDate_Click", RunAddProperty, "Date"),
    Entry(2, 136, kPlain, "mnuhPropVariant_Click", RunAddProperty, "Variant"),
    Entry(2, 137, kPlain, "mnuhPropObject_Click", RunAddProperty, "Object"),
    Entry(2, 138, kPlain, "mnuhPropCollection_Click", RunAddProperty, "Collection"),
    Entry(2, 105, kPicture | kGroup, "mnuhPropAdd_Click", RunAddProperty),
    Entry(1, 182, kPicture | kGroup, "mnuhTVRInsertVariable_Click", RunInsertVariable),
    Entry(1, 193, kPlain, "mnuhTVRExplicitArgument_Click", RunExplicitArguments),
    Entry(1, 139, kPlain, "mnuhWith_Click", RunCodeLines, "With"),
    Entry(1, 106, kPicture | kGroup, "mnuhTVRCodeLines_Click", RunCodeLineBuilder),
    Entry(1, 101, kPicture, "mnuhTVRAddProcedure_Click", RunAddProcedure),
    Entry(1, 104, kPicture, "mnuhTVRAddClass_Click", RunAddClass),
    Entry(1, 183, kPicture | kTestingOnly, "mnuhTVRAddControl_Click", RunAddControls),
    Popup(1, 140, kGroup),  // "&If"
    Entry(2, 154, kPlain, "mnuhIfThen_Click", RunCodeLines, "If Then"),
    Entry(2, 155, kPlain, "mnuhIfThenElse_Click", RunCodeLines, "If Then Else"),
    Entry(2, 156, kPlain, "mnuhIfThenElseIf_Click", RunCodeLines, "If Then Else If"),
    Entry(2, 157, kPlain, "mnuhIfThenElseIfElse_Click", RunCodeLines, "If Then ElseIf Else"),
    Popup(1, 141),  // "&Select"
    Entry(2, 158, kPlain, "mnuhSelectCase_Click", RunCodeLines, "Select Case"),
    Entry(2, 159, kPlain, "mnuhSelectCaseElse_Click", RunCodeLines, "Select Case Else"),
    Entry(2, 169, kPlain, "mnuhSelectCaseUcase_Click", RunCodeLines, "Select Case UCase"),
    Entry(2, 160, kPlain, "mnuhSelectFromCustomEnum_Click", RunSelectFromEnum),
    Popup(1, 142),  // "&For/While"
    Entry(2, 163, kPlain, "mnuhForEachNext_Click", RunCodeLines, "ForEachNext"),
    Entry(2, 164, kPlain, "mnuhForNext_Click", RunCodeLines, "ForNext"),
    Entry(2, 143, kPlain, "mnuhWhile_Click", RunCodeLines, "While"),
    Popup(2, 144),  // "D&o"
    Entry(3, 161, kPlain, "mnuhDoLoopWhile_Click", RunCodeLines, "IfDoLoopWhile"),
    Entry(3, 162, kPlain, "mnuhDoLoopUntil_Click", RunCodeLines, "IfDoLoopUntil"),
    Entry(1, 153, kPlain, "mnuhGoto_Click", RunCodeLines, "GoTo"),
    Popup(1, 149),  // "&Error"
    Entry(2, 150, kPlain, "mnuhErrorGotoLabel_Click", RunCodeLines, "On Error GoTo"),
    Entry(2, 151, kPlain, "mnuhErrorResumeNext_Click", RunCodeLines, "On Error Resume Next"),
    Entry(2, 152, kPlain, "mnuhErrorGoto0_Click", RunCodeLines, "On Error GoTo 0"),
    Entry(2, 168, kPlain, "mnuhErrorResume_Click", RunCodeLines, "Resume"),
    // Added as a drop-down, not a button, and kept so: users know it so.
    Entry(2, 167, kGroup, "mnuhErrorHandling_Click", RunCodeLines, "ErrorHandling",
          ControlType::kDropdown),
    Popup(2, 188, kGroup),  // "&Line Numbers"
    Entry(3, 177, kPlain, "mnuhLineNumbersAdd_Click", RunLineNumbers, "Add"),
    Entry(3, 178, kPlain, "mnuhLineNumbersRemove_Click", RunLineNumbers, "Remove"),
    Popup(2, 189, kGroup),  // "&Comment Lines"
    Entry(3, 177, kPlain, "mnuhCommentLinesAdd_Click", RunCommentLines, kCommentLinesAdd),
    Entry(3, 178, kPlain, "mnuhCommentLinesRemove_Click", RunCommentLines,
          kCommentLinesRemove),
    Entry(2, 190, kGroup, "mnuhDebugPrint_Click", RunCodeLines, "Debug.Print "),
    Entry(1, 166, kPlain, "mnuhExit_Click", RunCodeLines, "Exit"),
    Entry(1, 181, kPicture | kGroup, "mnuhTVRAddFragment_Click", RunInsertFragment),
    Entry(1, 184, kPlain, "mnuhTVRImportFile_Click", RunImportFile),
    Entry(1, 185, kPlain, "mnuhTVRExportFile_Click", RunExportFile),
    Popup(1, 186, kGroup),  // "&Tools"
    Entry(2, 191, kPlain, "mnuhVerifyShortcuts_Click", RunVerifyShortcuts),
    Entry(2, 192, kPlain, "mnuhTabOrder_Click", RunShowToolWindow, "TabOrder"),
    Entry(2, 194, kPicture, "mnuhShortcutsAndSearch_Click", RunShowToolWindow, "DirectAccess"),
    Entry(2, 195, kPicture, "mnuhTVRCodeExplorer_Click", RunShowToolWindow, "CodeExplorer"),

    // "Hel&p".
    Popup(0, 110, kGroup),
    Entry(1, 111, kPicture, "mnuhHelpContents_Click", OpenHelpPage, "index.html"),
    Popup(1, 196),  // "&Tip of the Day"
    Entry(2, 197, kPlain, "mnuhTipOfTheDayTavrinStartup_Click", RunTipOfTheDay, "Tavrin_Startup"),
    Entry(2, 198, kPlain, "mnuhTipOfTheDayVarBuilder_Click", RunTipOfTheDay, "VarBuilder"),
    Entry(2, 199, kPlain, "mnuhTipOfTheDayCodelineBuilder_Click", RunTipOfTheDay, "CodelineBuilder"),
    Entry(2, 200, kPlain, "mnuhTipOfTheDayFragmentBuilder_Click", RunTipOfTheDay, "FragmentBuilder"),
    Entry(2, 401, kPlain, "mnuhTipOfTheDayProcBuilder_Click", RunTipOfTheDay, "ProcBuilder"),
    Entry(1, 109, kPlain, "mnuhSetting_Click", RunSettingsDialog),
    Popup(1, 115, kGroup),  // "&Website"
    // Until the product has a site, the Website entries open pages of the
    // help book that ships with the add-in, so none of them can be dead.
    Entry(2, 117, kPlain, "mnuhWebSiteNewVersion_Click", OpenHelpPage, "website-version.html"),
    Entry(2, 119, kPlain, "mnuhWebSiteSupport_Click", OpenHelpPage, "website-support.html"),
    Entry(2, 120, kPlain, "mnuhWebSiteDownloads_Click", OpenHelpPage, "website-downloads.html"),
    Entry(2, 121, kPlain, "mnuhWebSiteVBDir_Click", OpenHelpPage, "website-vbdirectory.html"),
    Entry(1, 116, kPlain, "mnuhAbout_Click", RunAbout),

    // "Tavrin Insert" in the code window's context menu: the builders that
    // insert at the caret.
    InCodeWindow(Popup(0, kTavrinInsertCaption, kGroup)),
    InCodeWindow(Entry(1, 106, kPicture, "mnuhTVRCodeLines_Click", RunCodeLineBuilder)),
    InCodeWindow(Entry(1, 181, kPicture, "mnuhTVRAddFragment_Click", RunInsertFragment)),
    // The fragment editor by itself, over the selection or the procedure.
    InCodeWindow(Entry(1, 2014, kPlain, "mnuhTVRSaveFragment_Click", RunSaveFragment)),
    InCodeWindow(Entry(1, 182, kPicture, "mnuhTVRInsertVariable_Click", RunInsertVariable)),
    InCodeWindow(Entry(1, 101, kPicture, "mnuhTVRAddProcedure_Click", RunAddProcedure)),

    // "CodeExplorerPopUp": the Code Explorer's context menu, acting on the
    // node it was opened on. The builders and the import are the table's
    // own commands, run once the node's code is shown.
    InExplorerPopUp(Entry(0, 201, kPicture, "mnuhCodeExplorerRefresh_Click", RunExplorerRefresh)),
    InExplorerPopUp(Entry(0, 3001, kPicture | kGroup, "mnuhCodeExplorerAddModule_Click",
                          RunExplorerAdd, "Module")),
    InExplorerPopUp(Entry(0, 104, kPicture, "mnuhCodeExplorerAddClass_Click",
                          RunOnExplorerNode<RunAddClass>)),
    InExplorerPopUp(Entry(0, 3003, kPlain, "mnuhCodeExplorerAddForm_Click", RunExplorerAdd,
                          "Form")),
    InExplorerPopUp(Entry(0, 3002, kPicture, "mnuhCodeExplorerRemove_Click", RunExplorerRemove)),
    InExplorerPopUp(Entry(0, 184, kGroup, "mnuhCodeExplorerImportFile_Click",
                          RunOnExplorerNode<RunImportFile>)),
    InExplorerPopUp(Entry(0, 185, kPlain, "mnuhCodeExplorerExportFile_Click", RunExplorerExport)),
    InExplorerPopUp(Entry(0, 3006, kPicture | kGroup, "mnuhCodeExplorerPrint_Click",
                          RunExplorerHtml, "Print")),
    InExplorerPopUp(Entry(0, 3007, kPicture, "mnuhCodeExplorerToHtml_Click", RunExplorerHtml)),
    InExplorerPopUp(Entry(0, 101, kPicture | kGroup, "mnuhCodeExplorerAddProcedure_Click",
                          RunOnExplorerNode<RunAddProcedure>)),
    InExplorerPopUp(Entry(0, 105, kPicture, "mnuhCodeExplorerAddProperty_Click",
                          RunOnExplorerNode<RunAddProperty>)),
    InExplorerPopUp(Popup(0, 188, kGroup)),  // "&Line Numbers"
    InExplorerPopUp(Entry(1, 177, kPlain, "mnuhCodeExplorerLineNumbersAdd_Click",
                          RunExplorerLineNumbers, "Add")),
    InExplorerPopUp(Entry(1, 178, kPlain, "mnuhCodeExplorerLineNumbersRemove_Click",
                          RunExplorerLineNumbers, "Remove")),
});

}  // namespace

std::span<const CommandRow> CommandTable() { return kTable; }

const CommandRow* FindCommand(std::string_view handler) {
  if (handler.empty()) return nullptr;  // pop-ups have no handler
  const auto found = std::find_if(kTable.begin(), kTable.end(),
                                  [&](const CommandRow& row) { return row.handler == handler; });
  return found == kTable.end() ? nullptr : &*found;
}

}  // namespace tavrin::addin
