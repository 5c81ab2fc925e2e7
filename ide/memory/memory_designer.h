// The form designer of an in-memory component, over the designer block of
// its source file: controls, and properties read from and written to their
// property lines.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ide/control_tab.h"
#include "ide/memory/designer_layout.h"
#include "ide/memory/source_file.h"
#include "ide/object_model.h"

namespace tavrin::ide::memory {

class MemoryDesigner : public IDesigner, public std::enable_shared_from_this<MemoryDesigner> {
 public:
  explicit MemoryDesigner(std::shared_ptr<SourceFile> source);

  std::shared_ptr<ICollection<IControl>> VBControls() override;
  // A Begin ... End block before the form's own End line.
  std::shared_ptr<IControl> AddControl(std::string_view prog_id) override;

  // By control ordinal (0-based, file order). Reading a property the control
  // does not have raises ide::Error (9); writing one adds its line.
  std::vector<std::string> PropertyNames(std::size_t control);
  std::string ReadProperty(std::size_t control, std::string_view name);
  void WriteProperty(std::size_t control, std::string_view name, std::string_view value);
  const ControlLayout& Control(std::size_t control);
  // "optKind(1)" for a member of a control array.
  std::string DisplayName(std::size_t control);

 private:
  // The controls, parsed once and again only after a write changed lines.
  const std::vector<ControlLayout>& Layout();
  // The key stored in the file: a tabbed container's Caption is the
  // TabCaption of its current tab.
  std::string StoredKey(const ControlLayout& control, std::string_view name);
  std::optional<std::size_t> FindLine(const ControlLayout& control, std::string_view key);
  void AddLine(const ControlLayout& control, std::string_view key, std::string_view value);

  std::shared_ptr<SourceFile> source_;
  std::optional<std::vector<ControlLayout>> layout_;
  // Controls whose Tab line was added by WriteProperty.
  std::set<std::size_t> added_tab_lines_;
  // The text of each property line before its first change, by control and
  // key: writing the original value back restores the line byte for byte,
  // even where the file spelled it in a way no write would.
  std::map<std::pair<std::size_t, std::string>, std::string> original_lines_;
};

// ContainerName gives the container as the designer names its controls:
// "fraKind(1)" for a member of a control array.
class MemoryControl : public IControl, public IControlTab {
 public:
  MemoryControl(std::shared_ptr<MemoryDesigner> designer, std::size_t ordinal);

  std::string ClassName() override;
  std::string ProgId() override;
  std::shared_ptr<ICollection<IProperty>> Properties() override;
  std::string ContainerName() override;
  int ContainerTab() override;
  std::string Name();
  // The control it sits in, as VBControl.Container gives it; nullptr on the
  // form itself.
  std::shared_ptr<MemoryControl> Container();

 private:
  std::shared_ptr<MemoryDesigner> designer_;
  std::size_t ordinal_;
};

class MemoryProperty : public IProperty {
 public:
  MemoryProperty(std::shared_ptr<MemoryDesigner> designer, std::size_t control,
                 std::string name);

  std::string Name() override { return name_; }
  std::string Value() override;
  void SetValue(std::string_view value) override;

 private:
  std::shared_ptr<MemoryDesigner> designer_;
  std::size_t control_;
  std::string name_;
};

}  // namespace tavrin::ide::memory
