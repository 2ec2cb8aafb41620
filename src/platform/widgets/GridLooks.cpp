#include "platform/widgets/GridLooks.h"

#include "platform/widgets/Theme.h"

#include <algorithm>

namespace platform::GridLooks {

namespace {

constexpr double kReadable = 4.5;

QColor Base(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::Base); }
QColor Text(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::Text); }

/// A tint told for a white ground on a dark one: the same hue, as much off the ground as it was off white,
/// as far as text stays readable.
QColor OnDark(const QPalette& palette, const QColor& tint)
{
    const double offWhite = 1.0 - static_cast<double>(tint.lightnessF());
    if (offWhite <= 0.0) return Base(palette);
    const bool grey = tint.hslSaturation() == 0;
    const QColor pure = grey ? Text(palette) : QColor::fromHsl(tint.hslHue(), tint.hslSaturation(), 128);
    for (double share = std::min(1.0, 0.08 + 0.8 * offWhite); share > 0.0; share -= 0.02) {
        const QColor ground = Theme::Mixed(Base(palette), pure, share);
        if (Theme::Contrast(Text(palette), ground) >= kReadable) return ground;
    }
    return Base(palette);
}

} // namespace

QColor Ground(const QPalette& palette, const QColor& tint, bool currentRow)
{
    if (tint.isValid()) return Theme::IsDark(palette) ? OnDark(palette, tint) : tint;
    return currentRow ? Theme::Mixed(Base(palette), Theme::Accent(palette), 0.1) : Base(palette);
}

QColor Line(const QPalette& palette) { return Theme::Mixed(Base(palette), Text(palette), 0.22); }

QColor TextOn(const QPalette& palette, const QColor& ground, bool enabled)
{
    QColor text = Text(palette);
    if (Theme::Contrast(text, ground) < kReadable) {
        const bool black = Theme::Contrast(Qt::black, ground) >= Theme::Contrast(Qt::white, ground);
        text = black ? Qt::black : Qt::white;
    }
    if (enabled) return text;
    for (double share = 0.5; share < 1.0; share += 0.05) {
        const QColor faint = Theme::Mixed(ground, text, share);
        if (Theme::Contrast(faint, ground) >= kReadable) return faint;
    }
    return text;
}

QColor BarTrack(const QPalette& palette) { return Theme::Mixed(Base(palette), Text(palette), 0.1); }

QColor BarFill(const QPalette& palette, bool enabled)
{
    return enabled ? Theme::Accent(palette) : Theme::Mixed(Base(palette), Text(palette), 0.4);
}

} // namespace platform::GridLooks
