// Late-bound calls on the IDE's objects: members by name through
// GetIDsOfNames, arguments in their natural order (DISPPARAMS wants them last
// to first: that is handled here and nowhere else), failures raised as
// ide::Error with the IDE's error number and text.
//
// The VB6 IDE and the VBA editor share member names but not DISPIDs, so names
// are looked up at run time; each id is looked up once per kind of object.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ide/object_model.h"
#include "win/com_ptr.h"
#include "win/com_values.h"

namespace tavrin::win {

// DISPIDs by kind of object and member name. One cache serves every
// wrapper of one IDE; all objects of a kind share their ids.
class DispIdCache {
 public:
  // nullopt-like: false when the object has no member of that name.
  bool Find(IDispatch& object, std::string_view kind, std::string_view name, DISPID& id);

 private:
  std::map<std::pair<std::string, std::string>, DISPID, std::less<>> ids_;
};

// The IDE's error for a failed Invoke or GetIDsOfNames: the number and text of
// an exception the object raised, or Visual Basic's number for the failure.
ide::Error ErrorFromInvoke(HRESULT result, const EXCEPINFO* exception,
                           std::string_view member);

class Dispatch {
 public:
  Dispatch() = default;
  Dispatch(ComPtr<IDispatch> object, std::shared_ptr<DispIdCache> cache, std::string kind)
      : object_(std::move(object)), cache_(std::move(cache)), kind_(std::move(kind)) {}

  explicit operator bool() const { return static_cast<bool>(object_); }
  IDispatch* get() const { return object_.get(); }
  const std::shared_ptr<DispIdCache>& cache() const { return cache_; }

  // The same cache for another object (a child reached from this one).
  Dispatch Wrap(ComPtr<IDispatch> object, std::string kind) const {
    return Dispatch(std::move(object), cache_, std::move(kind));
  }

  // A property read (also one with arguments, such as Lines).
  Variant Get(std::string_view name, std::vector<Variant> args = {}) const;
  // A method call; a value-returning method is called as both method and
  // property get, as Visual Basic calls it.
  Variant Call(std::string_view name, std::vector<Variant> args = {}) const;
  void Put(std::string_view name, Variant value) const;

  // Object-valued reads; an empty pointer for Nothing.
  ComPtr<IDispatch> GetObject(std::string_view name, std::vector<Variant> args = {}) const;
  ComPtr<IDispatch> CallObject(std::string_view name, std::vector<Variant> args = {}) const;

  // Whether the object has a member of that name (which hosts differ in).
  bool Has(std::string_view name) const;

 private:
  Variant Invoke(std::string_view name, WORD flags, std::vector<Variant>& args,
                 bool is_put) const;

  ComPtr<IDispatch> object_;
  std::shared_ptr<DispIdCache> cache_;
  std::string kind_;
};

}  // namespace tavrin::win
