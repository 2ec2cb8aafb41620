#pragma once

#include <QFrame>

#include <string_view>

class QLabel;
class QScrollArea;
namespace platform {
class FormattedLabel;
}

/// Advice beside the work: a title and a marked-up text on a quietly tinted ground. As high as its text, and
/// scrolled where there is less room, so that no field gives way to it.
class GuidelinesPanel : public QFrame
{
    Q_OBJECT

public:
    GuidelinesPanel(const QString& title, std::string_view markup, QWidget* parent);

    QSize sizeHint() const override;
    /// Else that height would be the least one too.
    bool hasHeightForWidth() const override { return false; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QScrollArea* BuildText(std::string_view markup);
    /// The width between its margins.
    int Room() const;
    /// The heights at which nothing scrolls, of the text and of all.
    int TextHeight() const;
    int WholeHeight() const;

    QLabel* m_title = nullptr;
    QScrollArea* m_scroll = nullptr;
    platform::FormattedLabel* m_text = nullptr;
};
