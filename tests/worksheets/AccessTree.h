#pragma once

#include <QAccessible>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

/// What a screen reader finds of a window.
namespace AccessTree {

/// Everything shown below it, itself first, parents ahead of their children.
void Walk(QAccessibleInterface& top, const std::function<void(QAccessibleInterface&)>& visit);
QAccessibleInterface& Of(QWidget& widget);
/// "button 'Spellcheck' cmdSpellcheck", for the texts of failures.
std::string Described(QAccessibleInterface& control);

/// Whether a person works with things of this role.
bool IsControl(QAccessible::Role role);
/// The name it is told by: a combo box by its label, everything else by its own.
QString NameOf(QAccessibleInterface& control);
/// What a person could not tell by ear: controls without a name or a role, tables without heads, controls
/// that the tree does not hold. One sentence each.
std::vector<std::string> Complaints(QWidget& window);

/// Does what a screen reader does on the user's word; false: the control does not offer it.
bool Do(QAccessibleInterface& control, const QString& action);
/// Puts a text in place of all that an editable control holds.
bool Enter(QAccessibleInterface& control, const QString& text);

} // namespace AccessTree
