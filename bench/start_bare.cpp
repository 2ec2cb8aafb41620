// The floor for the program's start: a bare window with one label.

#include "FirstPaint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QuitAfterFirstPaint(application, "label");
    QMainWindow window;
    auto* label = new QLabel(QStringLiteral("A window with one label"), &window);
    label->setObjectName(QStringLiteral("label"));
    window.setCentralWidget(label);
    window.resize(808, 608);
    window.show();
    return QApplication::exec();
}
