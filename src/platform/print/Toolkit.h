#pragma once

#include <memory>

namespace platform::print {

/// What laying out text needs of the toolkit, for a program without windows: as long as it lives, fonts can
/// be measured and PDF and pictures drawn. No display is opened. Does nothing where an application runs
/// already.
class Toolkit
{
public:
    Toolkit();
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;
    ~Toolkit();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace platform::print
