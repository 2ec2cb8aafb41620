#pragma once

#include <QObject>

#include <exception>
#include <functional>
#include <string>

/// What a screen of figures needs to come up whatever the file holds: a figure that cannot be computed reads
/// as a word in its cell, and its cause is told once, when the handler at hand is done.
class CostFigures : public QObject
{
    Q_OBJECT

public:
    static constexpr const char* kTooLarge = "too large";
    static constexpr const char* kUnknown = "unknown";

    explicit CostFigures(QObject* parent) : QObject(parent) {}

    /// The figure's text, or one of the two words.
    std::string Text(const std::function<std::string()>& figure);
    /// Whether the work was done; what it throws is told as a figure's cause is.
    bool Try(const std::function<void()>& work);

private:
    /// Within a catch block. The same cause is told once in the life of the screen.
    void TellLater(const std::exception& cause);

    std::exception_ptr m_failure; // not yet told
    std::string m_told;
};
