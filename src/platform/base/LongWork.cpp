#include "platform/base/LongWork.h"

#include <utility>

namespace platform {

namespace {
ProgressListener& Listener()
{
    static ProgressListener listener;
    return listener;
}
} // namespace

void SetProgressListener(ProgressListener listener) { Listener() = std::move(listener); }

void TellProgress(const std::string& what, double part)
{
    if (Listener()) {
        Listener()(what, part);
    }
}

} // namespace platform
