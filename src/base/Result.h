#pragma once

#include <QString>
#include <utility>
#include <variant>

namespace mosaro::base {

/// Why something that may be expected to fail did fail, in words for the user: what happened and what to do.
struct Failure {
    QString reason;
};

/// A value, or the reason why there is none. Expected failures travel as this; exceptions of libraries are
/// turned into it at a layer's edge.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_state(std::move(value)) {}
    Result(Failure failure) : m_state(std::move(failure)) {}

    [[nodiscard]] bool ok() const { return std::holds_alternative<T>(m_state); }
    explicit operator bool() const { return ok(); }

    /// The value. Only when ok().
    [[nodiscard]] T& value() & { return std::get<T>(m_state); }
    [[nodiscard]] const T& value() const& { return std::get<T>(m_state); }
    [[nodiscard]] T&& value() && { return std::get<T>(std::move(m_state)); }

    /// The reason. Only when not ok().
    [[nodiscard]] const Failure& failure() const { return std::get<Failure>(m_state); }
    [[nodiscard]] const QString& reason() const { return failure().reason; }

private:
    std::variant<T, Failure> m_state;
};

/// Success without a value, or a reason.
template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Failure failure) : m_failure(std::move(failure)), m_ok(false) {}

    [[nodiscard]] bool ok() const { return m_ok; }
    explicit operator bool() const { return m_ok; }
    [[nodiscard]] const Failure& failure() const { return m_failure; }
    [[nodiscard]] const QString& reason() const { return m_failure.reason; }

private:
    Failure m_failure;
    bool m_ok = true;
};

} // namespace mosaro::base
