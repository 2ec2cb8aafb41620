#pragma once

#include <QLineEdit>

namespace platform {

/// The box in which a grid's cell is edited: one for a grid, laid over the cell while it is open. It knows no
/// cell; it tells what is typed and where the keys lead.
class GridEditor : public QLineEdit
{
    Q_OBJECT

public:
    enum class Way { Down, Up, Next, Previous, Back };

    /// The child of a grid's viewport, hidden.
    explicit GridEditor(QWidget* viewport);

    /// Fills and selects the text, raising nothing. `longest`: the most characters, 0 for no limit.
    void Begin(const QString& text, int longest);
    /// The text that stood before, whatever the limit.
    void PutBack(const QString& text);
    /// A text that stands already and is longer stays whole until it has been shortened.
    void SetLongest(int characters);

Q_SIGNALS:
    /// A printable character, from a key or from an input method, before it goes in.
    void Typed(const QString& character, bool& drop);
    void Asked(platform::GridEditor::Way way);
    void Left(Qt::FocusReason reason);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool Dropped(const QString& character);
    void ApplyLimit();

    int m_longest = 0;
};

/// Whether a key event puts a character into a text.
bool TypesText(const QKeyEvent& event);

} // namespace platform
