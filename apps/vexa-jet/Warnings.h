#pragma once

namespace vexa_jet {

/// What the library says on standard error, which is all it does about a damaged page. From the constructor
/// on standard error is a place in memory.
class Warnings
{
public:
    /// Throws Failure where the system has no such place.
    Warnings();
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    ~Warnings();

    /// Throws Failure with the first words when there are any.
    void RequireNone() const;

private:
    int m_memory = -1;
};

} // namespace vexa_jet
