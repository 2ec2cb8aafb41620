#include "platform/widgets/RichTextClipboard.h"

#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/widgets/RichTextBridge.h"
#include "platform/widgets/RichTextPictures.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextCursor>
#include <QUrl>

#include <algorithm>

namespace platform::RichTextClipboard {

namespace {

using richtext::CharacterFormat;
using richtext::RichDocument;

const QString kRtf = QStringLiteral("text/rtf");
const QString kHtml = QStringLiteral("text/html");
const QString kPlain = QStringLiteral("text/plain");

/// The names under which programs offer rich text.
const QStringList& RtfNames()
{
    static const QStringList names = {
        kRtf,
        QStringLiteral("application/rtf"),
        QStringLiteral("text/richtext"),
        QStringLiteral("application/x-qt-windows-mime;value=\"Rich Text Format\"")};
    return names;
}

/// A page of another program, parsed without following anything it names.
class Page : public QTextDocument
{
public:
    explicit Page(const QString& html) { setHtml(html); }

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

bool ShowsSomething(const RichDocument& text)
{
    const std::string plain = richtext::PlainText(text);
    if (plain.find_first_not_of(" \t\n\r") != std::string::npos) return true;
    return std::any_of(text.blocks.begin(), text.blocks.end(), [](const richtext::Block& block) {
        const richtext::Paragraph* paragraph = block.AsParagraph();
        if (paragraph == nullptr) return true;
        return std::any_of(paragraph->runs.begin(), paragraph->runs.end(), [](const richtext::Run& run) {
            return run.picture != nullptr;
        });
    });
}

std::optional<RichDocument> FromRtf(const QMimeData& data)
{
    for (const QString& name : RtfNames()) {
        if (!data.hasFormat(name)) continue;
        const std::string bytes = data.data(name).toStdString();
        if (!richtext::IsRtf(bytes)) continue;
        RichDocument text = richtext::ReadRtf(bytes, richtext::Source::Bytes);
        if (ShowsSomething(text)) return text;
    }
    return {};
}

/// Runs without a font of their own are set like the text that they come to stand beside.
void SetLike(std::vector<richtext::Block>& blocks, const CharacterFormat& beside)
{
    const CharacterFormat own;
    for (richtext::Block& block : blocks) {
        if (richtext::Table* table = block.AsTable()) {
            for (richtext::TableRow& row : table->rows)
                for (richtext::TableCell& cell : row.cells)
                    SetLike(cell.blocks, beside);
            continue;
        }
        for (richtext::Run& run : block.AsParagraph()->runs) {
            if (run.format.font == own.font) run.format.font = beside.font;
            if (run.format.halfPoints == own.halfPoints) run.format.halfPoints = beside.halfPoints;
        }
    }
}

std::optional<RichDocument> FromPage(const QMimeData& data, const CharacterFormat& beside)
{
    if (!data.hasHtml()) return {};
    RichDocument text = RichTextBridge::ForeignTextOf(Page(data.html()));
    if (!ShowsSomething(text)) return {};
    SetLike(text.blocks, beside);
    return text;
}

bool IsPictureFile(const QUrl& url)
{
    const QString suffix = QFileInfo(url.toLocalFile()).suffix().toLower();
    return url.isLocalFile() && (suffix == QLatin1String("png") || suffix == QLatin1String("jpg") ||
                                 suffix == QLatin1String("jpeg"));
}

/// The picture files that a person dropped or copied; none when there are others among them.
QList<QUrl> PictureFiles(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return std::all_of(urls.begin(), urls.end(), IsPictureFile) ? urls : QList<QUrl>();
}

Taken Rich(RichDocument text) { return {Taken::Kind::Rich, {}, std::move(text)}; }

Taken FromFiles(const QList<QUrl>& files, Long widest, const CharacterFormat& beside)
{
    RichDocument all;
    for (const QUrl& url : files) {
        QFile file(url.toLocalFile());
        const bool opened =
            file.size() <= qint64(richtext::maxPictureBytes) && file.open(QIODevice::ReadOnly);
        auto picture = opened ? RichTextPictures::Taken(file.readAll(), widest) : nullptr;
        if (picture == nullptr) return {Taken::Kind::RefusedPicture, {}, {}};
        RichDocument one = PictureAlone(std::move(picture), beside);
        all.blocks.push_back(std::move(one.blocks.front()));
    }
    return Rich(std::move(all));
}

Taken FromPicture(const QMimeData& data, Long widest, const CharacterFormat& beside)
{
    std::shared_ptr<const richtext::Picture> picture;
    bool offered = false;
    for (const char* name : {"image/png", "image/jpeg"}) {
        if (picture != nullptr || !data.hasFormat(QLatin1String(name))) continue;
        offered = true;
        picture = RichTextPictures::Taken(data.data(QLatin1String(name)), widest);
    }
    if (picture == nullptr && !offered && data.hasImage()) {
        offered = true;
        picture = RichTextPictures::Taken(qvariant_cast<QImage>(data.imageData()), widest);
    }
    if (picture != nullptr) return Rich(PictureAlone(std::move(picture), beside));
    return {offered ? Taken::Kind::RefusedPicture : Taken::Kind::Nothing, {}, {}};
}

} // namespace

bool CanTake(const QMimeData& data)
{
    const auto offered = [&](const QString& name) { return data.hasFormat(name); };
    return data.hasText() || data.hasHtml() || data.hasImage() || data.hasUrls() ||
           data.hasFormat(QLatin1String("image/png")) || data.hasFormat(QLatin1String("image/jpeg")) ||
           std::any_of(RtfNames().begin(), RtfNames().end(), offered);
}

Taken Take(const QMimeData& data, Long widest, const CharacterFormat& beside)
{
    const QList<QUrl> files = PictureFiles(data);
    if (!files.isEmpty()) return FromFiles(files, widest, beside);
    if (auto rich = FromRtf(data)) return Rich(std::move(*rich));
    if (auto page = FromPage(data, beside)) return Rich(std::move(*page));
    if (data.hasText() && !data.text().isEmpty()) return {Taken::Kind::Text, data.text(), {}};
    return FromPicture(data, widest, beside);
}

RichDocument PictureAlone(std::shared_ptr<const richtext::Picture> picture, const CharacterFormat& beside)
{
    RichDocument text;
    text.blocks.emplace_back();
    text.blocks.front().AsParagraph()->runs.push_back({beside, {}, std::move(picture)});
    return text;
}

Selection::Selection(QTextDocumentFragment fragment, const RichTextDocument& document)
    : m_fragment(std::move(fragment)), m_pool(document.SharedPool()), m_colors(document.Colors())
{}

QStringList Selection::formats() const { return {kRtf, kHtml, kPlain}; }

RichDocument Selection::Text() const
{
    RichTextDocument document(m_pool, m_colors, nullptr);
    QTextCursor(&document).insertFragment(m_fragment);
    return RichTextBridge::TextOf(document);
}

QVariant Selection::retrieveData(const QString& type, QMetaType preferred) const
{
    if (type == kRtf) return QByteArray::fromStdString(richtext::WriteRtf(Text()));
    if (type == kPlain) return QString::fromStdString(richtext::PlainText(Text()));
    if (type == kHtml) {
        // The names of our pictures mean nothing elsewhere.
        static const QRegularExpression picture(QStringLiteral("<img[^>]*>"));
        return m_fragment.toHtml().remove(picture);
    }
    return QMimeData::retrieveData(type, preferred);
}

} // namespace platform::RichTextClipboard
