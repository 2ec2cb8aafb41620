#pragma once

#include "platform/base/Numbers.h"

#include <QFrame>

#include <string>

class QGridLayout;
class QPushButton;
class QRadioButton;
namespace platform {
class EntryBox;
}

/// The panel on which a new type of resource is described. It lies over its parent while it is open; its
/// boxes keep their texts for the next time.
class ResourceTypePanel : public QFrame
{
    Q_OBJECT

public:
    /// What the boxes say.
    struct Entry
    {
        std::string longName;
        std::string shortName;
        std::string unitType; // "time" or "item"
        std::string unitName;
        Double unitCost = 0; // dollars per unit
    };

    explicit ResourceTypePanel(QWidget* parent);

    void Open();
    void Close() { hide(); }
    /// Throws Overflow for a cost beyond all numbers.
    Entry Typed() const;

Q_SIGNALS:
    void OK();
    void Cancel();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildBoxes();
    void LayOut();
    void AddBox(QGridLayout& grid, const char* caption, QWidget* box, int columns = 1);
    void ConnectHandlers();
    void UpdateOKButton();

    platform::EntryBox* m_txtResourceName = nullptr;
    platform::EntryBox* m_txtShortName = nullptr;
    QRadioButton* m_optTime = nullptr;
    QRadioButton* m_optItem = nullptr;
    platform::EntryBox* m_txtUnits = nullptr;
    platform::EntryBox* m_txtCost = nullptr;
    QPushButton* m_cmdOK = nullptr;
    QPushButton* m_cmdCancel = nullptr;
};
