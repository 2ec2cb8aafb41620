#pragma once

class frm0_VEXA;

/// Gives the session the screens that it calls, and the event loop's guard the log and the busy state. The
/// window must outlive the session.
void ConnectScreens(frm0_VEXA& window);
