#include "help/HelpSources.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <stdexcept>

namespace {

const QString kFolder = QStringLiteral(VEXA_HELP_PAGES "/");

void ReadProject(HelpSources& sources)
{
    QXmlStreamReader xml(ReadSource(kFolder + QStringLiteral("VEXAPlus.qhp")));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const auto value = [&xml](const char* name) {
            return xml.attributes().value(QLatin1String(name)).toString();
        };
        if (xml.name() == QLatin1String("section"))
            sources.contents.append({value("title"), value("ref"), QString()});
        if (xml.name() == QLatin1String("keyword"))
            sources.keywords.append({value("name"), value("ref"), value("id")});
        if (xml.name() == QLatin1String("file")) sources.files.append(xml.readElementText());
    }
    if (xml.hasError()) throw std::runtime_error(xml.errorString().toStdString());
}

} // namespace

QString ReadSource(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("no " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

QStringList AllMatches(const QString& text, const QString& pattern)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

HelpSources::HelpSources()
{
    for (const QString& name : QDir(kFolder).entryList({QStringLiteral("*.html")}))
        pages[name] = ReadSource(kFolder + name);
    ReadProject(*this);
}

QString HelpSources::TitleOf(const QString& page) const
{
    return AllMatches(pages.at(page), QStringLiteral("<title>(.*?)</title>")).value(0);
}

QStringList HelpSources::LinksOf(const QString& page) const
{
    return AllMatches(pages.at(page), QStringLiteral("<a href=\"([^\"]*)\""));
}

QStringList HelpSources::PicturesOf(const QString& page) const
{
    return AllMatches(pages.at(page), QStringLiteral("<img src=\"([^\"]*)\""));
}
