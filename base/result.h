// A value or an error message, for operations whose failure is expected
// (a missing file, bad input) and must reach the user as a clear message.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace tavrin {

struct Error {
  std::string message;
};

template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::move(value)) {}
  Result(Error error) : state_(std::move(error)) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  T& value() & { return std::get<0>(state_); }
  const T& value() const& { return std::get<0>(state_); }
  T&& value() && { return std::get<0>(std::move(state_)); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }
  T& operator*() & { return value(); }
  const T& operator*() const& { return value(); }

  const std::string& error() const { return std::get<1>(state_).message; }

 private:
  std::variant<T, Error> state_;
};

// Result of an operation that gives nothing back but may fail.
class [[nodiscard]] Status {
 public:
  Status() = default;
  Status(Error error) : error_(std::move(error.message)), failed_(true) {}

  bool ok() const { return !failed_; }
  explicit operator bool() const { return ok(); }
  const std::string& error() const { return error_; }

 private:
  std::string error_;
  bool failed_ = false;
};

}  // namespace tavrin
