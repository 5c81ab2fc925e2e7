// VBProject.References over COM: each Reference's properties read as the
// IDE gives them, AddFromFile, AddFromGuid and Remove called on the IDE's
// collection.
#include <string>
#include <utility>
#include <vector>

#include "win/com_ide_objects.h"

namespace tavrin::win {
namespace {

class ComReference : public ide::IReference, public ComWrapper {
 public:
  using ComWrapper::ComWrapper;

  std::string Name() override { return String("Name"); }
  std::string Description() override { return String("Description"); }
  std::string Guid() override { return String("Guid"); }
  int Major() override { return VariantToLong(*object_.Get("Major").get()); }
  int Minor() override { return VariantToLong(*object_.Get("Minor").get()); }
  std::string FullPath() override { return String("FullPath"); }
  ide::ReferenceKind Type() override {
    return static_cast<ide::ReferenceKind>(VariantToLong(*object_.Get("Type").get()));
  }
  bool BuiltIn() override { return VariantToBool(*object_.Get("BuiltIn").get()); }
  bool IsBroken() override { return VariantToBool(*object_.Get("IsBroken").get()); }

 private:
  std::string String(std::string_view member) {
    return VariantToString(*object_.Get(member).get());
  }
};

class ComReferences : public ide::IReferences {
 public:
  explicit ComReferences(Dispatch references) : references_(std::move(references)) {}

  int Count() override { return VariantToLong(*references_.Get("Count").get()); }
  std::shared_ptr<ide::IReference> Item(int index) override {
    std::vector<Variant> args;
    args.push_back(Variant::Long(index));
    return Made(references_.CallObject("Item", std::move(args)));
  }
  std::shared_ptr<ide::IReference> Item(std::string_view name) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(name));
    return Made(references_.CallObject("Item", std::move(args)));
  }
  std::shared_ptr<ide::IReference> AddFromFile(std::string_view path) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(path));
    return Made(references_.CallObject("AddFromFile", std::move(args)));
  }
  std::shared_ptr<ide::IReference> AddFromGuid(std::string_view guid, int major,
                                               int minor) override {
    std::vector<Variant> args;
    args.push_back(Variant::String(guid));
    args.push_back(Variant::Long(major));
    args.push_back(Variant::Long(minor));
    return Made(references_.CallObject("AddFromGuid", std::move(args)));
  }
  void Remove(ide::IReference& reference) override {
    const auto* wrapper = dynamic_cast<const ComWrapper*>(&reference);
    if (!wrapper) throw ide::Error(13, "Type mismatch");
    std::vector<Variant> args;
    args.push_back(Variant::Object(wrapper->Object().get()));
    references_.Call("Remove", std::move(args));
  }

 private:
  std::shared_ptr<ide::IReference> Made(ComPtr<IDispatch> reference) {
    if (!reference) throw ide::Error(9, "Subscript out of range");
    return std::make_shared<ComReference>(references_.Wrap(std::move(reference), "Reference"));
  }

  Dispatch references_;
};

}  // namespace

std::shared_ptr<ide::IReference> MakeReference(Dispatch reference) {
  return std::make_shared<ComReference>(std::move(reference));
}

std::shared_ptr<ide::IReferences> MakeReferences(Dispatch references) {
  return std::make_shared<ComReferences>(std::move(references));
}

}  // namespace tavrin::win
