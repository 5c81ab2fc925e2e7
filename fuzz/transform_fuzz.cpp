// Line numbers, comment marks and code to HTML over arbitrary code and a
// selection taken from the input:
// - comment marks added then removed give back the code and the selection;
// - numbering twice equals numbering once;
// - the page fragment holds no "<" of the input, only its own tags.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "base/text.h"
#include "fuzz/fuzz_support.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_component.h"
#include "ide/memory/memory_project.h"
#include "ide/memory/memory_vbe.h"
#include "transform/code_to_html.h"
#include "transform/comment_lines.h"
#include "transform/line_numbering.h"
#include "transform/pane_transforms.h"

namespace {

using namespace tavrin;

std::vector<std::string> Strings(std::string_view code) {
  std::vector<std::string> lines;
  for (std::string_view line : SplitAnyLineBreak(code)) lines.emplace_back(line);
  return lines;
}

void CheckNumbering(const std::vector<std::string>& lines, unsigned char selector) {
  const long long start = selector % 7;
  const auto once = transform::AddedLineNumbers(lines, "", 1, start);
  const auto twice = transform::AddedLineNumbers(once, "", 1, start);
  // A line left unnumbered that still starts with digits ("1 00y" loses its
  // "1 ") would lose them on the next pass: no Visual Basic statement starts
  // with two numbers.
  const bool two_numbers = std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    const std::string once_stripped = transform::StripLineNumber(line);
    return transform::StripLineNumber(once_stripped) != once_stripped;
  });
  if (!two_numbers) fuzz::Check(once == twice, "numbering twice equals numbering once");
  // Removal takes off one number per line ("100:00: x" keeps "00: x"), so
  // it is exercised, not compared.
  transform::RemovedLineNumbers(once);
}

void CheckHtml(std::string_view code) {
  std::string html = transform::ConvertCodeToHtml(code);
  for (std::string_view tag : {transform::kFunctionWordFont, transform::kKeywordFont,
                               transform::kCommentFont, std::string_view("</font>"),
                               std::string_view("<br>")})
    html = ReplaceAll(html, tag, "");
  fuzz::Check(html.find('<') == std::string::npos, "no unescaped '<' in the page");
}

// Comment marks over the module in the in-memory IDE, with a selection the
// input chooses.
void CheckCommentRoundTrip(std::string_view code, unsigned char selector) {
  const auto vbe = ide::memory::MemoryVbe::Create();
  const auto component =
      vbe->AddProject("Project1")->AddComponent(ide::ComponentType::kStdModule, "Module1", code);
  const auto pane = component->CodePane();
  pane->Show();
  const auto module = component->CodeModule();
  const int count = module->CountOfLines();
  if (count == 0) return;
  // Selections inside the module, as the IDE keeps them.
  const int first = 1 + selector % count;
  const int last = first + (selector / 16) % (count - first + 1);
  const ide::TextRange selection{first, 1 + selector % 5, last, 1 + (selector / 4) % 9};
  try {
    pane->SetSelection(selection);
  } catch (const ide::Error&) {
    return;  // a selection the IDE refuses
  }
  const std::string before = module->Lines(1, count);
  const ide::TextRange selected = pane->GetSelection();
  transform::AddCommentMarks(*pane);
  transform::RemoveCommentMarks(*pane);
  fuzz::Check(module->Lines(1, count) == before, "comment marks added then removed");
  fuzz::Check(pane->GetSelection() == selected, "the selection comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::Input input = fuzz::TakeSelector(data, size);
  const std::vector<std::string> lines = Strings(input.rest);

  fuzz::Check(transform::RemovedCommentMarks(transform::AddedCommentMarks(lines)).lines == lines,
              "comment marks added then removed give the lines back");
  CheckNumbering(lines, input.selector);
  CheckHtml(input.rest);
  CheckCommentRoundTrip(input.rest, input.selector);
  return 0;
}
