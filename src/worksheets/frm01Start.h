#pragma once

#include <QWidget>

class QPushButton;
class QVBoxLayout;

/// The start form: what the program is for, and how to begin. Behind the worksheets it stays as a frame of
/// six lines.
class frm01Start : public QWidget
{
    Q_OBJECT

public:
    explicit frm01Start(QWidget* parent);
    /// Traces the unload, ahead of the deletion. A form that goes with the process is not unloaded.
    void Unload();

    /// Hides the panels and leaves the lines.
    void SetBackground();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void BuildControls();
    QWidget* BuildOverview();
    QWidget* BuildButtons();
    QPushButton* AddButton(const QString& name, const QString& caption, void (*act)());

    QWidget* m_pnlOverview = nullptr;
    QWidget* m_pnlButtons = nullptr;
};
