#include "addin/fragment_commands.h"

#include <cstdio>
#include <memory>
#include <optional>

#include "addin/code_line_commands.h"
#include "addin/code_pane.h"
#include "addin/command_host.h"
#include "base/text.h"
#include "builders/fragment_browser.h"
#include "builders/fragment_editor.h"
#include "fragments/code_folders.h"
#include "platform/portable_profile_file.h"

namespace tavrin::addin {
namespace {

void Tell(Context& context, std::string_view text, platform::Icon icon) {
  context.ui.MessageBox(text, platform::Buttons::kOk, icon, platform::kAppTitle);
}

// The context's profile files, or the portable reader over its files.
class Profiles {
 public:
  explicit Profiles(Context& context) {
    if (context.profiles) {
      profiles_ = context.profiles;
    } else {
      own_ = std::make_unique<platform::PortableProfileFile>(*context.files);
      profiles_ = own_.get();
    }
  }
  platform::ProfileFile& operator*() { return *profiles_; }

 private:
  std::unique_ptr<platform::PortableProfileFile> own_;
  platform::ProfileFile* profiles_ = nullptr;
};

enum class ReferenceOutcome { kPresent, kAdded, kCannotAdd };

std::string_view FileNameOf(std::string_view path) {
  const auto slash = path.find_last_of("\\/");
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

// A reference of "tvrrefra.ini" is a library's name ("ADODB"), its GUID with
// an optional version ("{00000205-0000-0010-8000-00AA006D2EA4}#2.5"), or the
// path of its file. A name alone names no file to add.
ReferenceOutcome AddReference(ide::IReferences& present, std::string_view wanted) {
  const std::string_view guid = wanted.substr(0, wanted.find('#'));
  const bool by_guid = guid.starts_with('{');
  const bool by_path = !by_guid && wanted.find_first_of("\\/.") != std::string_view::npos;
  for (int i = 1; i <= present.Count(); ++i) {
    const auto reference = present.Item(i);
    if (by_guid ? EqualsIgnoreCase(reference->Guid(), guid)
        : by_path ? EqualsIgnoreCase(FileNameOf(reference->FullPath()), FileNameOf(wanted))
                  : EqualsIgnoreCase(reference->Name(), wanted))
      return ReferenceOutcome::kPresent;
  }
  if (by_path) {
    present.AddFromFile(wanted);
    return ReferenceOutcome::kAdded;
  }
  if (!by_guid) return ReferenceOutcome::kCannotAdd;
  int major = 0, minor = 0;
  if (const auto hash = wanted.find('#'); hash != std::string_view::npos) {
    const std::string version(wanted.substr(hash + 1));
    if (std::sscanf(version.c_str(), "%d.%d", &major, &minor) < 1) major = 0;
  }
  present.AddFromGuid(guid, major, minor);
  return ReferenceOutcome::kAdded;
}

// Each non-empty line moved right by the margin.
std::string Indented(std::string_view text, int margin) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitCrLf(text))
    lines.push_back(IsBlankOrEmpty(line) ? std::string(line) : Blanks(margin) + std::string(line));
  return JoinCrLf(lines);
}

// Values for the variables the sources do not define: one dialog, or one
// input box each; nullopt when the user cancels.
std::optional<fragments::VariableValues> Ask(Context& context,
                                             const std::vector<std::string>& names,
                                             const fragments::VariableValues& last) {
  if (context.dialogs) {
    builders::FragmentVariablesDialog dialog(names, last);
    if (!context.dialogs->Show(dialog)) return std::nullopt;
    return dialog.Values();
  }
  fragments::VariableValues values;
  for (const std::string& name : names) {
    const auto found = last.find(ToUpperAscii(name));
    const auto answer = context.ui.InputBox(name + ":", builders::kFragmentVariablesTitle,
                                            found == last.end() ? "" : found->second);
    if (!answer) return std::nullopt;
    values[ToUpperAscii(name)] = *answer;
  }
  return values;
}

}  // namespace

bool InsertFragment(Context& context, const fragments::FragmentEntry& fragment,
                    const fragments::VariableValues& given) {
  if (!context.settings || !context.files) return false;
  if (!IsCodePaneReady(context)) return false;
  Result<std::string> read = fragments::ReadFragmentText(*context.files, fragment.path);
  if (!read) {
    Tell(context, read.error(), platform::Icon::kExclamation);
    return false;
  }
  std::string text = builders::ExpandFragment(TemplateEnvironmentOf(context), std::move(*read),
                                             fragment.include_name);

  Profiles profiles(context);
  const std::string& folder = context.settings->addin_folder;
  fragments::VariableValues values = given;
  const fragments::VariableValues defined = fragments::ReadVariableSection(
      *profiles, *context.files, folder, fragments::kVariablesSection);
  values.insert(defined.begin(), defined.end());  // what was given wins
  std::vector<std::string> unknown;
  for (const std::string& name : fragments::FragmentVariables(text))
    if (!values.count(ToUpperAscii(name))) unknown.push_back(name);
  if (!unknown.empty()) {
    const auto answers =
        Ask(context, unknown,
            fragments::ReadVariableSection(*profiles, *context.files, folder,
                                           fragments::kLastAnswersSection));
    if (!answers) return false;
    if (const Status kept =
            fragments::RememberAnswers(*profiles, *context.files, folder, *answers, unknown);
        !kept)
      Tell(context, kept.error(), platform::Icon::kExclamation);
    values.insert(answers->begin(), answers->end());
  }
  text = fragments::FillVariables(text, values);
  while (text.ends_with("\r\n")) text.resize(text.size() - 2);  // no blank line after it

  const int first = InsertBlock(context, Indented(text, CaretMargin(context)), 0);
  if (first > 0 && text.find(kCursorMarker) != std::string::npos)
    PlaceCursorMarker(context, first, false);

  AddFragmentReferences(
      context, fragment,
      fragments::FragmentReferences(*profiles, *context.files, folder, fragment));
  return first > 0;
}

void AddFragmentReferences(Context& context, const fragments::FragmentEntry& fragment,
                           const std::vector<std::string>& references) {
  if (references.empty()) return;
  const auto project = context.vbe.ActiveVBProject();
  const auto present = project ? project->References() : nullptr;
  std::string added, lacking;
  for (const std::string& reference : references) {
    try {
      switch (present ? AddReference(*present, reference) : ReferenceOutcome::kCannotAdd) {
        case ReferenceOutcome::kPresent: break;
        case ReferenceOutcome::kAdded: added += "\r\n    " + reference; break;
        case ReferenceOutcome::kCannotAdd: lacking += "\r\n    " + reference; break;
      }
    } catch (const ide::Error& error) {
      lacking += "\r\n    " + reference + " (" + error.what() + ")";
    }
  }
  std::string text;
  if (!added.empty())
    text = "The fragment '" + fragment.name + "' needs these references, now added to the project:" +
           added;
  if (!lacking.empty())
    text += (text.empty() ? "" : "\r\n\r\n") + ("The fragment '" + fragment.name +
                                                  "' uses these references:" + lacking +
                                                  "\r\n\r\nAdd the ones the project lacks with "
                                                  "Project > References.");
  if (!text.empty()) Tell(context, text, platform::Icon::kInformation);
}

bool InsertFragmentCommand(Context& context) {
  if (!context.dialogs || !context.settings || !context.files || !IsCodePaneReady(context))
    return false;
  builders::FragmentBrowser browser(context.settings->folders, TemplateEnvironmentOf(context),
                                    *context.files, context.ui);
  browser.selection = FragmentSourceText(context);
  if (!context.dialogs->Show(browser) || !browser.Selected()) return false;
  return InsertFragment(context, *browser.Selected());
}

std::string FragmentSourceText(Context& context) {
  const auto pane = context.vbe.ActiveCodePane();
  if (!pane) return "";
  const auto module = pane->CodeModule();
  const ide::TextRange selection = pane->GetSelection();
  const bool selected = selection.end_line > selection.start_line ||
                        (selection.end_line == selection.start_line &&
                         selection.end_column > selection.start_column);
  if (selected) {
    // Whole lines: a fragment is made of lines.
    int last = selection.end_line;
    if (last > selection.start_line && selection.end_column <= 1) --last;
    return module->Lines(selection.start_line, last - selection.start_line + 1);
  }
  const ide::ProcRef proc = module->ProcOfLine(selection.start_line);
  if (proc.name.empty()) return "";
  const int start = module->ProcStartLine(proc.name, proc.kind);
  return module->Lines(start, module->ProcCountLines(proc.name, proc.kind));
}

bool SaveFragmentCommand(Context& context) {
  if (!context.dialogs || !context.settings || !context.files || !IsCodePaneReady(context))
    return false;
  const std::string text = FragmentSourceText(context);
  if (text.empty()) {
    Tell(context, "Select the lines to save, or put the caret in a procedure.",
         platform::Icon::kInformation);
    return false;
  }
  builders::FragmentEditor editor(context.settings->folders, *context.files, text);
  return context.dialogs->Show(editor);
}

std::string HelpPagePath(const Context& context, std::string_view page) {
  const std::string folder = context.settings ? context.settings->addin_folder : "";
  return fragments::JoinPath({folder, "help", std::string(page)}, platform::NativePathStyle());
}

void RunInsertFragment(CommandHost& host, std::string_view) {
  InsertFragmentCommand(host.CommandContext());
}

void RunSaveFragment(CommandHost& host, std::string_view) {
  SaveFragmentCommand(host.CommandContext());
}

void OpenHelpPage(CommandHost& host, std::string_view page) {
  Context& context = host.CommandContext();
  const std::string path = HelpPagePath(context, page);
  if (context.files && !context.files->FileExists(path)) {
    Tell(context, "The help page '" + path + "' is not installed.", platform::Icon::kExclamation);
    return;
  }
  if (Status opened = host.Shell().OpenDocument(path); !opened)
    Tell(context, opened.error(), platform::Icon::kExclamation);
}

}  // namespace tavrin::addin
