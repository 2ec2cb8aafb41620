#pragma once

#include <QString>
#include <QStringList>

#include <map>

/// The pages of the help as they are written, by their file names.
struct HelpSources
{
    /// An entry of the project's table of contents or of its index.
    struct Entry
    {
        QString title; // the keyword's name in the index
        QString page;
        QString id; // in the index, of a topic
    };

    HelpSources();

    QString TitleOf(const QString& page) const;
    /// What the links and pictures of a page name.
    QStringList LinksOf(const QString& page) const;
    QStringList PicturesOf(const QString& page) const;

    std::map<QString, QString> pages;
    QList<Entry> contents;
    QList<Entry> keywords;
    QStringList files; // that the project names
};

/// All that stands between a pattern's brackets, one for each match.
QStringList AllMatches(const QString& text, const QString& pattern);
/// A text file of the sources, of which there is one.
QString ReadSource(const QString& path);
