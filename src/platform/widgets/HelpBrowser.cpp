#include "platform/widgets/HelpBrowser.h"

#include "platform/widgets/HelpFile.h"
#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

namespace platform {

namespace {

constexpr int kPageMargin = 16; // pixels, around the text

/// The picture drawn for dark windows, where there is one: "chances.png" has "chances-dark.png".
QUrl DarkTwin(QUrl url)
{
    QString path = url.path();
    path.insert(path.lastIndexOf(QLatin1Char('.')), QStringLiteral("-dark"));
    url.setPath(path);
    return url;
}

} // namespace

HelpBrowser::HelpBrowser(HelpFile& file, QWidget* parent) : QTextBrowser(parent), m_file(file)
{
    setOpenExternalLinks(false);
    document()->setDocumentMargin(kPageMargin);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const QUrl url = source().isEmpty() ? name : source().resolved(name);
    switch (type) {
    case QTextDocument::HtmlResource: return Page(url);
    case QTextDocument::ImageResource: return Picture(url);
    case QTextDocument::StyleSheetResource: return StyleSheet(url);
    default: return {};
    }
}

QVariant HelpBrowser::Page(const QUrl& url) const
{
    const QByteArray page = m_file.Data(url);
    if (!page.isEmpty()) return QString::fromUtf8(page);
    return QStringLiteral("<h1>No such page</h1><p>The help file has no page %1.</p>")
        .arg(url.fileName().toHtmlEscaped());
}

QVariant HelpBrowser::StyleSheet(const QUrl& url) const
{
    // The palette's middle tone is lost in dark windows, where rules are to be seen too.
    return QString::fromUtf8(m_file.Data(url))
        .replace(QLatin1String("palette(mid)"), Theme::Rule(palette()).name());
}

QVariant HelpBrowser::Picture(const QUrl& url) const
{
    const QByteArray twin = Theme::IsDark(palette()) ? m_file.Data(DarkTwin(url)) : QByteArray();
    const QImage picture = QImage::fromData(twin.isEmpty() ? m_file.Data(url) : twin);
    if (picture.width() <= PictureWidth()) return picture;
    return picture.scaledToWidth(PictureWidth(), Qt::SmoothTransformation);
}

int HelpBrowser::PictureWidth() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return qMax(1, width() - 2 * (kPageMargin + frameWidth()) - bar);
}

void HelpBrowser::FitPictures()
{
    m_fittedWidth = PictureWidth();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid()) continue;
            const QUrl name = document()->baseUrl().resolved(QUrl(format.name())); // as it looks for it
            document()->addResource(
                QTextDocument::ImageResource, name, loadResource(QTextDocument::ImageResource, name));
        }
    }
    document()->markContentsDirty(0, document()->characterCount());
}

bool HelpBrowser::Find(const QString& text, bool backward)
{
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindFlags(QTextDocument::FindBackward) : QTextDocument::FindFlags();
    if (find(text, flags)) return true;
    const QTextCursor before = textCursor();
    moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags)) return true;
    setTextCursor(before);
    return false;
}

void HelpBrowser::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (PictureWidth() != m_fittedWidth) FitPictures();
}

void HelpBrowser::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
    const int place = verticalScrollBar()->value();
    reload(); // the colours of the style sheet are the palette's
    verticalScrollBar()->setValue(place);
}

} // namespace platform
