#include "platform/widgets/RichTextFormats.h"

#include "platform/widgets/Theme.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace platform::RichTextFormats {

namespace {

using richtext::Alignment;
using richtext::Capitals;
using richtext::CharacterFormat;
using richtext::Color;
using richtext::LineSpacing;
using richtext::LineSpacingRule;
using richtext::ParagraphFormat;
using richtext::TabKind;
using richtext::TabLeader;
using richtext::TabStop;
using richtext::Underline;
using richtext::VerticalPosition;

constexpr double kReadable = 4.5;  // the least contrast of text
constexpr double kLineParts = 2.4; // 240ths of a line in a percent

const CharacterFormat kDefaultLook;

double PixelsInTwip()
{
    static const double pixels = [] {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return (screen == nullptr ? 96.0 : screen->logicalDotsPerInchX()) / 1440.0;
    }();
    return pixels;
}

QColor ToQColor(std::uint32_t rgb) { return QColor::fromRgb(QRgb(0xFF000000U | rgb)); }

Color ColorProperty(const QTextFormat& format, int property)
{
    if (!format.hasProperty(property)) return {};
    return static_cast<std::uint32_t>(format.intProperty(property));
}

void SetColorProperty(QTextFormat& format, int property, const Color& color)
{
    if (color) {
        format.setProperty(property, static_cast<int>(*color));
    } else {
        format.clearProperty(property);
    }
}

QColor Opposite(const QColor& ground)
{
    const bool onDark = Theme::Contrast(Qt::white, ground) > Theme::Contrast(Qt::black, ground);
    return onDark ? QColor(Qt::white) : QColor(Qt::black);
}

/// The colour itself, or as much of the ground's opposite mixed in as makes it readable.
QColor Readable(const QColor& color, const QColor& ground)
{
    const QColor opposite = Opposite(ground);
    QColor shown = color;
    for (double share = 0.1; share < 1.0 && Theme::Contrast(shown, ground) < kReadable; share += 0.1) {
        shown = Theme::Mixed(color, opposite, share);
    }
    return Theme::Contrast(shown, ground) < kReadable ? opposite : shown;
}

/// Sets the foreground that shows the format's colours. A colour that cannot be read on a dark sheet is
/// lightened, on a light one it stays as it was chosen.
void DressText(QTextCharFormat& format, const Colors& colors)
{
    const Color text = ColorProperty(format, TextColor);
    const Color back = ColorProperty(format, BackColor);
    const QColor ground = back ? ToQColor(*back) : colors.sheet;
    const bool dark = Theme::Contrast(colors.sheet, Qt::black) < Theme::Contrast(colors.sheet, Qt::white);
    if (text) {
        format.setForeground(dark ? Readable(ToQColor(*text), ground) : ToQColor(*text));
    } else if (format.isAnchor()) {
        format.setForeground(Readable(colors.link, ground));
    } else if (back && Theme::Contrast(colors.text, ground) < kReadable) {
        format.setForeground(Opposite(ground));
    } else {
        format.clearForeground();
    }
}

QTextCharFormat::UnderlineStyle Shown(Underline kind)
{
    switch (kind) {
    case Underline::None: return QTextCharFormat::NoUnderline;
    case Underline::Dotted: return QTextCharFormat::DotLine;
    case Underline::Dash: return QTextCharFormat::DashUnderline;
    case Underline::DashDot: return QTextCharFormat::DashDotLine;
    case Underline::DashDotDot: return QTextCharFormat::DashDotDotLine;
    case Underline::Wave: return QTextCharFormat::WaveUnderline;
    default: return QTextCharFormat::SingleUnderline; // the toolkit draws no double, thick or broken line
    }
}

void SetFont(QTextCharFormat& format, const CharacterFormat& look)
{
    if (look.font != kDefaultLook.font) format.setFontFamilies({QString::fromStdString(look.font)});
    if (look.halfPoints != kDefaultLook.halfPoints) format.setFontPointSize(look.halfPoints / 2.0);
    if (look.bold) format.setFontWeight(QFont::Bold);
    if (look.italic) format.setFontItalic(true);
    if (look.strike) format.setFontStrikeOut(true);
    if (look.capitals != Capitals::AsTyped) {
        format.setFontCapitalization(look.capitals == Capitals::All ? QFont::AllUppercase : QFont::SmallCaps);
    }
    if (look.position != VerticalPosition::Normal) {
        format.setVerticalAlignment(look.position == VerticalPosition::Superscript
                                        ? QTextCharFormat::AlignSuperScript
                                        : QTextCharFormat::AlignSubScript);
    }
}

Capitals CapitalsOf(const QTextCharFormat& format)
{
    switch (format.fontCapitalization()) {
    case QFont::AllUppercase: return Capitals::All;
    case QFont::SmallCaps: return Capitals::Small;
    default: return Capitals::AsTyped;
    }
}

VerticalPosition PositionOf(const QTextCharFormat& format)
{
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignSuperScript: return VerticalPosition::Superscript;
    case QTextCharFormat::AlignSubScript: return VerticalPosition::Subscript;
    default: return VerticalPosition::Normal;
    }
}

/// What both kinds of formats share.
CharacterFormat PlainLookOf(const QTextCharFormat& format)
{
    CharacterFormat look;
    look.font = FamilyOf(format).toStdString();
    look.halfPoints = HalfPointsOf(format);
    look.bold = format.fontWeight() > QFont::Medium;
    look.italic = format.fontItalic();
    look.strike = format.fontStrikeOut();
    look.capitals = CapitalsOf(format);
    look.position = PositionOf(format);
    return look;
}

/// A page gives sizes in points, in pixels, or as steps from the usual size.
Long ForeignHalfPoints(const QTextCharFormat& format)
{
    if (format.hasProperty(QTextFormat::FontPointSize)) return HalfPointsOf(format);
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
        return std::clamp(ToLong(format.intProperty(QTextFormat::FontPixelSize) * 1.5), 2, 3276);
    }
    constexpr std::array<Long, 7> steps = {14, 16, 20, 24, 28, 36, 48};
    const int step = std::clamp(format.intProperty(QTextFormat::FontSizeAdjustment) + 2, 0, 6);
    return steps[static_cast<std::size_t>(step)];
}

/// Near black and near white are a page's own text colours: here they become the automatic one.
Color ForeignColor(const QTextCharFormat& format)
{
    if (format.foreground().style() != Qt::SolidPattern) return {};
    const QColor color = format.foreground().color();
    const bool grey = color.saturation() < 64;
    if (color.value() < 64 || (grey && (color.value() < 100 || color.value() > 230))) return {};
    return Rgb(color);
}

Qt::Alignment ToQt(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Center: return Qt::AlignHCenter;
    case Alignment::Right: return Qt::AlignRight;
    case Alignment::Justify: return Qt::AlignJustify;
    default: return Qt::AlignLeft;
    }
}

Alignment AlignmentOf(const QTextBlockFormat& format)
{
    const Qt::Alignment alignment = format.alignment();
    if (alignment & Qt::AlignHCenter) return Alignment::Center;
    if (alignment & Qt::AlignRight) return Alignment::Right;
    if (alignment & Qt::AlignJustify) return Alignment::Justify;
    return Alignment::Left;
}

void SetSpacing(QTextBlockFormat& format, const LineSpacing& spacing)
{
    if (spacing == LineSpacing()) return;
    switch (spacing.rule) {
    case LineSpacingRule::Multiple:
        format.setLineHeight(spacing.value / kLineParts, QTextBlockFormat::ProportionalHeight);
        break;
    case LineSpacingRule::AtLeast:
        format.setLineHeight(Pixels(spacing.value), QTextBlockFormat::MinimumHeight);
        break;
    case LineSpacingRule::Exactly:
        format.setLineHeight(Pixels(spacing.value), QTextBlockFormat::FixedHeight);
        break;
    }
}

LineSpacing SpacingOf(const QTextBlockFormat& format)
{
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        return {LineSpacingRule::Multiple, std::max(1, ToLong(format.lineHeight() * kLineParts))};
    case QTextBlockFormat::MinimumHeight:
        return {LineSpacingRule::AtLeast, std::max(1, Twips(format.lineHeight()))};
    case QTextBlockFormat::FixedHeight:
        return {LineSpacingRule::Exactly, std::max(1, Twips(format.lineHeight()))};
    default: return {};
    }
}

QTextOption::TabType ToQt(TabKind kind)
{
    switch (kind) {
    case TabKind::Right: return QTextOption::RightTab;
    case TabKind::Center: return QTextOption::CenterTab;
    case TabKind::Decimal: return QTextOption::DelimiterTab;
    default: return QTextOption::LeftTab;
    }
}

QVariantList Encoded(const std::vector<TabStop>& tabs)
{
    QVariantList numbers;
    for (const TabStop& tab : tabs) {
        numbers << tab.position << static_cast<int>(tab.kind) << static_cast<int>(tab.leader);
    }
    return numbers;
}

std::vector<TabStop> TabsOf(const QTextBlockFormat& format)
{
    const QVariantList numbers = format.property(Tabs).toList();
    std::vector<TabStop> tabs;
    for (qsizetype i = 0; i + 2 < numbers.size(); i += 3) {
        tabs.push_back({numbers[i].toInt(),
                        static_cast<TabKind>(numbers[i + 1].toInt()),
                        static_cast<TabLeader>(numbers[i + 2].toInt())});
    }
    return tabs;
}

/// The toolkit counts tabs from the start of the line: here of the first, where most tabs stand.
QList<QTextOption::Tab> ShownTabs(const ParagraphFormat& look)
{
    QList<QTextOption::Tab> shown;
    const Long start = look.indentLeft + (look.list == 0 ? look.indentFirst : 0);
    for (const TabStop& tab : look.tabs) {
        if (tab.kind == TabKind::Bar) continue;
        QTextOption::Tab stop(Pixels(tab.position - start), ToQt(tab.kind));
        if (tab.kind == TabKind::Decimal) stop.delimiter = QLatin1Char('.');
        if (stop.position > 0) shown << stop;
    }
    return shown;
}

} // namespace

Colors ColorsOf(const QPalette& palette)
{
    return {palette.color(QPalette::Active, QPalette::Base),
            palette.color(QPalette::Active, QPalette::Text),
            palette.color(QPalette::Active, QPalette::Link)};
}

double Pixels(Long twips) { return twips * PixelsInTwip(); }

Long Twips(double pixels) { return ToLong(pixels / PixelsInTwip()); }

QString FamilyOf(const QTextCharFormat& format)
{
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? QString::fromStdString(kDefaultLook.font) : families.first();
}

Long HalfPointsOf(const QTextCharFormat& format)
{
    if (!format.hasProperty(QTextFormat::FontPointSize)) return kDefaultLook.halfPoints;
    return std::clamp(ToLong(format.fontPointSize() * 2), 2, 3276);
}

QTextCharFormat CharFormat(const CharacterFormat& look, const Colors& colors)
{
    QTextCharFormat format;
    SetFont(format, look);
    if (!look.href.empty()) {
        format.setAnchor(true);
        format.setAnchorHref(QString::fromStdString(look.href));
        format.setToolTip(QString::fromStdString(look.href));
        format.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    }
    if (look.underline != Underline::None) SetUnderline(format, look.underline);
    SetColorProperty(format, BackColor, look.background);
    if (look.background) format.setBackground(ToQColor(*look.background));
    SetTextColor(format, look.color, colors);
    return format;
}

CharacterFormat LookOf(const QTextCharFormat& format)
{
    CharacterFormat look = PlainLookOf(format);
    look.underline = static_cast<Underline>(format.intProperty(UnderlineKind));
    look.color = ColorProperty(format, TextColor);
    look.background = ColorProperty(format, BackColor);
    if (format.isAnchor()) look.href = format.anchorHref().toStdString();
    return look;
}

CharacterFormat ForeignLookOf(const QTextCharFormat& format)
{
    CharacterFormat look = PlainLookOf(format);
    if (format.fontUnderline()) look.underline = Underline::Single;
    look.halfPoints = ForeignHalfPoints(format);
    look.color = ForeignColor(format);
    const QString href = format.anchorHref();
    for (const char* scheme : {"http://", "https://", "mailto:"}) {
        if (format.isAnchor() && href.startsWith(QLatin1String(scheme), Qt::CaseInsensitive)) {
            look.href = href.toStdString();
        }
    }
    return look;
}

void SetTextColor(QTextCharFormat& format, const Color& color, const Colors& colors)
{
    SetColorProperty(format, TextColor, color);
    DressText(format, colors);
}

void SetUnderline(QTextCharFormat& format, Underline kind)
{
    format.setUnderlineStyle(Shown(kind));
    format.setProperty(UnderlineKind, static_cast<int>(kind));
}

std::uint32_t Rgb(const QColor& color) { return color.rgb() & 0xFFFFFFU; }

QBrush Ground(const Color& color, const Colors& colors)
{
    if (!color || Theme::Contrast(ToQColor(*color), colors.text) < kReadable) return {};
    return ToQColor(*color);
}

QTextBlockFormat BlockFormat(const ParagraphFormat& look, const Colors& colors)
{
    QTextBlockFormat format;
    if (look.alignment != Alignment::Left) format.setAlignment(ToQt(look.alignment));
    if (look.indentRight != 0) format.setRightMargin(Pixels(look.indentRight));
    if (look.spaceBefore != 0) format.setTopMargin(Pixels(look.spaceBefore));
    if (look.spaceAfter != 0) format.setBottomMargin(Pixels(look.spaceAfter));
    SetSpacing(format, look.lineSpacing);
    SetIndents(format, look);
    SetColorProperty(format, BackColor, look.background);
    if (Ground(look.background, colors) != Qt::NoBrush) format.setBackground(Ground(look.background, colors));
    if (look.keepTogether) format.setNonBreakableLines(true);
    if (look.keepWithNext) format.setProperty(KeepWithNext, true);
    if (look.pageBreakBefore) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}

ParagraphFormat LookOf(const QTextBlockFormat& format)
{
    ParagraphFormat look;
    look.alignment = AlignmentOf(format);
    look.indentLeft = Twips(format.leftMargin());
    look.indentFirst = format.intProperty(FirstIndent);
    look.indentRight = Twips(format.rightMargin());
    look.spaceBefore = Twips(format.topMargin());
    look.spaceAfter = Twips(format.bottomMargin());
    look.lineSpacing = SpacingOf(format);
    look.tabs = TabsOf(format);
    look.background = ColorProperty(format, BackColor);
    look.keepTogether = format.nonBreakableLines();
    look.keepWithNext = format.boolProperty(KeepWithNext);
    look.pageBreakBefore = format.pageBreakPolicy().testFlag(QTextFormat::PageBreak_AlwaysBefore);
    return look;
}

void SetIndents(QTextBlockFormat& format, const ParagraphFormat& look)
{
    const double first = look.list == 0 ? Pixels(look.indentFirst) : 0.0;
    format.setLeftMargin(Pixels(look.indentLeft));
    format.setTextIndent(first);
    format.setProperty(FirstIndent, look.indentFirst);
    format.setTabPositions(ShownTabs(look));
    format.setProperty(Tabs, Encoded(look.tabs));
}

} // namespace platform::RichTextFormats
