#pragma once

#include "program/session/Hands.h"
#include "vexa/Program.h"

#include <QTimer>

#include <functional>

/// The whole program with its window, and hands that work in it. Questions whether to delete are answered
/// Yes; any other box is handed to `onBox` and closed.
class Session
{
public:
    using Box = std::function<void(const std::string& text)>;

    /// Starts the program with a file, as main() does.
    Session(const std::string& path, Box onBox);

    Hands& hands() { return m_hands; }
    frm0_VEXA& Window() { return m_program.Window(); }

private:
    void LookForBoxes();

    Program m_program;
    Hands m_hands;
    Box m_onBox;
    QTimer m_boxes;
};
