#include "worksheets/frm11Intro.h"

#include "platform/widgets/FormattedLabel.h"
#include "session/SessionState.h"
#include "session/u91Trace.h"
#include "worksheets/IntroductionTexts.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm0_VEXA.h"

frm11Intro::frm11Intro(QWidget* parent) : Worksheet(QStringLiteral("frm11Intro"), parent) {}

void frm11Intro::Setup() { Setup(gCurrentSection); }

void frm11Intro::Setup(int section)
{
    u91Trace::Trace("frm11Intro.Setup");
    Load();
    a3VEXAforms::SizeWorksheet(*this);
    MainWindow().DisableEditMenu();
    MainWindow().SectionMenu_Check(section);
    MainWindow().WorksheetMenu_Check(1);
    gCurrentTab = "tab11";
    const IntroductionText text = IntroductionOf(section);
    m_lblTitle->setText(QString::fromUtf8(text.title));
    m_flbDescription->SetMarkup(text.description);
    SetHelpContextID(text.helpContextID);
    setAccessibleName(m_lblTitle->text());
}

void frm11Intro::BuildControls()
{
    setWindowTitle(QStringLiteral("Introduction"));
    QVBoxLayout* column = WorksheetParts::Column(this);
    m_lblTitle = WorksheetParts::Title(QString(), this);
    m_flbDescription = new platform::FormattedLabel(this);
    m_flbDescription->setObjectName(QStringLiteral("flbDescription"));
    column->addWidget(m_lblTitle);
    column->addWidget(m_flbDescription);
    column->addStretch();
}
