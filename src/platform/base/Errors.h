#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

/// What went wrong and was expected by nobody below the event loop's outermost guard.
/// Each kind has a number for the log's "Error during startup" line.
class Error : public std::runtime_error
{
public:
    Error(int number, const std::string& message);
    int Number() const { return m_number; }

private:
    int m_number;
};

/// A figure left the range of its width (32 bits, single, double or currency).
class Overflow : public Error
{
public:
    explicit Overflow(std::string_view what);
};

class DivisionByZero : public Error
{
public:
    explicit DivisionByZero(std::string_view what);
};

/// An index outside a fixed list.
class OutOfBounds : public Error
{
public:
    OutOfBounds(std::string_view what, long long index);
};

/// A text that is no number where a number is needed.
class TypeMismatch : public Error
{
public:
    explicit TypeMismatch(std::string_view text);
};

/// A keyed collection was asked for a key that it does not hold.
class MissingMember : public Error
{
public:
    MissingMember(std::string_view collection, long long key);
    long long Key() const { return m_key; }

private:
    long long m_key;
};

/// A keyed collection was given a key that it already holds.
class DuplicateMember : public Error
{
public:
    DuplicateMember(std::string_view collection, long long key);
};

} // namespace platform
