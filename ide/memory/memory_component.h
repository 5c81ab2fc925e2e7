// A component of an in-memory project: one source file, its code module,
// code pane, code window and (for forms and the like) designer and designer
// window.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"
#include "ide/memory/memory_code_pane.h"
#include "ide/memory/memory_window.h"
#include "ide/memory/source_file.h"
#include "ide/object_model.h"
#include "platform/file_system.h"

namespace tavrin::ide::memory {

class MemoryCodeModule;
class MemoryDesigner;
class MemoryProject;
class MemoryVbe;

class MemoryComponent : public IComponent, public std::enable_shared_from_this<MemoryComponent> {
 public:
  struct Token {};  // construction goes through Create
  MemoryComponent(Token, std::weak_ptr<MemoryProject> project, std::weak_ptr<MemoryVbe> vbe,
                  ComponentType type, std::string name, std::string file_path,
                  SourceFile source);

  static std::shared_ptr<MemoryComponent> Create(std::weak_ptr<MemoryProject> project,
                                                 std::weak_ptr<MemoryVbe> vbe,
                                                 ComponentType type, std::string name,
                                                 std::string file_path, SourceFile source);

  std::string Name() override { return name_; }
  ComponentType Type() override { return type_; }
  std::shared_ptr<ICodeModule> CodeModule() override;
  std::shared_ptr<IDesigner> Designer() override;
  std::shared_ptr<IProject> Project() override;
  // Also rewrites the name in the file's header; raises ItemRenamed.
  void SetName(std::string_view name) override;
  // The bytes Save would write.
  void Export(std::string_view path) override;

  // A component the IDE cannot open (a designer whose control is missing, a
  // locked project): CodeModule and Designer raise an error, as such a
  // component does in the IDE, while its name and type stay readable.
  void SetUnreadable(bool unreadable) { unreadable_ = unreadable; }

  std::shared_ptr<MemoryCodePane> CodePane() { return pane_; }
  std::shared_ptr<MemoryWindow> CodeWindow() { return code_window_; }
  // nullptr for a component without a designer.
  std::shared_ptr<MemoryWindow> DesignerWindow() { return designer_window_; }
  std::shared_ptr<MemoryVbe> Vbe() { return vbe_.lock(); }

  // The file as it would be written now.
  std::string SourceBytes() const;
  // Empty for a component created in memory.
  const std::string& FilePath() const { return file_path_; }
  void SetFilePath(std::string path) { file_path_ = std::move(path); }
  Status Save(platform::FileSystem& file_system);

 private:
  void Init();

  std::weak_ptr<MemoryProject> project_;
  std::weak_ptr<MemoryVbe> vbe_;
  ComponentType type_;
  std::string name_;
  std::string file_path_;
  std::shared_ptr<SourceFile> source_;
  std::shared_ptr<MemoryCodeModule> module_;
  std::shared_ptr<MemoryCodePane> pane_;
  std::shared_ptr<MemoryWindow> code_window_;
  std::shared_ptr<MemoryDesigner> designer_;
  std::shared_ptr<MemoryWindow> designer_window_;
  bool unreadable_ = false;
};

}  // namespace tavrin::ide::memory
