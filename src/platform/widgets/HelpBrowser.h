#pragma once

#include <QTextBrowser>

namespace platform {

class HelpFile;

/// A page of the help file, in the colours of the window it stands in. Pictures are no wider than the page.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    /// The file outlives the browser.
    HelpBrowser(HelpFile& file, QWidget* parent);

    QVariant loadResource(int type, const QUrl& name) override;
    /// The next place that holds the text, from the start again behind the last one; false when there is
    /// none.
    bool Find(const QString& text, bool backward);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QVariant Page(const QUrl& url) const;
    QVariant StyleSheet(const QUrl& url) const;
    QVariant Picture(const QUrl& url) const;
    int PictureWidth() const;
    /// Makes the pictures of the page again, for another width.
    void FitPictures();

    HelpFile& m_file;
    int m_fittedWidth = 0;
};

} // namespace platform
