#include "appscreen.h"

#include "core/settings.h"
#include "core/state.h"

#include <QKeyEvent>

#include <algorithm>

namespace sd {

AppScreen::AppScreen(const QString &code, ProgramState &s, Navigator &nav) : ui::Screen(code), state(s), m_nav(nav) {}

int AppScreen::hoverIndex() const
{
    return state.HoverIndex;
}

void AppScreen::setHoverIndex(int n)
{
    state.HoverIndex = n;
}

void AppScreen::showEvent(QShowEvent *e)
{
    ui::Screen::showEvent(e);
    setTextFactor(StudentSettings::textFactor(state.TextStep));
    state.HoverIndex = 0;
    clearMenuHighlight();
}

bool AppScreen::clickButton(const QStringList &names)
{
    for (const QString &name : names) {
        auto *b = findChild<ui::ImageButton *>(name);
        if (b && b->isVisible() && b->isEnabled()) {
            b->click();
            return true;
        }
    }
    return false;
}

void AppScreen::keyPressEvent(QKeyEvent *e)
{
    const bool ctrl = e->modifiers().testFlag(Qt::ControlModifier);
    int step = state.TextStep;
    if (e->key() == Qt::Key_Escape && isModalScreen()) {
        // The least committal way out: never a score, never leaving an exercise.
        if (clickButton({QStringLiteral("imgAgain"), QStringLiteral("back"), QStringLiteral("Continue"), QStringLiteral("continue"), QStringLiteral("OK"),
                         QStringLiteral("No"), QStringLiteral("Cancel"), QStringLiteral("Quit")}))
            return;
    } else if (e->key() == Qt::Key_F1) {
        if (clickButton({QStringLiteral("Help")}))
            return;
    } else if (ctrl && e->key() == Qt::Key_P) {
        if (clickButton({QStringLiteral("Printing"), QStringLiteral("Printtext"), QStringLiteral("Printlist"),
                         QStringLiteral("imgPrintout")}))
            return;
    } else if (ctrl && (e->key() == Qt::Key_Plus || e->key() == Qt::Key_Equal)) {
        step = std::min(step + 1, StudentSettings::LargestTextStep);
    } else if (ctrl && e->key() == Qt::Key_Minus) {
        step = std::max(step - 1, StudentSettings::SmallestTextStep);
    } else if (ctrl && e->key() == Qt::Key_0) {
        step = 0;
    } else {
        ui::Screen::keyPressEvent(e);
        return;
    }
    if (step != state.TextStep) {
        state.TextStep = step;
        setTextFactor(StudentSettings::textFactor(step));
        StudentSettings::keep(state);
    }
    e->accept();
}

void AppScreen::guarded(const std::function<void()> &action)
{
    try {
        action();
    } catch (const ProgramError &e) {
        handleError(e);
    }
}

void AppScreen::handleError(const ProgramError &e)
{
    m_nav.showError(e.message());
}

void AppScreen::onClick(ui::ImageButton *button, std::function<void()> action)
{
    connect(button, &ui::ImageButton::clicked, this, [this, action = std::move(action)] { guarded(action); });
}

void AppScreen::onClick(ui::MenuLabel *label, std::function<void()> action)
{
    connect(label, &ui::MenuLabel::clicked, this, [this, action = std::move(action)] { guarded(action); });
}

void AppScreen::openHelp(const QString &topic)
{
    state.HelpTopic = topic;
    m_nav.openModal(QStringLiteral("Helpform"));
}

} // namespace sd
