#pragma once

#include <QAccessible>

class QWidget;

namespace platform {

/// Lets screen readers know what those controls are that the toolkit takes for mere windows. Called once, by
/// the application.
void InstallAccessibleRoles();

/// What a control that draws itself is. Call it first in the control's constructor: later it may be known as
/// another thing already.
void SetAccessibleRole(QWidget& control, QAccessible::Role role);

/// What a control shows besides its name, one thing a line. The mark by which tests from outside know a
/// control stays at the end.
void SetAccessibleWords(QWidget& control, const QString& words);

} // namespace platform
