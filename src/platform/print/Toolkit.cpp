#include "platform/print/Toolkit.h"

#include <QGuiApplication>

#include <array>

namespace platform::print {

struct Toolkit::Parts
{
    std::array<char, 5> name{"vexa"};
    std::array<char*, 2> arguments{name.data(), nullptr};
    int count = 1;
    std::unique_ptr<QGuiApplication> application;
};

Toolkit::Toolkit() : m_parts(std::make_unique<Parts>())
{
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    m_parts->application = std::make_unique<QGuiApplication>(m_parts->count, m_parts->arguments.data());
}

Toolkit::~Toolkit() = default;

} // namespace platform::print
