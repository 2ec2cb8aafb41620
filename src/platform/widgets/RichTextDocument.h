#pragma once

#include "platform/widgets/RichTextFormats.h"
#include "platform/widgets/RichTextPool.h"

#include <QTextDocument>

#include <memory>

namespace platform {

/// The text of an editor. It loads nothing from a file or the network, whatever its formats say: its pictures
/// come from its pool.
class RichTextDocument : public QTextDocument
{
    Q_OBJECT

public:
    /// The pool may be shared with a document that this one's text is to be put into.
    RichTextDocument(std::shared_ptr<RichTextPool> pool, RichTextFormats::Colors colors, QObject* parent);

    RichTextPool& Pool() const { return *m_pool; }
    const std::shared_ptr<RichTextPool>& SharedPool() const { return m_pool; }
    const RichTextFormats::Colors& Colors() const { return m_colors; }

    /// The standing tab stops, twips.
    void SetDefaultTab(Long twips);
    Long DefaultTab() const;

    /// The number and level of the list whose item a block is, zeros for none.
    static Long ListOf(const QTextBlock& block);
    static Long LevelOf(const QTextBlock& block);
    /// The format of a group of items.
    QTextListFormat ListFormat(Long list, Long level) const;

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    std::shared_ptr<RichTextPool> m_pool;
    RichTextFormats::Colors m_colors;
};

} // namespace platform
