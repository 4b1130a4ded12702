#pragma once

#include "ui/screen.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStackedLayout>

#include <functional>

namespace sd {

struct ProgramState;
class Navigator;

/// Moves between screens. Screens are pages stacked in the main window (the top one shows) or
/// modal windows over it. Every screen of the program is registered here by its code, so the
/// menus can open screens of subsystems above them without knowing their classes.
class Navigator : public QObject
{
    Q_OBJECT

public:
    using Factory = std::function<ui::Screen *(ProgramState &, Navigator &)>;

    explicit Navigator(ProgramState &state);
    ~Navigator() override;

    /// The main window the pages live in.
    QWidget *host() const { return m_host; }

    void registerScreen(const QString &code, Factory factory);
    /// Registers screen class T, constructed as T(state, navigator); a screen with a runLoad()
    /// step (every exercise screen) is loaded right after construction.
    template<typename T>
    void registerScreen(const char *code)
    {
        registerScreen(QString::fromLatin1(code), [](ProgramState &s, Navigator &n) -> ui::Screen * {
            auto *screen = new T(s, n);
            if constexpr (requires { screen->runLoad(); })
                screen->runLoad();
            return screen;
        });
    }
    bool isRegistered(const QString &code) const { return m_factories.contains(code); }

    /// Creates the screen and shows it on top of the current page.
    ui::Screen *open(const QString &code);
    /// Creates the screen as a modal window; onClosed runs after it has closed.
    ui::Screen *openModal(const QString &code, std::function<void()> onClosed = {});
    /// Beeps and shows the error screen with the text.
    void showError(const QString &text);
    /// Shows the message box with the text; onClosed runs after "OK".
    void showMessage(const QString &text, std::function<void()> onClosed = {});
    /// Closes a page or modal screen; the page below it shows again.
    void close(ui::Screen *screen);

    /// Screens the student can see, bottom to top (the top page, then modal windows).
    QList<ui::Screen *> showing() const;
    ui::Screen *topmost() const;
    /// The most recent screen of that code, showing or not.
    ui::Screen *find(const QString &code) const;

Q_SIGNALS:
    void screenShown(const QString &code);
    void screenClosed(const QString &code);

private:
    ui::Screen *create(const QString &code);
    void showHost();
    /// Drops a destroyed screen; compares QObject identity only, since a dying object is no
    /// longer a Screen.
    void forget(QObject *object);
    void dimPages(bool dim);

    ProgramState &m_state;
    QHash<QString, Factory> m_factories;
    QWidget *m_host;
    QStackedLayout *m_pages;
    QList<ui::Screen *> m_pageStack;
    QList<ui::Screen *> m_modals;
    QHash<ui::Screen *, std::function<void()>> m_onClosed;
    QHash<ui::Screen *, QPointer<QWidget>> m_focusBefore;
    QPointer<QWidget> m_dimmer;
};

} // namespace sd
