#include "helpscreen.h"

#include "core/state.h"

namespace sd {

Helpform::Helpform(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Helpform"), s, nav)
{
    setDesignSize(QSize(760, 600));
    addLabel(QStringLiteral("lblTopic"), s.HelpTopic, QRect(20, 20, 720, 480), 14, false, Qt::AlignCenter);
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(354, 510, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    onClick(quit, [this] { closeScreen(); });
}

} // namespace sd
