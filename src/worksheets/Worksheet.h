#pragma once

#include <QWidget>

#include <string>

/// What every worksheet form is. a3VEXAforms makes it, `Setup` loads and fills it, `UnloadCurrentWorksheet`
/// deletes it, so it is filled afresh at each visit. Its objectName is its given name.
class Worksheet : public QWidget
{
    Q_OBJECT

public:
    /// Nothing is laid out yet: that is for BuildControls, when the form loads.
    Worksheet(const QString& name, QWidget* parent);

    /// Brings the form up: begins with BeginSetup, then fills it while busy.
    virtual void Setup() = 0;
    /// Writes what the form's current objects hold; called whenever the worksheet is left. Throws
    /// DatabaseError.
    virtual void SaveChanges() {}

    int HelpContextID() const { return m_helpContextID; }
    void SetHelpContextID(int id) { m_helpContextID = id; }

    /// The first call lays the form out and traces its load. Later calls do nothing.
    void Load();
    /// Traces the unload, ahead of the deletion. A form that goes with the process is not unloaded. Saves
    /// nothing: whoever leaves a worksheet has called SaveChanges before.
    void Unload();

protected:
    /// Makes and wires the controls; called once, when the form loads.
    virtual void BuildControls() {}

    /// The lines that every Setup begins with: traces it, loads and sizes the form, enables the Edit menu,
    /// checks the Worksheet entry and makes this worksheet the current one.
    void BeginSetup(int worksheetNumber, const std::string& key);
    /// The same for a form whose Setup is traced by another name.
    void BeginSetup(int worksheetNumber, const std::string& key, const std::string& trace);

private:
    int m_helpContextID = 0;
    bool m_loaded = false;
};
