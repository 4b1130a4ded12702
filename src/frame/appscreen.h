#pragma once

#include "core/checked.h"
#include "navigator.h"
#include "ui/imagebutton.h"
#include "ui/screen.h"

#include <functional>

namespace sd {

struct ProgramState;

/// A screen over the program state. Actions run guarded: a ProgramError (overflow, an index out of
/// range, an unreadable file) reaches the screen's own error handling instead of ending the program.
class AppScreen : public ui::Screen
{
    Q_OBJECT

public:
    AppScreen(const QString &code, ProgramState &state, Navigator &nav);

    int hoverIndex() const override;
    void setHoverIndex(int n) override;

    /// Runs an action under the screen's error handling.
    void guarded(const std::function<void()> &action);
    Navigator &navigator() { return m_nav; }

protected:
    /// A screen starts with no menu label lit: the index of the last screen means nothing here.
    void showEvent(QShowEvent *e) override;
    /// Keys every screen knows: Escape on a modal window (its least committal button), F1 (help),
    /// Ctrl+P (print), Ctrl+plus, Ctrl+minus and Ctrl+0 (the reading text size).
    void keyPressEvent(QKeyEvent *e) override;
    /// Clicks the showing, enabled picture button of that name (or the first of several names).
    bool clickButton(const QStringList &names);
    /// Default handling: the error screen with the message.
    virtual void handleError(const ProgramError &e);
    /// Calls action when the button (or its caption) is clicked, under the error handling.
    void onClick(ui::ImageButton *button, std::function<void()> action);
    void onClick(ui::MenuLabel *label, std::function<void()> action);
    void closeScreen() { m_nav.close(this); }
    /// Opens the help screen on a topic, modal over this one.
    void openHelp(const QString &topic);

    ProgramState &state;
    Navigator &nav() { return m_nav; }

private:
    Navigator &m_nav;
};

} // namespace sd
