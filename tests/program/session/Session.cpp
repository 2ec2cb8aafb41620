#include "program/session/Session.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>

#include <stdexcept>

Session::Session(const std::string& path, Box onBox) : m_hands(m_program.Window()), m_onBox(std::move(onBox))
{
    // The user's own list of recent documents is none of a script's business.
    QStandardPaths::setTestModeEnabled(true);
    constexpr int kOften = 5; // milliseconds
    QObject::connect(&m_boxes, &QTimer::timeout, &m_boxes, [this] { LookForBoxes(); });
    m_boxes.start(kOften);
    m_program.Start(path);
    if (!QTest::qWaitForWindowActive(&m_program.Window()))
        throw std::logic_error("the window does not come up");
}

void Session::LookForBoxes()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    if (box->text().startsWith(QStringLiteral("Do you really want to delete"))) {
        box->button(QMessageBox::Yes)->click();
        return;
    }
    m_onBox(box->text().toStdString());
    box->reject();
}
