#pragma once

#include <QApplication>

namespace platform {

/// With VEXA_IDS=1 in the environment: puts " #" and the given name of each widget behind its accessible
/// description, so that tests from outside find controls by name. Otherwise does nothing.
void InstallIdFilter(QApplication& application);

} // namespace platform
