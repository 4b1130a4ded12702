#include "appscreen.h"

#include "core/state.h"

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
    state.HoverIndex = 0;
    clearMenuHighlight();
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
