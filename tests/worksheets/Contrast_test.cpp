#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/TabStrip.h"
#include "platform/widgets/Theme.h"
#include "worksheets/EveryPlace.h"
#include "worksheets/FocusWalk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QToolButton>

#include <gmock/gmock.h>
#include <map>

namespace Theme = platform::Theme;

namespace {

constexpr double kReadable = 4.5; // text
constexpr double kSeen = 3.0;     // pictures on buttons
constexpr int kLarger = 4;        // times: the strokes of letters have their full colour
constexpr int kFewPixels = 8;     // fewer of one colour are no part of a letter

/// Of the ground and the ink that stands out most of it, as they were drawn.
double ContrastIn(const QImage& picture, int fewPixels)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto more = [](const auto& one, const auto& other) { return one.second < other.second; };
    const QColor ground(std::max_element(counts.begin(), counts.end(), more)->first);
    double most = 1.0;
    for (const auto& [ink, count] : counts) {
        if (count >= fewPixels) most = std::max(most, Theme::Contrast(ground, QColor(ink)));
    }
    return most;
}

/// Where a window shows a text, and what tells it in a failure.
struct ShownText
{
    QRect place; // in the window
    std::string told;
    double least = kReadable;
    int fewPixels = kFewPixels;
};

QImage Enlarged(QWidget& shown)
{
    QImage picture(shown.size() * kLarger, QImage::Format_RGB32);
    picture.setDevicePixelRatio(kLarger);
    shown.render(&picture);
    return picture;
}

QRect Enlarged(const QRect& place) { return {place.topLeft() * kLarger, place.size() * kLarger}; }

class Contrasts : public EveryPlace
{
protected:
    static void Check(QWidget& shown, const std::string& place)
    {
        const QImage picture = Enlarged(shown);
        for (const ShownText& text : TextsOf(shown))
            EXPECT_GE(ContrastIn(picture.copy(Enlarged(text.place)), text.fewPixels), text.least)
                << place << ' ' << text.told;
    }
    void CheckInTheDark(const std::function<void()>& check)
    {
        const QPalette before = QGuiApplication::palette();
        QApplication::setPalette(Theme::WithAccent(Theme::DarkPalette()));
        check();
        QApplication::setPalette(before);
    }

private:
    static std::vector<ShownText> TextsOf(QWidget& shown)
    {
        std::vector<ShownText> texts;
        for (QWidget* control : shown.findChildren<QWidget*>()) {
            if (!control->isVisible() || control->window() != &shown) continue;
            AddLabel(*control, texts);
            AddTabs(*control, texts);
            AddCells(*control, texts);
        }
        return texts;
    }
    /// Whether one sees all of a part of a control: nothing covers it, nothing cuts it.
    static bool IsSeen(QWidget& control, const QRect& part)
    {
        QWidget& window = *control.window();
        const QRect place(control.mapTo(&window, part.topLeft()), part.size());
        QWidget* at = window.childAt(place.center());
        const bool onTop = at == &control || (at != nullptr && control.isAncestorOf(at)) ||
                           (at != nullptr && at->isAncestorOf(&control));
        return onTop && control.visibleRegion().boundingRect().contains(part) && part.width() > 3;
    }
    static void Add(QWidget& control, const QRect& part, const QString& text, std::vector<ShownText>& texts)
    {
        if (text.trimmed().isEmpty() || !IsSeen(control, part)) return;
        texts.push_back({{control.mapTo(control.window(), part.topLeft()), part.size()},
                         FocusWalk::NameOf(&control) + " '" + text.toStdString() + "'"});
    }
    /// A tool button with a picture has no letters; the picture of a disabled one may be faint.
    static void AddButton(QAbstractButton& button, std::vector<ShownText>& texts)
    {
        const auto* tool = qobject_cast<QToolButton*>(&button);
        const bool picture = tool != nullptr && !tool->icon().isNull();
        if (picture && !tool->isEnabled()) return;
        const std::size_t before = texts.size();
        Add(button, button.rect().adjusted(3, 3, -3, -3), button.text(), texts);
        if (!picture || texts.size() == before) return;
        texts.back().least = kSeen;
        texts.back().fewPixels = 1; // it is drawn in its own size and enlarged
    }
    static void AddLabel(QWidget& control, std::vector<ShownText>& texts)
    {
        if (auto* label = qobject_cast<QLabel*>(&control)) Add(control, control.rect(), label->text(), texts);
        if (auto* button = qobject_cast<QAbstractButton*>(&control)) AddButton(*button, texts);
        if (auto* box = qobject_cast<QLineEdit*>(&control)) {
            const QString text = box->text().isEmpty() ? box->placeholderText() : box->text();
            Add(control, box->rect().adjusted(3, 3, -3, -3), text, texts);
        }
        if (auto* combo = qobject_cast<QComboBox*>(&control)) {
            const int arrow = combo->height();
            Add(control, combo->rect().adjusted(3, 3, -arrow, -3), combo->currentText(), texts);
        }
        if (auto* box = qobject_cast<QPlainTextEdit*>(&control)) {
            const QString text = box->toPlainText().isEmpty() ? box->placeholderText() : box->toPlainText();
            Add(*box->viewport(), box->viewport()->rect(), text, texts);
        }
        if (auto* menus = qobject_cast<QMenuBar*>(&control)) {
            for (QAction* menu : menus->actions())
                Add(control, menus->actionGeometry(menu), menu->text(), texts);
        }
    }
    static void AddTabs(QWidget& control, std::vector<ShownText>& texts)
    {
        auto* tabs = qobject_cast<QTabBar*>(&control);
        for (int tab = 0; tabs != nullptr && tab < tabs->count(); ++tab)
            Add(control, tabs->tabRect(tab).adjusted(4, 5, -4, -5), tabs->tabText(tab), texts);
    }
    /// One of several that stand as one, behind the first.
    static bool IsBelowMerged(QAbstractItemView& view, const QModelIndex& cell)
    {
        return cell.row() > 0 && view.visualRect(cell) == view.visualRect(cell.siblingAtRow(cell.row() - 1));
    }
    static void AddCells(QWidget& control, std::vector<ShownText>& texts)
    {
        auto* view = qobject_cast<QAbstractItemView*>(&control);
        if (view == nullptr || qobject_cast<QHeaderView*>(view) != nullptr || view->model() == nullptr)
            return;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            for (int column = 0; column < view->model()->columnCount(); ++column) {
                const QModelIndex cell = view->model()->index(row, column);
                if (IsBelowMerged(*view, cell)) continue;
                const QRect place = view->visualRect(cell).adjusted(2, 2, -2, -2);
                Add(*view->viewport(), place, cell.data().toString(), texts);
            }
        }
    }
};

TEST_F(Contrasts, EveryPlaceOfASample_AllTextIsReadable) { VisitAll(Check); }

TEST_F(Contrasts, EveryPlaceOfASampleInTheDark_AllTextIsReadable)
{
    CheckInTheDark([this] { VisitAll(Check); });
}

TEST_F(Contrasts, EveryPlaceOfAnEmptyFile_AllTextIsReadable) { VisitEmptyFile(Check); }

TEST_F(Contrasts, EveryPlaceOfAnEmptyFileInTheDark_AllTextIsReadable)
{
    CheckInTheDark([this] { VisitEmptyFile(Check); });
}

} // namespace
