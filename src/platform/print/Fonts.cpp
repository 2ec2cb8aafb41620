#include "platform/print/Fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>

namespace platform::print {

namespace {

constexpr Double raisedScale = 0.58;
constexpr Double raise = 0.33;  // of the font's size
constexpr Double lower = -0.08; // neither makes a line higher than its neighbours

/// A family and one of equal metrics that stands in for it.
struct StandIn
{
    const char* family;
    const char* substitute;
};

constexpr std::array standIns{
    StandIn{"Arial", "Liberation Sans"},
    StandIn{"Helvetica", "Liberation Sans"},
    StandIn{"Times New Roman", "Liberation Serif"},
    StandIn{"Times", "Liberation Serif"},
    StandIn{"Courier New", "Liberation Mono"},
    StandIn{"Courier", "Liberation Mono"},
};

const QSet<QString>& Families()
{
    static const QSet<QString> families = [] {
        const QStringList list = QFontDatabase::families();
        return QSet<QString>(list.begin(), list.end());
    }();
    return families;
}

QString ServedFamily(const std::string& asked)
{
    const QString family = FromUtf8(asked);
    if (Families().contains(family)) return family;
    for (const StandIn& standIn : standIns) {
        const QString substitute = QString::fromLatin1(standIn.substitute);
        if (asked == standIn.family && Families().contains(substitute)) return substitute;
    }
    return QFontInfo(QFont(family)).family();
}

const QString& ServedFamilyCached(const std::string& asked)
{
    static std::unordered_map<std::string, QString> served;
    const auto found = served.find(asked);
    return found != served.end() ? found->second : served.emplace(asked, ServedFamily(asked)).first->second;
}

Double SizeOf(const richtext::CharacterFormat& look) { return 10.0 * look.halfPoints; }

QFont::Capitalization CapitalsOf(richtext::Capitals capitals)
{
    switch (capitals) {
    case richtext::Capitals::All: return QFont::AllUppercase;
    case richtext::Capitals::Small: return QFont::SmallCaps;
    case richtext::Capitals::AsTyped: break;
    }
    return QFont::MixedCase;
}

std::size_t HashOf(const richtext::CharacterFormat& look)
{
    std::size_t hash = std::hash<std::string>()(look.font);
    const auto mix = [&hash](std::size_t value) { hash = hash * 31 + value; };
    mix(static_cast<std::size_t>(look.halfPoints));
    mix((look.bold ? 1U : 0U) + (look.italic ? 2U : 0U) + (look.strike ? 4U : 0U));
    mix(static_cast<std::size_t>(look.underline));
    mix(look.color.value_or(1U << 24));
    return hash;
}

} // namespace

QFont FontOf(const richtext::CharacterFormat& look)
{
    const bool isNormal = look.position == richtext::VerticalPosition::Normal;
    QFont font(ServedFamilyCached(look.font));
    font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(SizeOf(look) * (isNormal ? 1.0 : raisedScale)))));
    font.setBold(look.bold);
    font.setItalic(look.italic);
    font.setStrikeOut(look.strike);
    font.setUnderline(look.underline != richtext::Underline::None);
    font.setCapitalization(CapitalsOf(look.capitals));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

Double RaiseOf(const richtext::CharacterFormat& look)
{
    switch (look.position) {
    case richtext::VerticalPosition::Superscript: return std::round(raise * SizeOf(look));
    case richtext::VerticalPosition::Subscript: return std::round(lower * SizeOf(look));
    case richtext::VerticalPosition::Normal: break;
    }
    return 0.0;
}

std::vector<std::string> ServedFamilies()
{
    std::vector<std::string> names;
    for (const QString& family : QFontDatabase::families())
        names.push_back(family.toStdString());
    for (const StandIn& standIn : standIns) {
        const bool isServed = Families().contains(QString::fromLatin1(standIn.substitute));
        if (isServed && !Families().contains(QString::fromLatin1(standIn.family)))
            names.emplace_back(standIn.family);
    }
    return names;
}

QString FromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

LookBook::LookBook(std::vector<richtext::CharacterFormat>& looks) : m_looks(looks) {}

Long LookBook::Of(richtext::CharacterFormat look)
{
    constexpr Long greatest = 576; // half-points: a letter of it still fits on a page
    look.halfPoints = std::min(look.halfPoints, greatest);
    look.background.reset();
    look.href.clear();
    const std::size_t hash = HashOf(look);
    const auto [first, last] = m_numbers.equal_range(hash);
    const auto found =
        std::find_if(first, last, [&](const auto& known) { return Look(known.second) == look; });
    if (found != last) return found->second;
    const auto number = static_cast<Long>(m_looks.size());
    m_fonts.push_back(FontOf(look));
    m_looks.push_back(std::move(look));
    m_numbers.emplace(hash, number);
    return number;
}

const richtext::CharacterFormat& LookBook::Look(Long number) const
{
    return m_looks[static_cast<std::size_t>(number)];
}

const QFont& LookBook::Font(Long number) { return m_fonts[static_cast<std::size_t>(number)]; }

void LookBook::Clear()
{
    m_numbers.clear();
    m_fonts.clear();
}

} // namespace platform::print
