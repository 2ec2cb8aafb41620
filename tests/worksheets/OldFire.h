#pragma once

#include "support/TestSession.h"

#include <QJsonObject>

#include <map>
#include <ostream>
#include <string>
#include <vector>

/// What is to be read at a place of the program.
struct Sight
{
    const char* place; // as the visits of every place call it
    std::string text;  // of one line
};

/// A fire of an older format in a database of the older engine, and what it holds for its reader.
struct OldFire
{
    const char* name;   // of its files
    const char* ending; // of the one with the database
    bool asksAsOldest;  // older than 05.01.02
    bool hasWorstCase;
    std::vector<Sight> figures;

    /// Those kept here and those of VEXA_CORPUS.
    static const std::vector<OldFire>& All();

    /// Of the database; empty where it is neither kept here nor in the folder that VEXA_CORPUS names.
    std::string Path() const;
    /// The texts of the tables as they were before anybody opened them, where worksheets show them.
    std::vector<Sight> TextsOnWorksheets() const;
    /// Those that belong on paper.
    std::vector<std::string> TextsOnPaper() const;
    /// The file after it was opened.
    QJsonObject Converted() const;

    /// By its file, where a test names it.
    friend void PrintTo(const OldFire& fire, std::ostream* out) { *out << fire.name << fire.ending; }

private:
    std::vector<std::string> Ask(const std::string& query) const;
};

/// What the companion tells of a file that no session has open.
QJsonObject DumpedByCompanion(const std::string& path);
/// How many rows of each table of the second dump are not in the first. An empty cell is as good as none, and
/// the table of named values, where the path stands, is left out.
std::map<std::string, int> ChangedRows(const QJsonObject& before, const QJsonObject& after);
