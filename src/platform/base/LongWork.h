#pragma once

#include <functional>
#include <string>

namespace platform {

/// Who is told how far a long work on a data file has come: what is being done, and which part of it is done,
/// from 0 to 1; an empty text at its end, before anything else is said. Called often and from within the
/// work: it must be quick and must not touch the file. It may throw to end the work.
using ProgressListener = std::function<void(const std::string& what, double part)>;

/// The listener in use; an empty one, as at first, listens to nothing.
void SetProgressListener(ProgressListener listener);
void TellProgress(const std::string& what, double part);

} // namespace platform
