#include "platform/widgets/RecentList.h"

#include "platform/widgets/RecentSurvey.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <utility>

namespace platform {

namespace {

const QString kBookmarks = QLatin1String(kBookmarkElements);
const QString kMimeInfo = QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info");
const QString kOwner = QStringLiteral("http://freedesktop.org");
constexpr const char* kEmptyList =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<xbel version=\"1.0\""
    " xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\""
    " xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
    "</xbel>\n";

/// The elements in which a program's use of a document stands, from the outermost.
enum class Level { None, Bookmark, Info, Metadata, Applications, Application };

Level Above(Level level) { return static_cast<Level>(static_cast<int>(level) - 1); }
Level Below(Level level) { return static_cast<Level>(static_cast<int>(level) + 1); }

QString Attribute(const QXmlStreamReader& xml, const char* name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

Level LevelOf(const QXmlStreamReader& xml)
{
    const auto name = xml.name();
    if (xml.namespaceUri() == kBookmarks) {
        if (name == QLatin1String("applications")) return Level::Applications;
        return name == QLatin1String("application") ? Level::Application : Level::None;
    }
    if (name == QLatin1String("bookmark")) return Level::Bookmark;
    if (name == QLatin1String("info")) return Level::Info;
    return name == QLatin1String("metadata") ? Level::Metadata : Level::None;
}

/// Copies a list, token by token, and notes the document on the way.
class Copier
{
public:
    Copier(const QByteArray& list, const RecentDocument& document, QSet<QString> dropped)
        : m_xml(list), m_out(&m_copy), m_document(document), m_dropped(std::move(dropped)),
          m_time(document.time.toUTC().toString(Qt::ISODate))
    {
        m_out.setAutoFormatting(false); // the list's own blanks are copied
    }

    QByteArray Copy()
    {
        while (!m_xml.atEnd())
            Take(m_xml.readNext());
        return m_copy;
    }

private:
    void Take(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::Characters && m_afterDropped && m_xml.isWhitespace()) {
            m_afterDropped = false; // the blanks between two entries go with the one dropped
        } else if (token == QXmlStreamReader::StartElement) {
            Start();
        } else if (token == QXmlStreamReader::EndElement) {
            End();
        } else {
            m_out.writeCurrentToken(m_xml);
            if (token == QXmlStreamReader::StartDocument) m_out.writeCharacters(QStringLiteral("\n"));
        }
    }

    void Start()
    {
        const Level level = LevelOf(m_xml);
        m_afterDropped = level == Level::Bookmark && m_dropped.contains(Attribute(m_xml, "href"));
        if (m_afterDropped) return m_xml.skipCurrentElement();
        if (level == Level::Bookmark && IsTheDocument()) return StartBookmark();
        if (!m_within || !Goes(level)) return m_out.writeCurrentToken(m_xml);
        if (level != Level::Application) {
            m_seen = level;
            return m_out.writeCurrentToken(m_xml);
        }
        const int count = Attribute(m_xml, "count").toInt();
        m_xml.skipCurrentElement();
        WriteApplication(count + 1);
    }

    void End()
    {
        const Level level = LevelOf(m_xml);
        if (m_within && level != Level::None && level == m_seen) WriteFrom(Below(level));
        if (level == Level::Bookmark) m_within = false;
        if (m_xml.name() == QLatin1String("xbel") && !m_noted) AddBookmark();
        m_out.writeCurrentToken(m_xml);
    }

    bool IsTheDocument() const { return !m_noted && Attribute(m_xml, "href") == m_document.address; }

    /// The element is the next on the way down to this program's own.
    bool Goes(Level level) const
    {
        if (level == Level::None || Above(level) != m_seen) return false;
        if (level == Level::Metadata) return Attribute(m_xml, "owner") == kOwner;
        return level != Level::Application || Attribute(m_xml, "name") == m_document.program;
    }

    void StartBookmark()
    {
        m_out.writeStartElement(QStringLiteral("bookmark"));
        for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
            const auto name = attribute.name();
            if (name != QLatin1String("modified") && name != QLatin1String("visited"))
                m_out.writeAttribute(attribute);
        }
        WriteTimes();
        m_within = m_noted = true;
        m_seen = Level::Bookmark;
    }

    void WriteTimes()
    {
        m_out.writeAttribute(QStringLiteral("modified"), m_time);
        m_out.writeAttribute(QStringLiteral("visited"), m_time);
    }

    void AddBookmark()
    {
        m_out.writeCharacters(QStringLiteral("  "));
        m_out.writeStartElement(QStringLiteral("bookmark"));
        m_out.writeAttribute(QStringLiteral("href"), m_document.address);
        m_out.writeAttribute(QStringLiteral("added"), m_time);
        WriteTimes();
        WriteFrom(Level::Info);
        m_out.writeEndElement();
        m_out.writeCharacters(QStringLiteral("\n"));
    }

    /// What is missing, from a level down to this program's own element.
    void WriteFrom(Level level)
    {
        if (level > Level::Application || m_seen == Level::Application) return;
        if (level == Level::Application) return WriteApplication(1);
        if (level == Level::Info) m_out.writeStartElement(QStringLiteral("info"));
        if (level == Level::Metadata) StartMetadata();
        if (level == Level::Applications) m_out.writeStartElement(kBookmarks, QStringLiteral("applications"));
        WriteFrom(Below(level));
        m_out.writeEndElement();
    }

    void StartMetadata()
    {
        m_out.writeStartElement(QStringLiteral("metadata"));
        m_out.writeAttribute(QStringLiteral("owner"), kOwner);
        m_out.writeEmptyElement(kMimeInfo, QStringLiteral("mime-type"));
        m_out.writeAttribute(QStringLiteral("type"), m_document.mimeType);
    }

    void WriteApplication(int count)
    {
        m_out.writeEmptyElement(kBookmarks, QStringLiteral("application"));
        m_out.writeAttribute(QStringLiteral("name"), m_document.program);
        m_out.writeAttribute(QStringLiteral("exec"),
                             QLatin1Char('\'') + m_document.command + QLatin1Char('\''));
        m_out.writeAttribute(QStringLiteral("modified"), m_time);
        m_out.writeAttribute(QStringLiteral("count"), QString::number(count));
        m_seen = Level::Application;
    }

    QXmlStreamReader m_xml;
    QByteArray m_copy;
    QXmlStreamWriter m_out;
    const RecentDocument& m_document;
    QSet<QString> m_dropped;
    QString m_time;
    bool m_noted = false;        // the document's bookmark was met
    bool m_within = false;       // in it now
    Level m_seen = Level::None;  // in it, how far down the way to this program's element went
    bool m_afterDropped = false; // right behind a bookmark that was left out
};

} // namespace

std::optional<QByteArray> WithDocument(const QByteArray& list, const RecentDocument& document, int most)
{
    const QByteArray old = list.isEmpty() ? QByteArray(kEmptyList) : list;
    const RecentSurvey survey(old, document);
    if (!survey.IsWhole()) return std::nullopt;
    return Copier(old, document, survey.AllButLatest(most - 1)).Copy();
}

} // namespace platform
