#include "worksheets/AccessTree.h"

#include <QMetaEnum>

#include <algorithm>
#include <set>

namespace AccessTree {

namespace {

bool IsShown(QAccessibleInterface& control)
{
    const QAccessible::State state = control.state();
    return control.isValid() && !state.invisible;
}

/// What the data leave empty is read as empty: a cell, a row.
bool MayBeEmpty(QAccessible::Role role)
{
    return role == QAccessible::Cell || role == QAccessible::ListItem || role == QAccessible::TreeItem;
}

/// Roles that say nothing of what one does there.
bool SaysNothing(QAccessible::Role role)
{
    return role == QAccessible::NoRole || role == QAccessible::Client || role == QAccessible::Border ||
           role == QAccessible::Whitespace;
}

void ComplainOfControl(QAccessibleInterface& control, std::vector<std::string>& complaints)
{
    const QAccessible::Role role = control.role();
    const bool focusable = control.state().focusable && !control.state().disabled;
    if ((focusable || IsControl(role)) && !MayBeEmpty(role) && NameOf(control).trimmed().isEmpty())
        complaints.push_back("no name: " + Described(control));
    if (focusable && SaysNothing(role)) complaints.push_back("no role: " + Described(control));
}

void ComplainOfTable(QAccessibleInterface& control, std::vector<std::string>& complaints)
{
    QAccessibleTableInterface* table = control.tableInterface();
    if (table == nullptr || control.role() != QAccessible::Table) return;
    for (int column = 0; column < table->columnCount(); ++column) {
        if (table->rowCount() > 0 && table->columnDescription(column).isEmpty())
            complaints.push_back("column without head: " + Described(control) + std::to_string(column));
        for (int row = 0; row < table->rowCount(); ++row) {
            const QAccessibleInterface* cell = table->cellAt(row, column);
            if (cell == nullptr || cell->role() != QAccessible::Cell)
                complaints.push_back("no cell: " + Described(control));
        }
    }
}

/// Every widget that takes the focus stands in the tree, or it is a part of one that does.
void ComplainOfMissing(QWidget& window, const std::set<QObject*>& found, std::vector<std::string>& complaints)
{
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool works = widget->isVisible() && widget->window() == &window &&
                           (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled();
        if (works && !found.contains(widget))
            complaints.push_back("not in the tree: " + widget->objectName().toStdString() + " a " +
                                 widget->metaObject()->className());
    }
}

} // namespace

void Walk(QAccessibleInterface& top, const std::function<void(QAccessibleInterface&)>& visit)
{
    if (!IsShown(top)) return;
    visit(top);
    for (int child = 0; child < top.childCount(); ++child) {
        if (QAccessibleInterface* below = top.child(child)) Walk(*below, visit);
    }
}

QAccessibleInterface& Of(QWidget& widget) { return *QAccessible::queryAccessibleInterface(&widget); }

std::string Described(QAccessibleInterface& control)
{
    const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    std::string text = roles.valueToKey(control.role()) == nullptr ? std::to_string(control.role())
                                                                   : roles.valueToKey(control.role());
    text += " '" + NameOf(control).toStdString() + "'";
    for (QAccessibleInterface* of = &control; of != nullptr; of = of->parent()) {
        if (of->object() == nullptr || of->object()->objectName().isEmpty()) continue;
        return text + " " + of->object()->objectName().toStdString() + " a " +
               of->object()->metaObject()->className();
    }
    return text;
}

bool IsControl(QAccessible::Role role)
{
    static const std::set<QAccessible::Role> kControls = {QAccessible::Button,
                                                          QAccessible::ButtonMenu,
                                                          QAccessible::ButtonDropDown,
                                                          QAccessible::CheckBox,
                                                          QAccessible::RadioButton,
                                                          QAccessible::ComboBox,
                                                          QAccessible::EditableText,
                                                          QAccessible::List,
                                                          QAccessible::ListItem,
                                                          QAccessible::Table,
                                                          QAccessible::ColumnHeader,
                                                          QAccessible::Cell,
                                                          QAccessible::PageTab,
                                                          QAccessible::PageTabList,
                                                          QAccessible::SpinBox,
                                                          QAccessible::Slider,
                                                          QAccessible::MenuItem,
                                                          QAccessible::Document,
                                                          QAccessible::Tree};
    return kControls.contains(role);
}

QString NameOf(QAccessibleInterface& control)
{
    if (control.role() != QAccessible::ComboBox) return control.text(QAccessible::Name);
    for (const auto& [label, relation] : control.relations(QAccessible::Label))
        return label->text(QAccessible::Name);
    return {};
}

std::vector<std::string> Complaints(QWidget& window)
{
    std::vector<std::string> complaints;
    std::set<QObject*> found;
    Walk(Of(window), [&](QAccessibleInterface& control) {
        if (control.object() != nullptr) found.insert(control.object());
        ComplainOfControl(control, complaints);
        ComplainOfTable(control, complaints);
    });
    ComplainOfMissing(window, found, complaints);
    return complaints;
}

bool Do(QAccessibleInterface& control, const QString& action)
{
    QAccessibleActionInterface* actions = control.actionInterface();
    if (actions == nullptr || !actions->actionNames().contains(action)) return false;
    actions->doAction(action);
    return true;
}

bool Enter(QAccessibleInterface& control, const QString& text)
{
    QAccessibleEditableTextInterface* editable = control.editableTextInterface();
    if (editable == nullptr) return false;
    editable->replaceText(0, control.textInterface()->characterCount(), text);
    return true;
}

} // namespace AccessTree
