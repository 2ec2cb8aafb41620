#pragma once

#include <QWidget>

#include <array>

/// The lines that lead to the panels of the outcomes on their right: to Target and Extreme, or, where there
/// is a Fallback, to Target and by a second fork to Fallback and Extreme. They follow the panels.
class OutcomeFork : public QWidget
{
    Q_OBJECT

public:
    /// The panels must outlive it.
    OutcomeFork(QWidget& target, QWidget& fallback, QWidget& extreme, QWidget* parent);

    void ShowFallback(bool show);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int Middle(const QWidget& panel) const;
    void PlaceLines();
    void PlaceFallbackLines(int fallback, int extreme);

    QWidget& m_target;
    QWidget& m_fallback;
    QWidget& m_extreme;
    bool m_hasFallback = false;
    std::array<QWidget*, 4> m_fallbackLines{}; // of the second fork, and to the Fallback
    std::array<QWidget*, 4> m_lines{};         // of the first fork, to Target and to Extreme
};
