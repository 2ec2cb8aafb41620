#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace platform {

/// A document as the desktop's list of recent documents names it, and the program it was open in.
struct RecentDocument
{
    QString address; // a URL in its encoded form
    QString mimeType;
    QString program; // the name that the program goes by in the list
    QString command; // which opens a document; "%f" stands for it
    QDateTime time;
};

/// The text of a list of recent documents (XBEL with the desktop's bookmark elements) with a document noted
/// as just used. Everything else in the list stays: other documents, and what other programs noted of this
/// one. Of the documents that this program alone noted the latest `most` stay. An empty text is an empty
/// list; nothing comes back for a text that cannot be read whole.
std::optional<QByteArray> WithDocument(const QByteArray& list, const RecentDocument& document, int most);

} // namespace platform
