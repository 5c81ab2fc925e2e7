#include "addin/tool_windows.h"

#include "resources/string_table.h"

namespace tavrin::addin {
namespace {

class PlaceholderCodeExplorer : public ICodeExplorerDocument {
 public:
  void Initialize(bool) override { initialized_ = true; }
  bool Initialized() override { return initialized_; }
  bool OnceOpened() override { return false; }
  void VBProjectAdd(std::shared_ptr<ide::IProject>) override {}
  void VBProjectRemove(std::string_view) override {}
  void VBComponentAdd(std::shared_ptr<ide::IComponent>) override {}
  void VBComponentRemove(std::string_view, std::string_view) override {}

 private:
  bool initialized_ = false;
};

class PlaceholderTabOrder : public ITabOrderDocument {
 public:
  void RefreshList(int) override {}
  void ControlAdded(std::shared_ptr<ide::IControl>) override {}
  void ControlRenamed(std::shared_ptr<ide::IControl>, std::string_view, int) override {}
  void ControlRemoved(std::shared_ptr<ide::IControl>) override {}
};

class PlaceholderDirectAccess : public ide::IUserDocument {};

}  // namespace

std::string ProgIdOf(const ToolWindowClass& window_class) {
  return "Tavrin.doc" + std::string(window_class.class_word);
}

ToolWindow CreateToolWindow(ide::IVbe& vbe, std::shared_ptr<ide::IAddIn> add_in,
                            const ToolWindowClass& window_class) {
  ToolWindow created;
  created.window = vbe.Windows()->CreateToolWindow(
      std::move(add_in), ProgIdOf(window_class),
      resources::LoadResString(window_class.caption_id), window_class.guid_position,
      created.document);
  return created;
}

std::vector<std::pair<std::string, DocumentFactory>> ToolWindowDocumentClasses() {
  return {
      {ProgIdOf(kTabOrderWindow), [] { return std::make_shared<PlaceholderTabOrder>(); }},
      {ProgIdOf(kDirectAccessWindow), [] { return std::make_shared<PlaceholderDirectAccess>(); }},
      {ProgIdOf(kCodeExplorerWindow), [] { return std::make_shared<PlaceholderCodeExplorer>(); }},
  };
}

}  // namespace tavrin::addin
