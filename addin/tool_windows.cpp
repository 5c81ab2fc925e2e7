#include "addin/tool_windows.h"

#include "addin/tool_documents.h"
#include "resources/string_table.h"

namespace tavrin::addin {
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
  if (auto* document = dynamic_cast<IToolDocument*>(created.document.get()))
    document->Attach(&vbe);
  return created;
}

std::vector<std::pair<std::string, DocumentFactory>> ToolWindowDocumentClasses() {
  return {
      {ProgIdOf(kTabOrderWindow), [] { return std::make_shared<TabOrderDocument>(); }},
      {ProgIdOf(kDirectAccessWindow), [] { return std::make_shared<SearchDocument>(); }},
      {ProgIdOf(kCodeExplorerWindow), [] { return std::make_shared<CodeExplorerDocument>(); }},
  };
}

}  // namespace tavrin::addin
