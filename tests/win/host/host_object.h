// An IDispatch object of the test host, built from a table of members, that
// is as strict as an IDE's type-library-driven Invoke: members by name only
// (its DISPIDs are unlike the IDE's, so a caller that hard-codes ids fails),
// property gets, puts and methods told apart by the DISPATCH_* flags, argument
// counts and required arguments checked, by-reference parameters of exactly
// the declared type, optional arguments left out or passed as missing.
// Errors leave as DISP_E_EXCEPTION with the IDE's error number and text.
//
// Every host object counts itself, so a test can see that whatever the
// add-in took it also gave back.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "win/com_ptr.h"
#include "win/com_values.h"

namespace tavrin::test_host {

using win::ComPtr;
using win::Variant;

// A failure of the call itself (not an IDE error): its HRESULT.
struct HostFailure {
  HRESULT result;
};

// The arguments of one call, first parameter first.
class HostCall {
 public:
  HostCall(const DISPPARAMS& params, bool is_put);

  std::size_t Count() const { return count_; }
  // Left out, or passed as the "missing" error value.
  bool Missing(std::size_t index) const;
  long Long(std::size_t index) const;
  bool Bool(std::size_t index, bool if_missing) const;
  std::string String(std::size_t index) const;
  ComPtr<IDispatch> Object(std::size_t index) const;
  bool IsString(std::size_t index) const;
  // By-reference parameters: only the exact type is accepted.
  long& LongRef(std::size_t index) const;
  VARIANT_BOOL& BoolRef(std::size_t index) const;
  IDispatch*& ObjectRef(std::size_t index) const;
  // The value of a property put.
  const VARIANT& PutValue() const { return params_.rgvarg[0]; }

 private:
  const VARIANT& At(std::size_t index) const;

  const DISPPARAMS& params_;
  std::size_t first_;  // the put value sits before the arguments
  std::size_t count_;
};

struct HostMember {
  std::wstring name;
  std::size_t required = 0;  // arguments that must be given
  std::size_t allowed = 0;   // the most arguments
  bool is_method = false;
  // The property get or the method.
  std::function<Variant(HostCall&)> get;
  // The property put; empty for a read-only property.
  std::function<void(HostCall&, const VARIANT& value)> put;
};

// A read-only property without arguments.
HostMember Property(std::wstring name, std::function<Variant()> get);
// A read-write property without arguments.
HostMember Property(std::wstring name, std::function<Variant()> get,
                    std::function<void(const VARIANT&)> put);
HostMember Method(std::wstring name, std::size_t required, std::size_t allowed,
                  std::function<Variant(HostCall&)> run);
// A property get that takes arguments (Lines, ProcStartLine).
HostMember PropertyWithArgs(std::wstring name, std::size_t required, std::size_t allowed,
                            std::function<Variant(HostCall&)> get);

// `identity` is the model object behind the host object, for calls that
// take host objects as arguments.
ComPtr<IDispatch> MakeHostObject(std::vector<HostMember> members,
                                 std::shared_ptr<void> identity = nullptr);
// The model object behind a host object; empty for any other object.
std::shared_ptr<void> HostIdentity(IDispatch* object);

// Host objects alive now.
long LiveHostObjects();
// For the host's other COM objects, which count as host objects too.
void CountHostObject(long change);

// While `calls` is set, every Invoke adds one to its member's count there
// (profiling the IDE calls of a benchmark); null stops counting.
void CountHostCalls(std::map<std::wstring, long>* calls);

}  // namespace tavrin::test_host
