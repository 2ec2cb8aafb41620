#include "platform/widgets/Theme.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace Theme = platform::Theme;

namespace {

const QPalette kPalettes[] = {QPalette(QColor(0xef, 0xef, 0xef)),
                              QPalette(Qt::white),
                              QPalette(QColor(0xd4, 0xd0, 0xc8)),
                              Theme::DarkPalette()};

TEST(Theme, Contrast_KnownPairs)
{
    EXPECT_EQ(Theme::Contrast(Qt::black, Qt::white), 21.0);
    EXPECT_EQ(Theme::Contrast(Qt::white, Qt::white), 1.0);
}

TEST(Theme, QuietText_ReadableOnWindowAndStripsLightAndDark)
{
    for (const QPalette& palette : kPalettes) {
        const QColor quiet = Theme::QuietText(palette);
        SCOPED_TRACE(palette.color(QPalette::Window).name().toStdString());
        EXPECT_GE(Theme::Contrast(quiet, palette.color(QPalette::Window)), 4.5);
        EXPECT_GE(Theme::Contrast(quiet, Theme::StripGround(palette)), 4.5);
        EXPECT_NE(quiet, palette.color(QPalette::WindowText));
    }
}

TEST(Theme, AllTextOfTheDarkPalette_Readable)
{
    const QPalette dark = Theme::WithAccent(Theme::DarkPalette());
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> kPairs[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::AlternateBase},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::ToolTipText, QPalette::ToolTipBase},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::Link, QPalette::Base},
    };
    for (const auto& [text, ground] : kPairs) {
        EXPECT_GE(Theme::Contrast(dark.color(text), dark.color(ground)), 4.5) << text;
    }
}

TEST(Theme, Selection_ReadableAndOfTheAccent)
{
    const QPalette light = Theme::WithAccent(kPalettes[0]);
    EXPECT_EQ(light.color(QPalette::Highlight), Theme::Accent(light));
    EXPECT_GE(Theme::Contrast(light.color(QPalette::HighlightedText), light.color(QPalette::Highlight)), 4.5);
}

TEST(Theme, Accent_StandsOutFromItsGround)
{
    for (const QPalette& palette : kPalettes) {
        EXPECT_GE(Theme::Contrast(Theme::Accent(palette), palette.color(QPalette::Window)), 3.0);
    }
}

TEST(Theme, DesktopThatPrefersDark_DarkPalette)
{
    const QPalette before = QGuiApplication::palette();
    ASSERT_FALSE(Theme::IsDark(before));
    QTemporaryDir config;
    QDir(config.path()).mkdir(QStringLiteral("gtk-3.0"));
    QFile settings(config.filePath(QStringLiteral("gtk-3.0/settings.ini")));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[Settings]\ngtk-application-prefer-dark-theme = 1\n");
    settings.close();
    qunsetenv("GTK_THEME");
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    Theme::Apply();
    EXPECT_TRUE(Theme::IsDark(QGuiApplication::palette()));
    QApplication::setPalette(before);
    qputenv("GTK_THEME", "Adwaita"); // says more than the settings
    Theme::Apply();
    EXPECT_FALSE(Theme::IsDark(QGuiApplication::palette()));
    qputenv("GTK_THEME", "Adwaita:dark");
    Theme::Apply();
    EXPECT_TRUE(Theme::IsDark(QGuiApplication::palette()));
    qunsetenv("GTK_THEME");
    qunsetenv("XDG_CONFIG_HOME");
    QApplication::setPalette(before);
}

/// The toolkit draws a button anew for every palette, and keeps what it drew.
TEST(Theme, Widgets_ShareOnePalette)
{
    QWidget window;
    const QPushButton first(&window);
    const QPushButton second(&window);
    EXPECT_EQ(first.palette().cacheKey(), second.palette().cacheKey());
    EXPECT_EQ(first.palette().color(QPalette::Highlight), Theme::Accent(first.palette()));
}

TEST(Theme, Twips_FifteenToAPixelAt96DotsPerInch)
{
    EXPECT_EQ(Theme::Pixels(12120), 808);
    EXPECT_EQ(Theme::Pixels(9120), 608);
    EXPECT_EQ(Theme::Twips(800), 12000);
    EXPECT_EQ(Theme::Margin(), 12);
    EXPECT_EQ(Theme::Gap(), 8);
    EXPECT_EQ(Theme::GroupGap(), 16);
}

TEST(Theme, Title_1Point4TimesAndSemiBold)
{
    QFont font;
    font.setPointSizeF(10);
    EXPECT_EQ(Theme::TitleFont(font).pointSizeF(), 14.0);
    EXPECT_EQ(Theme::TitleFont(font).weight(), QFont::DemiBold);
    font.setPixelSize(20);
    EXPECT_EQ(Theme::TitleFont(font).pixelSize(), 28);
}

} // namespace
