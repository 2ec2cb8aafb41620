#include "platform/widgets/SpellMarks.h"

#include "platform/spelling/Speller.h"
#include "platform/widgets/Theme.h"

namespace platform {

namespace {

const QColor kRedOnLight(0xc6, 0x28, 0x28);
const QColor kRedOnDark(0xff, 0x8a, 0x80);

/// Turns growing places in the UTF-8 of a text into places in the text.
class Places
{
public:
    explicit Places(const QByteArray& bytes) : m_bytes(bytes) {}
    int Of(std::size_t byte)
    {
        const auto at = static_cast<qsizetype>(byte);
        m_characters += QString::fromUtf8(m_bytes.constData() + m_at, at - m_at).size();
        m_at = at;
        return static_cast<int>(m_characters);
    }

private:
    const QByteArray& m_bytes;
    qsizetype m_at = 0;
    qsizetype m_characters = 0;
};

} // namespace

QList<TextPlace> WrongWordsIn(Speller& speller, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    Places places(bytes);
    QList<TextPlace> wrong;
    for (const WordPlace& word :
         speller.WrongWords({bytes.constData(), static_cast<std::size_t>(bytes.size())})) {
        const int start = places.Of(word.start);
        wrong.push_back({start, places.Of(word.start + word.length) - start});
    }
    return wrong;
}

QTextCharFormat WrongWordFormat(const QPalette& palette)
{
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::SpellCheckUnderline);
    format.setUnderlineColor(Theme::IsDark(palette) ? kRedOnDark : kRedOnLight);
    return format;
}

} // namespace platform
