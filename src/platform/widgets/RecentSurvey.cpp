#include "platform/widgets/RecentSurvey.h"

namespace platform {

RecentSurvey::RecentSurvey(const QByteArray& list, const RecentDocument& document)
    : m_xml(list), m_document(document)
{
    m_isList = m_xml.readNextStartElement() && m_xml.name() == QLatin1String("xbel");
    while (!m_xml.atEnd())
        Take(m_xml.readNext());
}

QSet<QString> RecentSurvey::AllButLatest(qsizetype kept) const
{
    QSet<QString> older;
    for (const QString& address : m_own) { // from the earliest time
        if (m_own.size() - older.size() <= kept) break;
        older.insert(address);
    }
    return older;
}

void RecentSurvey::Take(QXmlStreamReader::TokenType token)
{
    if (m_xml.name() == QLatin1String("bookmark")) {
        if (token == QXmlStreamReader::StartElement) BeginBookmark();
        if (token == QXmlStreamReader::EndElement) EndBookmark();
    } else if (token == QXmlStreamReader::StartElement && m_xml.name() == QLatin1String("application") &&
               m_xml.namespaceUri() == QLatin1String(kBookmarkElements)) {
        ++(m_xml.attributes().value(QLatin1String("name")) == m_document.program ? m_ours : m_others);
    }
}

void RecentSurvey::BeginBookmark()
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    m_address = attributes.value(QLatin1String("href")).toString();
    m_time = attributes.value(QLatin1String("modified")).toString(); // in UTC, so that texts sort by time
    m_ours = m_others = 0;
}

void RecentSurvey::EndBookmark()
{
    if (m_ours > 0 && m_others == 0 && m_address != m_document.address) m_own.insert(m_time, m_address);
}

} // namespace platform
