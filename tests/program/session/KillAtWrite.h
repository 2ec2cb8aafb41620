#pragma once

/// From now on counts what the process does to files on the disk (each write to a place, each wait for the
/// disk, each removal) and kills it where that comes to `count`, ahead of doing it.
void KillAtWrite(int count);
