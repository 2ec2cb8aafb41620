#pragma once

#include "platform/richtext/RichDocument.h"
#include "platform/widgets/RichTextDocument.h"

#include <QMimeData>
#include <QTextDocumentFragment>

#include <optional>

/// What the editor gives to the clipboard and takes from it. Nothing is ever fetched: no address in a page is
/// followed.
namespace platform::RichTextClipboard {

/// What is taken from the clipboard or a drop.
struct Taken
{
    enum class Kind { Nothing, Text, Rich, RefusedPicture };
    Kind kind = Kind::Nothing;
    QString text;                // Text
    richtext::RichDocument rich; // Rich
};

/// Whether there is anything to take.
bool CanTake(const QMimeData& data);
/// Dropped picture files first; then rich text, a page, a plain text, and a picture where no text was copied.
/// A picture wider than widest (twips) is made smaller. Text of a page without a font of its own gets that of
/// beside.
Taken Take(const QMimeData& data, Long widest, const richtext::CharacterFormat& beside);
/// A document with one picture.
richtext::RichDocument PictureAlone(std::shared_ptr<const richtext::Picture> picture,
                                    const richtext::CharacterFormat& beside);

/// A stretch of a document for the clipboard: rich text, a page, plain text, each made when it is asked for.
class Selection : public QMimeData
{
    Q_OBJECT

public:
    Selection(QTextDocumentFragment fragment, const RichTextDocument& document);
    QStringList formats() const override;
    bool hasFormat(const QString& type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString& type, QMetaType preferred) const override;

private:
    richtext::RichDocument Text() const;

    QTextDocumentFragment m_fragment;
    std::shared_ptr<RichTextPool> m_pool;
    RichTextFormats::Colors m_colors;
};

} // namespace platform::RichTextClipboard
