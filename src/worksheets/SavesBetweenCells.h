#pragma once

#include "platform/widgets/Application.h"

#include <exception>
#include <functional>
#include <utility>

/// What a form saves of its own accord, between two cells. A failure is told once and not again at every
/// further move: what was not saved stays changed, is tried again at each move, and leaving the worksheet
/// tells it anew.
class SavesBetweenCells
{
public:
    /// False: this could not be saved, which was told.
    bool Try(const std::function<void()>& save)
    {
        try {
            save();
            return true;
        } catch (const std::exception& error) {
            if (!std::exchange(m_told, true)) platform::ReportError(error.what());
            return false;
        }
    }
    /// The next failure is told again: something new was typed, or all is saved.
    void TellAgain() { m_told = false; }

private:
    bool m_told = false;
};
