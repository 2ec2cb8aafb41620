#pragma once

/// Gives the session the questions and steps that lift a file of an older format.
void ConnectConversions();
