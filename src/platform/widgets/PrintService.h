#pragma once

#include <string>

/// What the print service of the desktop says about a job; the toolkit hands jobs over and asks nothing.
namespace platform::PrintService {

/// Why the service refused the job that this thread handed over last, without a point at its end. Empty when
/// it took the job, and where there is no such service.
std::string CauseOfRefusal();

} // namespace platform::PrintService
