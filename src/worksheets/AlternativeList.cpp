#include "worksheets/AlternativeList.h"

#include "model/g51Alternatives.h"
#include "worksheets/EmptyNote.h"

#include <QSignalBlocker>

QString NoAlternativesYet()
{
    return QStringLiteral(
        "There are no alternatives yet. Add one on the worksheet Identify Alternatives of the "
        "section Alternatives.");
}

AlternativeList::AlternativeList(const QString& sentence, QWidget* parent)
    : ListBox(QStringLiteral("lstAlternatives"), QStringLiteral("Alternatives"), parent),
      m_note(new EmptyNote(sentence, this))
{
    m_note->setObjectName(QStringLiteral("lblNone"));
}

void AlternativeList::Fill()
{
    platform::ListContents alternatives;
    g51Alternatives::AddItem(alternatives);
    Show(alternatives);
    m_note->setVisible(ListCount() == 0);
}

std::shared_ptr<c51Alternative> AlternativeList::Chosen() const
{
    return g51Alternatives::Alternative(ItemData(ListIndex()));
}

void AlternativeList::Append(const c51Alternative& alternative)
{
    AddItem(alternative.Label(), alternative.ItemKey());
    m_note->hide();
}

void AlternativeList::Rewrite(const c51Alternative& alternative)
{
    SetList(RowOf(alternative), alternative.Label());
}

void AlternativeList::ReturnTo(const std::shared_ptr<c51Alternative>& alternative)
{
    QMetaObject::invokeMethod(
        this,
        [this, alternative] {
            const QSignalBlocker quiet(this);
            setCurrentRow(RowOf(*alternative));
        },
        Qt::QueuedConnection);
}

void AlternativeList::MoveRow(Long step)
{
    const Long row = ListIndex() + step;
    if (row >= 0 && row < ListCount()) SetListIndex(row);
}

Long AlternativeList::RowOf(const c51Alternative& alternative) const
{
    for (Long row = 0; row < ListCount(); ++row) {
        if (ItemData(row) == alternative.ItemKey()) return row;
    }
    return -1;
}
