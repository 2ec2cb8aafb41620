#pragma once

/// The busy state: while a worksheet is filled, change handlers do nothing. Nests.
namespace UIMode {

void BeginBusy();
/// One too many is a programming error: the depth goes below zero and the flag stays.
void EndBusy();
bool NotBusy();

/// Busy from constructor to destructor, so that every path out of a handler ends it.
class Busy
{
public:
    Busy() { BeginBusy(); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { EndBusy(); }
};

} // namespace UIMode
