#include "worksheets/WholeControls.h"

#include "platform/widgets/FormattedLabel.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "worksheets/FocusWalk.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QTabBar>

#include <algorithm>

namespace WholeControls {

namespace {

using Sentences = std::vector<std::string>;

std::string Told(const QWidget& control)
{
    const auto* label = qobject_cast<const QLabel*>(&control);
    return FocusWalk::NameOf(&control) +
           (label == nullptr ? "" : " '" + label->text().left(30).toStdString() + "'");
}

std::string Sizes(const QSize& has, const QSize& needs)
{
    return " has " + std::to_string(has.width()) + " x " + std::to_string(has.height()) + ", needs " +
           std::to_string(needs.width()) + " x " + std::to_string(needs.height());
}

/// The area that scrolls what stands in it, or nothing.
const QAbstractScrollArea* AreaAround(const QWidget& control)
{
    for (const QWidget* at = &control; at->parentWidget() != nullptr && !at->isWindow();
         at = at->parentWidget()) {
        const auto* area = qobject_cast<const QAbstractScrollArea*>(at->parentWidget());
        if (area != nullptr && area->viewport() == at) return area;
    }
    return nullptr;
}

void CheckLabel(const QLabel& label, Sentences& sentences)
{
    if (label.text().isEmpty()) return;
    const bool breaks = label.wordWrap();
    const int width = label.contentsRect().width();
    const QSize needs(breaks ? label.minimumSizeHint().width() : label.sizeHint().width(),
                      breaks ? label.heightForWidth(label.width()) : label.sizeHint().height());
    const QRect drawn = label.fontMetrics().boundingRect(
        QRect(0, 0, std::max(1, width), 100000), Qt::TextWordWrap, label.text());
    if (breaks ? needs.height() > label.height() || drawn.width() > width
               : needs.width() > label.width() || needs.height() > label.height())
        sentences.push_back("text cut: " + Told(label) + Sizes(label.size(), needs));
}

void CheckButton(const QAbstractButton& button, Sentences& sentences)
{
    const QSize needs = button.sizeHint();
    if (needs.width() > button.width() || needs.height() > button.height())
        sentences.push_back("button cut: " + Told(button) + Sizes(button.size(), needs));
}

void CheckBox(const QLineEdit& box, Sentences& sentences)
{
    const int least = box.fontMetrics().height();
    if (box.contentsRect().height() < least ||
        box.contentsRect().width() < 3 * box.fontMetrics().averageCharWidth())
        sentences.push_back("box too small: " + Told(box) + Sizes(box.size(), box.sizeHint()));
}

/// A choice whose words do not fit says them in its tool tip.
void CheckCombo(const QComboBox& combo, Sentences& sentences)
{
    const int words = combo.fontMetrics().horizontalAdvance(combo.currentText());
    const bool told = combo.toolTip() == combo.currentText();
    if (combo.height() < combo.sizeHint().height() || (words > combo.width() && !told))
        sentences.push_back("choice cut: " + Told(combo) + Sizes(combo.size(), combo.sizeHint()));
}

void CheckTabs(const QTabBar& tabs, Sentences& sentences)
{
    for (int tab = 0; tab < tabs.count(); ++tab) {
        if (!tabs.rect().contains(tabs.tabRect(tab)))
            sentences.push_back("tab out of sight: " + Told(tabs) + ' ' + tabs.tabText(tab).toStdString());
    }
}

int LongestWord(const QFontMetrics& metrics, const QString& text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    int width = 0;
    for (const QString& word : text.split(blanks, Qt::SkipEmptyParts))
        width = std::max(width, metrics.horizontalAdvance(word));
    return width;
}

/// Heads never cut their words; a cell in one line has room for its text.
void CheckGrid(const platform::Grid& grid, Sentences& sentences)
{
    const QFontMetrics metrics = grid.fontMetrics();
    for (int column = 0; column < grid.model()->columnCount(); ++column) {
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            const QString text = grid.model()->index(row, column).data().toString();
            const bool figure =
                !text.isEmpty() && !text.contains(QRegularExpression(QStringLiteral("[A-Za-z]")));
            const int has = grid.visualRect(grid.model()->index(row, column)).width();
            if (has < (figure ? metrics.horizontalAdvance(text) : std::min(LongestWord(metrics, text), has)))
                sentences.push_back("cell cut: " + Told(grid) + ' ' + text.toStdString());
        }
    }
}

void CheckList(const platform::ListBox& list, Sentences& sentences)
{
    for (int row = 0; row < list.count(); ++row) {
        const QRect place = list.visualItemRect(list.item(row));
        const QString text = list.item(row)->text();
        if (place.width() < LongestWord(list.fontMetrics(), text) || place.right() > list.viewport()->width())
            sentences.push_back("row cut: " + Told(list) + ' ' + text.toStdString());
    }
}

/// Inside what holds it, unless that scrolls; then it is no wider than the room where none can scroll across.
void CheckPlace(const QWidget& control, Sentences& sentences)
{
    const QWidget& holder = *control.parentWidget();
    const QAbstractScrollArea* area = AreaAround(control);
    if (area != nullptr && area->viewport() == &holder) {
        const bool across = area->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
        if (!across && control.width() > holder.width())
            sentences.push_back("wider than its area: " + Told(control));
        return;
    }
    if (!holder.rect().contains(control.geometry()))
        sentences.push_back("beyond " + FocusWalk::NameOf(&holder) + ": " + Told(control));
}

void CheckKind(QWidget& control, Sentences& sentences)
{
    if (const auto* label = qobject_cast<QLabel*>(&control)) CheckLabel(*label, sentences);
    if (const auto* button = qobject_cast<QAbstractButton*>(&control)) CheckButton(*button, sentences);
    if (const auto* box = qobject_cast<QLineEdit*>(&control)) CheckBox(*box, sentences);
    if (const auto* combo = qobject_cast<QComboBox*>(&control)) CheckCombo(*combo, sentences);
    if (const auto* tabs = qobject_cast<QTabBar*>(&control)) CheckTabs(*tabs, sentences);
    if (const auto* grid = qobject_cast<platform::Grid*>(&control)) CheckGrid(*grid, sentences);
    if (const auto* list = qobject_cast<platform::ListBox*>(&control)) CheckList(*list, sentences);
}

/// Parts of the toolkit's own that show nothing of the program.
bool IsInner(const QWidget& control)
{
    const QString name = control.objectName();
    return name.startsWith(QLatin1String("qt_")) || qobject_cast<const QHeaderView*>(&control) != nullptr ||
           qobject_cast<const QScrollBar*>(&control) != nullptr ||
           control.inherits("QComboBoxPrivateContainer") || control.inherits("QTableCornerButton") ||
           control.inherits("QLineEditIconButton") || name.startsWith(QLatin1String("Scroll")) ||
           qobject_cast<const QComboBox*>(control.parentWidget()) != nullptr;
}

} // namespace

std::vector<std::string> Complaints(QWidget& window)
{
    Sentences sentences;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &window || IsInner(*control)) continue;
        CheckKind(*control, sentences);
        CheckPlace(*control, sentences);
    }
    return sentences;
}

} // namespace WholeControls
