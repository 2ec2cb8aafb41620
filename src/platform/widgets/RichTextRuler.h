#pragma once

#include "platform/richtext/ParagraphFormat.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace platform {

class RichTextEdit;

/// The ruler over a text, in inches: the indents and tabs of the cursor's paragraph, to be dragged. A click
/// on the scale sets a tab, a tab dragged off the ruler is gone, a double click turns it from left to center
/// to right. By keys: up and down choose a mark, left and right move it, Insert sets a tab, Delete removes
/// it, Return turns it. All lengths are twips. A drag is one step of undo.
class RichTextRuler : public QWidget
{
    Q_OBJECT

public:
    RichTextRuler(RichTextEdit& edit, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    /// Where a length from the left margin stands on the ruler, pixels.
    int XOf(Long twips) const;
    /// The length that a place stands for, on the ruler's steps.
    Long TwipsAt(int x) const;

    /// The room for text, from margin to margin.
    Long Width() const;
    /// The mark that keys and screen readers move: where it stands, and its name with its length.
    Long ChosenPosition() const { return PositionOf(Chosen()); }
    QString ChosenText() const { return TextOf(Chosen()); }
    /// As far as it makes sense; nothing where the text is only to be read.
    void MoveChosen(Long position);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Kind { FirstLine, Left, Right, Tab };
    struct Mark
    {
        Kind kind = Kind::Left;
        std::size_t tab = 0; // Tab only: its number
        bool operator==(const Mark&) const = default;
    };

    void Follow();
    void Describe();
    /// The one chosen by keys, as long as there is one; else the first.
    Mark Chosen() const;
    void Choose(const Mark& mark);
    void TellChosen();
    Long PositionOf(const Mark& mark) const;
    std::vector<Mark> Marks() const;
    std::optional<Mark> MarkAt(const QPoint& point) const;
    QRect MarkRect(const Mark& mark) const;
    QString NameOf(const Mark& mark) const;
    /// The mark's name and length, as it is told: a right indent from the right margin.
    QString TextOf(const Mark& mark) const;
    void Move(Mark& mark, Long position);
    void SetTab(Long position);
    void Turn(std::size_t tab);
    void Commit();
    void PaintScale(QPainter& painter) const;
    void PaintMark(QPainter& painter, const Mark& mark) const;
    bool MarkKey(int key);
    bool ChooseByKey(int key);
    bool ChangeTabByKey(int key);

    RichTextEdit& m_edit;
    richtext::ParagraphFormat m_look; // of the cursor's paragraph, while dragged as it will be
    std::optional<Mark> m_dragged;
    std::optional<Mark> m_chosen; // by keys
    bool m_off = false;           // the tab is held off the ruler
    bool m_moved = false;
};

} // namespace platform
