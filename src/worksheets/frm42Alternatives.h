#pragma once

#include "model/c51Alternative.h"
#include "worksheets/Worksheet.h"

#include <memory>

class AlternativeList;
class QPushButton;
class RichBody;
namespace platform {
class EntryBox;
}

/// The alternatives: added, labelled, named, described, deleted. On leaving all of them are saved.
class frm42Alternatives : public Worksheet
{
    Q_OBJECT

public:
    explicit frm42Alternatives(QWidget* parent);

    void Setup() override;
    /// Saves the current alternative, if there is one.
    void SaveChanges() override;

protected:
    void BuildControls() override;

private:
    QWidget* BuildList();
    QWidget* BuildDetails();
    void ConnectHandlers();
    /// Fills the list afresh; with no alternatives the details are disabled.
    void FillList();
    void EnableDetails(bool enable);
    void ShowAlternative();

    void lstAlternatives_Click();
    void txtLabel_Change();
    void txtName_Change();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void DeleteCurrent();

    AlternativeList* m_lstAlternatives = nullptr;
    QPushButton* m_cmdAdd = nullptr;
    QPushButton* m_cmdDelete = nullptr;
    QWidget* m_pnlDetails = nullptr;
    platform::EntryBox* m_txtLabel = nullptr;
    platform::EntryBox* m_txtName = nullptr;
    RichBody* m_body = nullptr;
    std::shared_ptr<c51Alternative> m_current;
};
