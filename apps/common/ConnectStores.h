#pragma once

/// Tells the session which stores of model and values it drops when a file is left. Once, at the start of
/// every program and test; the members of SessionLinks that are screens are left alone.
void ConnectStores();
