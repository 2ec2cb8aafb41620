#pragma once

#include "vexa/Program.h"

#include <QString>

class QImage;

/// Takes the pictures of the help from the program itself, with a fire opened in it.
class Photographer
{
public:
    /// The folder for the pictures.
    Photographer(Program& program, const QString& folder) : m_program(program), m_folder(folder) {}

    void TakeStart();
    /// The program shows the fire.
    void TakeWorksheets();
    void TakeDialogs();
    void TakePreview();
    void TakeChances();
    /// False: a picture could not be written.
    bool AllWritten() const { return m_allWritten; }

private:
    void GoTo(int section, int tab);
    void Take(const char* name);
    void TakeFrom(QWidget& window, const char* name);
    void TakeDialog(const char* name, const char* button);
    void Save(const QImage& picture, const QString& name);

    Program& m_program;
    QString m_folder;
    bool m_allWritten = true;
};
