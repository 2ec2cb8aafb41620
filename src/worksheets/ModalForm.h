#pragma once

#include <QDialog>

#include <string>

/// A dialog of a worksheet, modal to the main window. Made anew each time: `Setup` loads and fills it, `exec`
/// shows it. Its button Close, Escape and the box of its frame all close it alike: it saves, and when that
/// fails the user may stay. Its objectName is its given name.
class ModalForm : public QDialog
{
    Q_OBJECT

public:
    ModalForm(const QString& name, int helpContextID, QWidget* parent);

    /// Begins with BeginSetup, then fills the dialog while busy.
    virtual void Setup() = 0;
    /// Writes what the dialog's current objects hold. Throws DatabaseError.
    virtual void SaveChanges() = 0;

    void done(int result) override;

protected:
    /// Makes and wires the controls.
    virtual void BuildControls() = 0;
    /// The end of the dialog, when it is saved or left unsaved.
    virtual void Form_Unload() {}
    /// What the user is asked when the save at the close failed.
    virtual std::string UnsavedText(const std::string& cause) const = 0;

    /// The lines that every Setup begins with: traces it, loads the dialog in this size (twips; larger
    /// where its controls need it, and on a large main window) and centres it on the main window.
    void BeginSetup(int width, int height);

private:
    void Form_Load(int width, int height);
    void CenterOnMain();
    /// False: the save failed and the user stays.
    bool MayClose();

    bool m_loaded = false;
};
