#include "platform/widgets/RichTextDocument.h"

#include "platform/richtext/RichDocument.h"

#include <QTextBlock>
#include <QTextList>
#include <QTextOption>
#include <QUrl>

namespace platform {

namespace {

using richtext::ListKind;
using richtext::ListLevel;
using richtext::NumberStyle;

QTextListFormat::Style NumberLook(NumberStyle style)
{
    switch (style) {
    case NumberStyle::UpperRoman: return QTextListFormat::ListUpperRoman;
    case NumberStyle::LowerRoman: return QTextListFormat::ListLowerRoman;
    case NumberStyle::UpperLetter: return QTextListFormat::ListUpperAlpha;
    case NumberStyle::LowerLetter: return QTextListFormat::ListLowerAlpha;
    default: return QTextListFormat::ListDecimal;
    }
}

/// The toolkit draws three bullets; every other sign is shown by the nearest of them.
QTextListFormat::Style BulletLook(const std::string& bullet)
{
    for (const char* hollow : {"\u25e6", "\u25cb", "o"})
        if (bullet == hollow) return QTextListFormat::ListCircle;
    for (const char* square : {"\u25aa", "\u25a0", "\uf0a7"})
        if (bullet == square) return QTextListFormat::ListSquare;
    return QTextListFormat::ListDisc;
}

QTextListFormat::Style StyleOf(const ListLevel& level)
{
    if (level.kind == ListKind::None) return QTextListFormat::ListStyleUndefined;
    return level.kind == ListKind::Number ? NumberLook(level.style) : BulletLook(level.bullet);
}

} // namespace

RichTextDocument::RichTextDocument(std::shared_ptr<RichTextPool> pool,
                                   RichTextFormats::Colors colors,
                                   QObject* parent)
    : QTextDocument(parent), m_pool(std::move(pool)), m_colors(std::move(colors))
{}

QVariant RichTextDocument::loadResource(int type, const QUrl& name)
{
    if (type != ImageResource) return {};
    return m_pool->Image(name.toString());
}

Long RichTextDocument::ListOf(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    return list == nullptr ? 0 : list->format().intProperty(RichTextFormats::ListId);
}

Long RichTextDocument::LevelOf(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    return list == nullptr ? 0 : list->format().intProperty(RichTextFormats::ListLevel);
}

QTextListFormat RichTextDocument::ListFormat(Long list, Long level) const
{
    const ListLevel& look = m_pool->Level(list, level);
    QTextListFormat format;
    format.setStyle(StyleOf(look));
    format.setIndent(0); // the paragraph's own indents place it
    format.setNumberPrefix(QString::fromStdString(look.textBefore));
    format.setNumberSuffix(QString::fromStdString(look.textAfter));
    format.setProperty(RichTextFormats::ListId, list);
    format.setProperty(RichTextFormats::ListLevel, level);
    return format;
}

void RichTextDocument::SetDefaultTab(Long twips)
{
    QTextOption option = defaultTextOption();
    option.setTabStopDistance(RichTextFormats::Pixels(twips));
    setDefaultTextOption(option);
}

Long RichTextDocument::DefaultTab() const
{
    return RichTextFormats::Twips(defaultTextOption().tabStopDistance());
}

} // namespace platform
