#include "platform/widgets/Theme.h"

#include "platform/widgets/FocusStyle.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <array>
#include <cmath>

namespace platform::Theme {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kReadable = 4.5; // the least contrast of text
constexpr int kFocusFrame = 2;    // pixels
constexpr int kUpperEdge = 150;   // percent
const QColor kEmberOnLight(0xb8, 0x47, 0x0f);
const QColor kEmberOnDark(0xe0, 0x73, 0x3a);

double DotsPerInch()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? 96.0 : screen->logicalDotsPerInchX();
}

int Scaled(int pixelsAt96) { return static_cast<int>(std::lround(pixelsAt96 * DotsPerInch() / 96.0)); }

/// The linear light of each of the 256 steps of a channel, as contrast is defined on it.
std::array<double, 256> LinearSteps()
{
    std::array<double, 256> steps{};
    for (std::size_t step = 0; step < steps.size(); ++step) {
        const double value = static_cast<double>(step) / 255.0;
        steps[step] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return steps;
}

/// Asked for every cell that is drawn, hence from a table.
double Luminance(const QColor& colour)
{
    static const std::array<double, 256> kLinear = LinearSteps();
    const auto linear = [](int step) { return kLinear[static_cast<std::size_t>(step)]; };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

/// Text that is fainter for a reason, of what is disabled or still empty: it is read on every ground all the
/// same.
QColor FaintText(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    for (double share = 0.5; share < 1.0; share += 0.02) {
        const QColor faint = Mixed(window, text, share);
        double least = Contrast(faint, StripGround(palette));
        for (const auto ground :
             {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button})
            least = std::min(least, Contrast(faint, palette.color(ground)));
        // The style's buttons are lighter at their upper edge.
        least = std::min(least, Contrast(faint, palette.color(QPalette::Button).lighter(kUpperEdge)));
        if (least >= kReadable) return faint;
    }
    return text;
}

/// Whether a settings file of the desktop asks for dark windows.
bool SettingsPreferDark(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray text = file.readAll().toLower().replace(' ', "");
    return text.contains("gtk-application-prefer-dark-theme=1") ||
           text.contains("gtk-application-prefer-dark-theme=true");
}

bool DesktopPrefersDark()
{
    const QByteArray theme = qgetenv("GTK_THEME").toLower();
    if (!theme.isEmpty()) return theme.endsWith("dark");
    const QString config =
        qEnvironmentVariable("XDG_CONFIG_HOME", QDir::homePath() + QLatin1String("/.config"));
    return SettingsPreferDark(config + QLatin1String("/gtk-4.0/settings.ini")) ||
           SettingsPreferDark(config + QLatin1String("/gtk-3.0/settings.ini"));
}

/// The desktop's own style with our colours. They go in beneath: a palette that is set for the application
/// would give every widget one of its own, and the toolkit draws and keeps its buttons anew for each palette.
class ThemeStyle : public FocusStyle
{
public:
    using FocusStyle::polish;
    void polish(QPalette& palette) override
    {
        FocusStyle::polish(palette);
        const bool turnsDark = !IsDark(palette) && DesktopPrefersDark();
        palette = WithAccent(turnsDark ? DarkPalette() : palette);
    }
};

} // namespace

int Margin() { return Scaled(12); }
int Gap() { return Scaled(8); }
int GroupGap() { return Scaled(16); }

int Pixels(int twips) { return static_cast<int>(std::lround(twips * DotsPerInch() / kTwipsPerInch)); }
int Twips(int pixels) { return static_cast<int>(std::lround(pixels * kTwipsPerInch / DotsPerInch())); }

QFont Sized(const QFont& font, double times)
{
    QFont sized(font);
    if (font.pointSizeF() > 0) {
        sized.setPointSizeF(font.pointSizeF() * times);
    } else {
        sized.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * times)));
    }
    return sized;
}

QFont TitleFont(const QFont& font)
{
    QFont title = Sized(font, 1.4);
    title.setWeight(QFont::DemiBold);
    return title;
}

bool IsDark(const QPalette& palette) { return Luminance(palette.color(QPalette::Window)) < 0.2; }

QColor Accent(const QPalette& palette) { return IsDark(palette) ? kEmberOnDark : kEmberOnLight; }

QColor QuietText(const QPalette& palette)
{
    const QColor ground = StripGround(palette);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    for (double share = 0.72; share < 1.0; share += 0.04) {
        const QColor quiet = Mixed(ground, text, share);
        if (std::min(Contrast(quiet, ground), Contrast(quiet, palette.color(QPalette::Window))) >=
            kReadable) {
            return quiet;
        }
    }
    return text;
}

QColor StripGround(const QPalette& palette)
{
    return Mixed(palette.color(QPalette::Active, QPalette::Window),
                 palette.color(QPalette::Active, QPalette::WindowText),
                 0.07);
}

QColor Rule(const QPalette& palette)
{
    return Mixed(palette.color(QPalette::Active, QPalette::Window),
                 palette.color(QPalette::Active, QPalette::WindowText),
                 0.35);
}

QColor Mixed(const QColor& under, const QColor& over, double share)
{
    const auto channel = [share](int low, int high) {
        return static_cast<int>(std::lround(low + (high - low) * share));
    };
    return QColor(channel(under.red(), over.red()),
                  channel(under.green(), over.green()),
                  channel(under.blue(), over.blue()));
}

double Contrast(const QColor& first, const QColor& second)
{
    const double a = Luminance(first) + 0.05;
    const double b = Luminance(second) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

void PaintFocusFrame(QPainter& painter, const QPalette& palette, const QRect& place)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Accent(palette), kFocusFrame));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(1, 1, -1, -1));
    painter.restore();
}

QPalette DarkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x38), QColor(0x2b, 0x2b, 0x2e));
    const QColor text(0xe8, 0xe6, 0xe3);
    palette.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x26, 0x29));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, QColor(0x8c, 0x8a, 0x88));
    }
    palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3c, 0x40));
    palette.setColor(QPalette::PlaceholderText, QColor(0xa5, 0xa3, 0xa0));
    palette.setColor(QPalette::Link, QColor(0x8a, 0xb4, 0xf8));
    return palette;
}

QPalette WithAccent(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, kEmberOnLight);
        palette.setColor(group, QPalette::HighlightedText, Qt::white);
    }
    const QColor faint = FaintText(palette);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, faint);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, palette.color(QPalette::Base));
    palette.setColor(QPalette::PlaceholderText, faint);
    return palette;
}

void Apply()
{
    QApplication::setStyle(new ThemeStyle);
    QApplication::setPalette(QPalette()); // none but the style's
}

} // namespace platform::Theme
