#pragma once

// The library that knows the pages of a Jet database. Its header takes glib's into a C block, where glib's
// own C++ parts cannot stand: glib comes first.
#include <glib.h>
#include <mdbtools.h>
