// "Add Cl&ass..." clicked in the test host: the class builder filled
// through its controls, a plain class and then a collection class added to
// the project over COM (VBComponents.Add, Name), each saved as a PNG.
#include <filesystem>
#include <fstream>

#include "resources/default_files.h"
#include "tests/win/host/host_dialogs_fixture.h"

namespace tavrin::test_host {
namespace {

using ClassBuilderDialogTest = HostDialogsTest;

// The collection class template in the add-in's code folders for the time
// of a test: the folder beside the binaries holds no code folders.
class TemplateFile {
 public:
  TemplateFile() : path_(win::WideToUtf8(ExeFolder()) + "vbcode/Templates/CollectionClass") {
    std::filesystem::create_directories(path_);
    path_ /= "CollectionClass.cls";
    for (const resources::EmbeddedFile& file : resources::DefaultAddinFiles())
      if (file.path.ends_with("CollectionClass.cls"))
        std::ofstream(path_, std::ios::binary).write(file.bytes.data(), file.bytes.size());
  }
  ~TemplateFile() { std::filesystem::remove(path_); }

 private:
  std::filesystem::path path_;
};

std::string CodeOf(ide::IProject& project, std::string_view name) {
  const auto module = project.VBComponents()->Item(name)->CodeModule();
  return module->Lines(1, module->CountOfLines());
}

TEST_F(ClassBuilderDialogTest, AddsAPlainClassThenACollectionOfIt) {
  const TemplateFile template_file;
  Connect("Option Explicit\r\n", 1);
  const auto project = component_->Project();
  HWND dialog = nullptr;
  DialogRobot plain({
      [&] {
        if (!Opened(dialog, L"Add Class", main_window_.get())) return false;
        Screenshot(dialog, L"add-class");
        TypeInto(ControlOf(dialog, L"&Name:"), L"Order");
        TypeInto(ControlOf(dialog, L"&Properties (Name As String, Total As Long):"),
                 L"Number As Long\r\nCustomer As String\r\nTotal As Currency");
        return true;
      },
      [&] {
        Screenshot(dialog, L"add-class-filled");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("Add Cl&ass...");
  ASSERT_TRUE(plain.Finished() && !plain.GaveUp()) << plain.StepsDone();
  const std::string order = CodeOf(*project, "clsOrder");
  // One property a line, each with its member (prefixed as the prefix
  // table beside the binaries says).
  EXPECT_TRUE(order.starts_with("Option Explicit\r\n\r\nPrivate m")) << order;
  for (const char* part : {"Property Get Number() As Long", "Property Let Customer(ByVal v",
                           "Property Let Total(ByVal v"})
    EXPECT_NE(order.find(part), std::string::npos) << order;
  EXPECT_EQ(memory_->ActiveCodePane()->CodeModule()->Parent()->Name(), "clsOrder");

  DialogRobot collection({
      [&] {
        if (!Opened(dialog, L"Add Class", main_window_.get())) return false;
        TypeInto(ControlOf(dialog, L"&Name:"), L"Orders");
        PickItem(ControlOf(dialog, L"&Kind:"), 1);
        return true;
      },
      [&] {
        Screenshot(dialog, L"add-class-collection");
        ClickButton(ChildWithText(dialog, L"OK"));
        return true;
      },
  });
  Click("Add Cl&ass...");
  ASSERT_TRUE(collection.Finished() && !collection.GaveUp()) << collection.StepsDone();
  // The item class is the one named like the collection in the singular.
  const std::string orders = CodeOf(*project, "colOrders");
  EXPECT_NE(orders.find("Public Property Get Item(ByVal Index As Variant) As clsOrder"),
            std::string::npos)
      << orders;
  EXPECT_EQ(orders.find("Attribute"), std::string::npos) << "hidden by the IDE";
}

}  // namespace
}  // namespace tavrin::test_host
