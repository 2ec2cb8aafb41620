#pragma once

class QApplication;

/// Ends the program as soon as the first widget of this object name has been painted and the window system
/// has it.
void QuitAfterFirstPaint(QApplication& application, const char* objectName);
