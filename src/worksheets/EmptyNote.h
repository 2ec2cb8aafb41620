#pragma once

#include "platform/widgets/QuietLabel.h"

class QAbstractScrollArea;

/// A sentence that stands in a list or grid while it is empty, and says what goes there. Whoever fills the
/// list shows and hides it.
class EmptyNote : public platform::QuietLabel
{
    Q_OBJECT

public:
    /// Over the rows of `list`, which owns it; hidden at first.
    EmptyNote(const QString& sentence, QAbstractScrollArea* list);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fit();
};
