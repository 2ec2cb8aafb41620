// What a key costs in the rich text editor with a body of 200 pages, against a bare text edit that shows the
// same text: both get the same keys by turns, each with the drawing that follows.

#include "Measure.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextEditor.h"

#include <QKeyEvent>
#include <QTextDocumentFragment>

#include <string>
#include <vector>

namespace {

constexpr int kPages = 200;
constexpr int kParagraphsOnAPage = 7;
constexpr int kKeys = 400;
constexpr double kAllowed = 1.5;

/// Paragraphs of about seven lines with a bold word each, every fourth of them a list item.
std::string LongBody()
{
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 ";
    for (int paragraph = 0; paragraph < kPages * kParagraphsOnAPage; ++paragraph) {
        rtf += paragraph % 4 == 3 ? "\\pard {\\pntext\\tab}{\\*\\pn\\pnlvlblt}\\fi-360\\li360 " : "\\pard ";
        rtf += "The crew held the \\b ridge road\\b0  through the night. ";
        for (int sentence = 0; sentence < 10; ++sentence)
            rtf += "Winds stayed light from the west and the line along the creek was tied in. ";
        rtf += "\\par ";
    }
    return rtf + "}";
}

void Key(QWidget& edit, int key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&edit, &press);
    QApplication::sendEvent(&edit, &release);
    QApplication::processEvents();
}

/// Milliseconds of one key and what follows it. Words of six letters.
double CostOfAKey(QTextEdit& edit, int number)
{
    const bool blank = number % 7 == 6;
    return bench::Milliseconds(
        [&] { Key(edit, blank ? Qt::Key_Space : Qt::Key_E, QString(QLatin1Char(blank ? ' ' : 'e'))); });
}

void PutCursor(QTextEdit& edit, double share)
{
    QTextCursor cursor(edit.document());
    cursor.setPosition(static_cast<int>(edit.document()->characterCount() * share));
    edit.setTextCursor(cursor);
    edit.ensureCursorVisible();
    QApplication::processEvents();
}

void Compare(const std::string& place, double share, platform::RichTextEdit& ours, QTextEdit& bare)
{
    std::vector<double> oursCosts;
    std::vector<double> bareCosts;
    PutCursor(ours, share);
    PutCursor(bare, share);
    for (int key = 0; key < kKeys; ++key) {
        bareCosts.push_back(CostOfAKey(bare, key));
        oursCosts.push_back(CostOfAKey(ours, key));
    }
    bench::PrintMedians("key at the " + place + " of " + std::to_string(kPages) + " pages / bare edit",
                        oursCosts,
                        bareCosts,
                        kAllowed);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = std::min(argc, 1);
    platform::Application application(toolkitArguments, argv);
    platform::RichTextEditor editor(QStringLiteral("txtBody"),
                                    QStringLiteral("Narrative"),
                                    platform::RichTextEditor::Parts::BarAndRuler,
                                    nullptr);
    bool changed = false;
    QObject::connect(
        &editor.Body(), &platform::RichTextEdit::Changed, &editor, [&changed] { changed = true; });
    editor.resize(800, 600);
    editor.show();
    editor.Body().LoadFromMemory(LongBody());

    QTextEdit bare;
    bare.setFont(editor.Body().font());
    bare.document()->setDocumentMargin(platform::RichTextEdit::SheetMargin());
    QTextCursor(bare.document()).insertFragment(QTextDocumentFragment(editor.Body().document()));
    bare.setFrameShape(QFrame::NoFrame);
    bare.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    bare.resize(editor.Body().viewport()->size()); // the same lines, and as much of them to draw
    bare.show();
    QApplication::processEvents();
    Compare("start", 0.0, editor.Body(), bare);
    Compare("middle", 0.5, editor.Body(), bare);
    Compare("end", 0.99, editor.Body(), bare);
    return changed ? 0 : 1;
}
