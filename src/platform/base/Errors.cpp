#include "platform/base/Errors.h"

namespace platform {

namespace {
constexpr int kMissingNumber = 5;
constexpr int kOverflowNumber = 6;
constexpr int kBoundsNumber = 9;
constexpr int kDivisionNumber = 11;
constexpr int kMismatchNumber = 13;
constexpr int kDuplicateNumber = 457;

std::string Member(std::string_view collection, long long key)
{
    return "k" + std::to_string(key) + " in " + std::string(collection);
}
} // namespace

Error::Error(int number, const std::string& message) : std::runtime_error(message), m_number(number) {}

Overflow::Overflow(std::string_view what) : Error(kOverflowNumber, "Overflow: " + std::string(what)) {}

DivisionByZero::DivisionByZero(std::string_view what)
    : Error(kDivisionNumber, "Division by zero: " + std::string(what))
{}

OutOfBounds::OutOfBounds(std::string_view what, long long index)
    : Error(kBoundsNumber, "Out of bounds: " + std::string(what) + " " + std::to_string(index))
{}

TypeMismatch::TypeMismatch(std::string_view text)
    : Error(kMismatchNumber, "Not a number: \"" + std::string(text) + "\"")
{}

MissingMember::MissingMember(std::string_view collection, long long key)
    : Error(kMissingNumber, "No member " + Member(collection, key)), m_key(key)
{}

DuplicateMember::DuplicateMember(std::string_view collection, long long key)
    : Error(kDuplicateNumber, "Already a member: " + Member(collection, key))
{}

} // namespace platform
