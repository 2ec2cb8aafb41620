#include "platform/widgets/RichTextPool.h"

#include "platform/widgets/RichTextPictures.h"

#include <algorithm>

namespace platform {

namespace {

const QLatin1String kScheme("picture:");

template <typename Kept> const Kept* Numbered(const std::vector<Kept>& all, Long id)
{
    return id < 1 || id > static_cast<Long>(all.size()) ? nullptr : &all[static_cast<std::size_t>(id - 1)];
}

template <typename Kept> Long Keep(std::vector<Kept>& all, Kept kept)
{
    all.push_back(std::move(kept));
    return static_cast<Long>(all.size());
}

} // namespace

Long RichTextPool::AddList(richtext::RichList list) { return Keep(m_lists, std::move(list)); }

const richtext::RichList* RichTextPool::List(Long id) const { return Numbered(m_lists, id); }

const richtext::ListLevel& RichTextPool::Level(Long id, Long level) const
{
    static const richtext::RichList bullets = richtext::BulletList();
    const richtext::RichList* list = List(id);
    const auto& levels = list == nullptr || list->levels.empty() ? bullets.levels : list->levels;
    const Long last = static_cast<Long>(levels.size()) - 1;
    return levels[static_cast<std::size_t>(std::clamp(level, 0, last))];
}

Long RichTextPool::AddTable(richtext::Table table)
{
    for (richtext::TableRow& row : table.rows) {
        for (richtext::TableCell& cell : row.cells)
            cell.blocks = std::vector<richtext::Block>(1);
    }
    return Keep(m_tables, std::move(table));
}

const richtext::Table* RichTextPool::Table(Long id) const { return Numbered(m_tables, id); }

QString RichTextPool::AddPicture(std::shared_ptr<const richtext::Picture> picture)
{
    return kScheme + QString::number(Keep(m_pictures, std::move(picture)));
}

std::shared_ptr<const richtext::Picture> RichTextPool::Picture(const QString& name) const
{
    if (!name.startsWith(kScheme)) return nullptr;
    const auto* kept = Numbered(m_pictures, name.mid(kScheme.size()).toInt());
    return kept == nullptr ? nullptr : *kept;
}

QImage RichTextPool::Image(const QString& name) const
{
    const auto picture = Picture(name);
    const QImage image = picture == nullptr ? QImage() : RichTextPictures::Decoded(*picture);
    return image.isNull() ? RichTextPictures::Box() : image;
}

} // namespace platform
