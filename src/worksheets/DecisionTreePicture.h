#pragma once

// The toolkit's meta object compiler stumbles over <compare>, and has no need of it.
#ifndef Q_MOC_RUN
    #include "worksheets/DecisionTreeLayout.h"
#endif

#include <QAbstractScrollArea>

/// The surface that shows one decision tree as large as it fits, or a sentence where there is none. Scrolls,
/// by keys too, where the tree does not fit in letters of the window's size. What it shows was computed
/// before: painting asks nobody. Screen readers get the texts as its description, one a line.
class DecisionTreePicture : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit DecisionTreePicture(QWidget* parent = nullptr);

    /// Both leave the size to the next Fit.
    void ShowTree(const DecisionTreeDrawing& tree);
    /// Takes the tree away.
    void ShowSentence(const QString& sentence);
    /// Empty while a sentence is shown.
    const DecisionTreeDrawing& Tree() const { return m_tree; }
    /// Shows its tree in the size in which these trees, its own among them, fit the room.
    void Fit(const std::vector<DecisionTreeDrawing>& trees, const QSize& room);
    /// The room for a tree that needs no scroll bars.
    QSize Room() const { return maximumViewportSize(); }
    const DecisionTreeScale& Scale() const { return m_scale; }

    /// What a tree with a Fallback needs to be read without scrolling, in pixels with the frame.
    int FullTreeWidth() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The room or the font is another: it wants a Fit.
    void FitNeeded();

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void SetScrollBars();
    QPointF Origin() const;
    void PaintFrame();
    void PaintSentence(QPainter& painter) const;

    DecisionTreeDrawing m_tree;
    QString m_sentence;
    std::vector<DecisionTreeDrawing> m_together; // what it was fitted with
    QSize m_room;
    DecisionTreeScale m_scale;
};
