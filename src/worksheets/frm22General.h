#pragma once

#include "worksheets/Worksheet.h"

#include <array>

class QGridLayout;
namespace platform {
class EntryBox;
}

/// The standard facts of the fire, each the body of a fixed item. Everything is free text: nothing typed is
/// refused or put into shape. The items are saved when the worksheet is left.
class frm22General : public Worksheet
{
    Q_OBJECT

public:
    explicit frm22General(QWidget* parent);

    void Setup() override;

protected:
    void BuildControls() override;

private:
    static constexpr std::size_t kFieldCount = 12;

    void BuildBoxes();
    QGridLayout* LayOutFields();
    void ConnectHandlers();
    /// Fills the boxes. The current date and time are those of the first visit: empty ones become now, in
    /// their items too.
    void DisplayData();
    /// Any box, by its place in the order of Enter.
    void Box_Change(std::size_t field);
    void txtName_Change();

    std::array<platform::EntryBox*, kFieldCount> m_boxes{};
};
