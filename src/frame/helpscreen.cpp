#include "helpscreen.h"

#include "core/state.h"
#include "printing.h"
#include "ui/richtextbox.h"

#include <QCoreApplication>

namespace sd {

Helpform::Helpform(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Helpform"), s, nav)
{
    setDesignSize(QSize(760, 600));
    setWindowTitle(QStringLiteral("StudyDesk - Help"));
    m_text = new RichTextBox(this);
    m_text->setObjectName(QStringLiteral("RichTextBox1"));
    place(m_text, QRect(20, 20, 720, 480));
    if (!m_text->loadDataFile(s.DataDir, s.HelpTopic + QStringLiteral(".rtf")))
        m_text->setPlainMessage(QStringLiteral("ERROR - File not found"));

    ui::ImageButton *print = addButton(QStringLiteral("Printing"), QStringLiteral("print"), QRect(160, 512, 52, 52),
                                       QStringLiteral("lblPrint"), QStringLiteral("Print text"));
    ui::ImageButton *about = addButton(QStringLiteral("About"), QStringLiteral("help"), QRect(354, 512, 52, 52),
                                       QStringLiteral("lblAbout"), QStringLiteral("About StudyDesk"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(548, 512, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    onClick(print, [this] { printHelpText(state, this, state.HelpTopic + QStringLiteral(".txt")); });
    onClick(about, [this] { this->nav().openModal(QStringLiteral("About")); });
    onClick(quit, [this] { closeScreen(); });
}

About::About(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("About"), s, nav)
{
    setDesignSize(QSize(560, 420));
    setWindowTitle(QStringLiteral("About StudyDesk"));
    addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(230, 16, 100, 100));
    addLabel(QStringLiteral("lblName"), QStringLiteral("StudyDesk"), QRect(20, 120, 520, 44), 24, true, Qt::AlignCenter);
    addLabel(QStringLiteral("lblVersion"), QStringLiteral("Version ") + QCoreApplication::applicationVersion(),
             QRect(20, 166, 520, 24), 12, false, Qt::AlignCenter);
    addLabel(QStringLiteral("lblLicence"),
             QStringLiteral("Free software under the GNU General Public License, version 3 or later "
                            "(GPL-3.0-or-later)."),
             QRect(20, 196, 520, 48), 11, false, Qt::AlignCenter)
        ->setWordWrap(true);
    addLabel(QStringLiteral("lblCredits"),
             QStringLiteral("Made by the StudyDesk team. The pictures, sounds and texts are our own work."),
             QRect(20, 248, 520, 48), 11, false, Qt::AlignCenter)
        ->setWordWrap(true);
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(254, 318, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    onClick(quit, [this] { closeScreen(); });
}

} // namespace sd
