#pragma once

#include <QString>

#include <utility>
#include <variant>

namespace snipdeck {

/// Why an operation failed: a kind that code can test and a text that a person can read.
struct Failure {
  enum class Kind { NotFound, NoPermission, NoSpace, Malformed, Refused, TooLarge, TimedOut, Unsupported, Other };
  Kind kind = Kind::Other;
  QString text;
};

/// Either a value or the failure that stood in its way.
template <typename T>
class Result {
 public:
  Result(T value) : m_content(std::move(value)) {}
  Result(Failure failure) : m_content(std::move(failure)) {}

  explicit operator bool() const { return std::holds_alternative<T>(m_content); }
  /// Only when the result holds a value.
  const T& Value() const { return std::get<T>(m_content); }
  T& Value() { return std::get<T>(m_content); }
  /// Only when the result holds a failure.
  const Failure& Error() const { return std::get<Failure>(m_content); }

 private:
  std::variant<T, Failure> m_content;
};

/// The result of an operation that yields nothing but success.
struct Done {};
using Outcome = Result<Done>;

}  // namespace snipdeck
