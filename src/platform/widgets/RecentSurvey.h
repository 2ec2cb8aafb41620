#pragma once

#include "platform/widgets/RecentList.h"

#include <QMultiMap>
#include <QSet>
#include <QXmlStreamReader>

namespace platform {

/// The namespace of the elements that tell which programs used a document.
inline constexpr const char* kBookmarkElements = "http://www.freedesktop.org/standards/desktop-bookmarks";

/// Reads a list of recent documents to its end, for what a copy of it must know from the start.
class RecentSurvey
{
public:
    RecentSurvey(const QByteArray& list, const RecentDocument& document);

    /// The text is such a list, without a fault.
    bool IsWhole() const { return m_isList && !m_xml.hasError(); }
    /// Of the other documents that the document's program alone noted: the addresses of all but the latest.
    QSet<QString> AllButLatest(qsizetype kept) const;

private:
    void Take(QXmlStreamReader::TokenType token);
    void BeginBookmark();
    void EndBookmark();

    QXmlStreamReader m_xml;
    const RecentDocument& m_document;
    bool m_isList = false;
    QString m_address; // of the bookmark being read, as the next three
    QString m_time;
    int m_ours = 0;
    int m_others = 0;
    QMultiMap<QString, QString> m_own; // addresses by time
};

} // namespace platform
