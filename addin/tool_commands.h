// The code transformations and form tools as the host's click handlers call
// them: one function per command, each trapping its own errors (an IDE
// failure is shown to the user, nothing escapes to the host).
#pragma once

#include <memory>
#include <string_view>

#include "addin/context.h"
#include "transform/html_page.h"

namespace tavrin::addin {

inline constexpr int kLineNumbersAdd = 0;
inline constexpr int kLineNumbersRemove = 1;

// Adds (mode 0) or removes (mode 1) line numbers over the active pane's
// selection; nothing without an active code pane or for another mode.
void LineNumbersCommand(Context& context, int mode);

inline constexpr std::string_view kCommentLinesAdd = "Comment Lines Add";
inline constexpr std::string_view kCommentLinesRemove = "Comment Lines Remove";

// "Comment Lines Add" or "Comment Lines Remove" on the active pane; false
// for another command name. The caller checks IsCodePaneReady first.
bool CommentLinesCommand(Context& context, std::string_view command_name);

// The module's code, or one procedure's when procedure_name is not empty,
// as a coloured page in the user's browser; with `print`, the page opens
// the browser's print dialog once loaded.
void ConvertToHtmlCommand(Context& context, transform::HtmlPageServices& services,
                          ide::IComponent& component, std::string_view procedure_name,
                          bool print = false);

// The access-key check of the form in the active designer window.
void VerifyShortcutsCommand(Context& context);

}  // namespace tavrin::addin
