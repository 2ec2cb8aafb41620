#pragma once

#include <QLabel>

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One paragraph of a marked-up text. Lengths in twips.
struct FormattedParagraph
{
    std::string text;
    int before = 0; // space above it
    int indent = 0; // from the left
    bool operator==(const FormattedParagraph&) const = default;
};

/// The paragraphs of a text with the marks `|CR|` (a new line), `|BEFORE:n|` (space above, in twips) and
/// `|PARALEFT:n|` (indent). A mark of space or indent holds from the line that takes its first text behind
/// it, for that line and all that follow, until the next such mark. Any other text between bars stands as it
/// is.
std::vector<FormattedParagraph> ParseMarkup(std::string_view markup);

/// A label that shows a marked-up text. Its text(), which screen readers read, is the plain one, a line a
/// paragraph.
class FormattedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit FormattedLabel(QWidget* parent = nullptr);
    void SetMarkup(std::string_view markup);
    /// Sets the text in the quieter colour of instructions.
    void SetQuiet(bool quiet);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Where a paragraph's text stands in a label of this width, below `top`.
    QRect Place(const FormattedParagraph& paragraph, int width, int top) const;

    std::vector<FormattedParagraph> m_paragraphs;
    bool m_quiet = false;
};

} // namespace platform
