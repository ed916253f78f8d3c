// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <optional>
#include <utility>
#include <variant>

namespace tavrel {

// Why something could not be done, in words for the user: names the file, and the line where there is one.
struct [[nodiscard]] Failure
{
    BilingualText text;
};

// A value, or why there is none.
template <typename Value>
class [[nodiscard]] Result
{
public:
    Result(Value value) : m_content(std::move(value)) {}
    Result(Failure failure) : m_content(std::move(failure)) {}

    explicit operator bool() const { return std::holds_alternative<Value>(m_content); }
    Value& operator*() { return std::get<Value>(m_content); }
    const Value& operator*() const { return std::get<Value>(m_content); }
    Value* operator->() { return &std::get<Value>(m_content); }
    const Value* operator->() const { return &std::get<Value>(m_content); }
    const Failure& failure() const { return std::get<Failure>(m_content); }

private:
    std::variant<Value, Failure> m_content;
};

// What went wrong; empty when all went well.
using Problem = std::optional<Failure>;

} // namespace tavrel
