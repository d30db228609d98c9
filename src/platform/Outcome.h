// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <utility>

namespace nubo {

// The reason a call failed, in Spanish when the user will read it. Converts to any Outcome, so
// a failing path reads `return Failure{reason};`.
struct Failure
{
    QString reason;
};

// What a fallible call gives back: done (with its value, for Outcome<T>), or the reason it
// failed. It is the one error style of the program; RuntimeError stays for the numbered
// messages the user is shown.
template <typename T = void> class [[nodiscard]] Outcome final
{
public:
    Outcome(T value) : m_value(std::move(value)) {} // NOLINT: a value is a success
    Outcome(Failure failure) : m_reason(std::move(failure.reason)) {}

    explicit operator bool() const { return m_value.has_value(); }
    // Valid only on success.
    const T& value() const& { return *m_value; }
    T& value() & { return *m_value; }
    T&& value() && { return std::move(*m_value); }
    const T* operator->() const { return &*m_value; }
    const T& operator*() const { return *m_value; }
    // Empty on success.
    const QString& reason() const { return m_reason; }

private:
    std::optional<T> m_value;
    QString m_reason;
};

template <> class [[nodiscard]] Outcome<void> final
{
public:
    Outcome() = default;
    Outcome(Failure failure) : m_failed(true), m_reason(std::move(failure.reason)) {}

    explicit operator bool() const { return !m_failed; }
    const QString& reason() const { return m_reason; }

private:
    bool m_failed = false;
    QString m_reason;
};

} // namespace nubo
