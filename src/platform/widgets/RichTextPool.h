#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/Picture.h"
#include "platform/richtext/RichDocument.h"

#include <QImage>
#include <QString>

#include <memory>
#include <vector>

namespace platform {

/// What the formats of a document point to: lists, the frames of tables, pictures. A number once given keeps
/// its meaning, so undo and redo find what they name.
class RichTextPool
{
public:
    /// The list's number, from 1.
    Long AddList(richtext::RichList list);
    /// Nothing for a number not given.
    const richtext::RichList* List(Long id) const;
    /// The level of a list; the last one there is where it has fewer.
    const richtext::ListLevel& Level(Long id, Long level) const;

    /// The table's number, from 1. The cells' texts are dropped.
    Long AddTable(richtext::Table table);
    const richtext::Table* Table(Long id) const;

    /// The name that stands for the picture in the document: no file and no address.
    QString AddPicture(std::shared_ptr<const richtext::Picture> picture);
    std::shared_ptr<const richtext::Picture> Picture(const QString& name) const;
    /// The picture to draw, a box for one that cannot be shown or is not there. Never empty.
    QImage Image(const QString& name) const;

private:
    std::vector<richtext::RichList> m_lists;
    std::vector<richtext::Table> m_tables;
    std::vector<std::shared_ptr<const richtext::Picture>> m_pictures;
};

} // namespace platform
