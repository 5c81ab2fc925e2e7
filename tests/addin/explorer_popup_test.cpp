// The Code Explorer's context bar "CodeExplorerPopUp": built from the
// command table at connection and gone at disconnection; opened on a node of
// the tree, each entry acts on that node.
#include <gtest/gtest.h>

#include <functional>

#include "addin/export_file.h"
#include "addin/tool_documents.h"
#include "builders/scripted_dialog_host.h"
#include "resources/string_table.h"
#include "tests/addin/code_pane_fixture.h"
#include "tests/addin/connect_fixture.h"

namespace tavrin::addin {
namespace {

constexpr std::string_view kMain = "Public Sub Main()\r\n    \r\nEnd Sub";
constexpr std::string_view kHelper = "Private Function Helper() As Long\r\n    Helper = 1\r\nEnd Function";
constexpr std::string_view kOther = "Sub Other()\r\n    Beep\r\nEnd Sub";

std::string ReadText(testing::MemoryFileSystem& files, std::string_view path) {
  auto bytes = files.ReadFile(path);
  return bytes ? *bytes : std::string();
}

class ExplorerPopUpTest : public ConnectTest {
 public:  // reached from the lambdas of case tables
  ExplorerPopUpTest() {
    vbe_->RegisterDocumentClass(ProgIdOf(kCodeExplorerWindow),
                                [] { return std::make_shared<CodeExplorerDocument>(); });
  }
  void SetUp() override {
    project_ = OpenProject();
    project_->AddComponent(ide::ComponentType::kStdModule, "basHelper", kHelper);
    project_->AddComponent(ide::ComponentType::kStdModule, "basOther", kOther);
    ConnectAddin();
    explorer_doc_ = connect_.ExplorerDocument();
    ASSERT_NE(explorer_doc_, nullptr);
  }
  std::shared_ptr<ide::memory::MemoryCommandBar> PopUp() {
    for (const auto& bar : vbe_->MemoryBars()->Bars())
      if (bar->Name() == kCodeExplorerPopUpName) return bar;
    return nullptr;
  }
  // Opens the menu on the node whose place has that component (empty: the
  // project) and member, and clicks the entry of that caption.
  void Click(std::string_view component, std::string_view member, int caption_id) {
    const auto& places = explorer_doc_->Places();
    std::size_t index = 0;
    while (index < places.size() &&
           (places[index].component != component || places[index].member != member))
      ++index;
    ASSERT_LT(index, places.size()) << component << " " << member;
    ASSERT_TRUE(explorer_doc_->ShowContextMenu(index, 10, 20));
    const auto caption = resources::LoadResString(caption_id);
    for (const auto& entry : Entries(*PopUp()))
      if (entry->Caption() == caption) return entry->Execute();
    FAIL() << "no entry " << caption;
  }
  static std::vector<std::shared_ptr<ide::ICommandBarControl>> Entries(ide::ICommandBar& bar) {
    std::vector<std::shared_ptr<ide::ICommandBarControl>> entries;
    const auto controls = bar.Controls();
    for (int i = 1; i <= controls->Count(); ++i) {
      auto control = controls->Item(i);
      if (control->Type() == ide::ControlType::kPopup) {
        for (auto& inner : Entries(*control->CommandBar())) entries.push_back(inner);
      }
      entries.push_back(std::move(control));
    }
    return entries;
  }
  std::string ReadText(std::string_view path) { return addin::ReadText(files_, path); }
  std::string Code(std::string_view component) {
    const auto module = project_->VBComponents()->Item(component)->CodeModule();
    return module->Lines(1, module->CountOfLines());
  }

  std::shared_ptr<ide::memory::MemoryProject> project_;
  CodeExplorerDocument* explorer_doc_ = nullptr;
};

TEST_F(ExplorerPopUpTest, BuiltAtConnectionAndGoneAtDisconnection) {
  ASSERT_NE(PopUp(), nullptr);
  EXPECT_EQ(PopUp()->Position(), ide::BarPosition::kPopup);
  std::vector<std::string> captions;
  for (const auto& entry : Entries(*PopUp())) captions.push_back(entry->Caption());
  EXPECT_EQ(captions, (std::vector<std::string>{
                          "Re&fresh", "Add &Module", "Add Cl&ass...", "Add &Form", "&Remove...",
                          "I&mport File...", "Export File...", "&Print...", "Code to &HTML...",
                          "Add P&rocedure...", "&Add Property...", "&Add", "&Remove",
                          "&Line Numbers"}));
  EXPECT_EQ(PopUp()->PopupsShown(), 0);
  Click("Module1", "", 201);
  EXPECT_EQ(PopUp()->PopupsShown(), 1);
  for (int cycle = 0; cycle < 2; ++cycle) {
    Disconnect();
    EXPECT_EQ(BarsNamed(kCodeExplorerPopUpName), 0);
    ConnectAddin();
    EXPECT_EQ(BarsNamed(kCodeExplorerPopUpName), 1);
  }
  EXPECT_TRUE(ErrorsShown().empty());
}

TEST_F(ExplorerPopUpTest, EntriesActOnTheNodeTheMenuWasOpenedOn) {
  const struct {
    std::string_view component, member;
    int caption_id;
    std::vector<platform::Answer> answers;
    std::function<void(ExplorerPopUpTest&)> check;
  } cases[] = {
      {"", "", 3001, {}, [](auto& t) {
         EXPECT_EQ(t.project_->VBComponents()->Item("Module2")->Type(),
                   ide::ComponentType::kStdModule);
         EXPECT_EQ(t.vbe_->ActiveCodePane()->CodeModule()->Parent()->Name(), "Module2");
       }},
      {"basHelper", "", 3003, {}, [](auto& t) {
         EXPECT_EQ(t.project_->VBComponents()->Item("Form1")->Type(), ide::ComponentType::kVBForm);
       }},
      {"basHelper", "Helper", 177, {}, [](auto& t) {
         EXPECT_NE(t.Code("basHelper"), kHelper);
         EXPECT_EQ(t.Code("basOther"), kOther) << "only the chosen component";
       }},
      {"", "", 177, {}, [](auto& t) {
         EXPECT_NE(t.Code("basOther"), kOther) << "the whole project";
       }},
      {"", "", 178, {}, [](auto& t) {
         EXPECT_EQ(t.Code("basOther"), kOther);
         EXPECT_EQ(t.Code("basHelper"), kHelper);
       }},
      {"basHelper", "Helper", 101, {}, [](auto& t) {
         // The builder runs in the node's code pane.
         EXPECT_EQ(t.vbe_->ActiveCodePane()->CodeModule()->Parent()->Name(), "basHelper");
       }},
      {"Module1", "Main", 3007, {}, [](auto& t) {
         ASSERT_EQ(t.shell_.opened.size(), 1u);
         const std::string page = t.ReadText(t.shell_.opened.back());
         EXPECT_NE(page.find("Main"), std::string::npos);
         EXPECT_EQ(page.find("Helper"), std::string::npos) << "one member: its code alone";
         EXPECT_EQ(page.find("window.print"), std::string::npos);
       }},
      {"basHelper", "", 3006, {}, [](auto& t) {
         const std::string page = t.ReadText(t.shell_.opened.back());
         EXPECT_NE(page.find("Helper"), std::string::npos);
         EXPECT_NE(page.find("window.print()"), std::string::npos);
       }},
      {"basHelper", "", 3002, {platform::Answer::kNo}, [](auto& t) {
         EXPECT_NE(t.project_->VBComponents()->Item("basHelper"), nullptr);
       }},
      {"basHelper", "", 3002, {platform::Answer::kYes}, [](auto& t) {
         EXPECT_THROW(t.project_->VBComponents()->Item("basHelper"), ide::Error);
         for (const MemberPlace& place : t.explorer_doc_->Places())
           EXPECT_NE(place.component, "basHelper") << "the tree followed";
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.component) + " " + std::string(c.member) + " " +
                 std::to_string(c.caption_id));
    ui_.box_answers.assign(c.answers.begin(), c.answers.end());
    Click(c.component, c.member, c.caption_id);
    c.check(*this);
    EXPECT_TRUE(ErrorsShown().empty());
  }
}

// "Export File...": the save dialog offers the component's own file name.
class ExportFileTest : public CodePaneTest {
 protected:
  void SetUp() override {
    vbe_->SetFileSystem(&files_);
    context_.files = &files_;
    context_.dialogs = &host_;
    Open({"Sub Main()", "End Sub"});
    files_.AddFile("/out/taken.bas", "old");
  }
  testing::MemoryFileSystem files_;
  builders::ScriptedDialogHost host_;
};

TEST_F(ExportFileTest, WritesTheFileAndAsksBeforeReplacingOne) {
  using A = builders::DialogAction;
  const auto component = vbe_->ActiveCodePane()->CodeModule()->Parent();
  EXPECT_EQ(ExportFileName(*component), component->Name() + ".bas");
  const struct {
    std::string path;
    std::vector<platform::Answer> answers;
    bool written;
  } cases[] = {
      {"/out/new.bas", {}, true},
      {"/out/taken.bas", {platform::Answer::kNo}, false},
      {"/out/taken.bas", {platform::Answer::kYes}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    ui_.box_answers.assign(c.answers.begin(), c.answers.end());
    host_.Answer("Export File", {A::Text("path", c.path), A::Ok()});
    EXPECT_EQ(ExportFile(context_, *component), c.written);
    const std::string bytes = ReadText(files_, c.path);
    EXPECT_EQ(bytes.find("Sub Main()") != std::string::npos, c.written);
  }
}

}  // namespace
}  // namespace tavrin::addin
