#include "navigator.h"

#include "core/services.h"
#include "core/state.h"

#include <QApplication>
#include <QScreen>

namespace sd {

Navigator::Navigator(ProgramState &state) : m_state(state), m_host(new QWidget)
{
    m_host->setObjectName(QStringLiteral("StudyDesk"));
    m_host->setWindowTitle(QStringLiteral("StudyDesk"));
    m_host->setMinimumSize(800, 600);
    m_host->resize(1024, 768);
    m_pages = new QStackedLayout(m_host);
    m_pages->setContentsMargins(0, 0, 0, 0);
}

Navigator::~Navigator()
{
    const QList<ui::Screen *> modals = m_modals;
    m_modals.clear();
    m_pageStack.clear();
    qDeleteAll(modals);
    delete m_host;
}

void Navigator::registerScreen(const QString &code, Factory factory)
{
    m_factories.insert(code, std::move(factory));
}

ui::Screen *Navigator::create(const QString &code)
{
    auto it = m_factories.constFind(code);
    if (it == m_factories.constEnd())
        return nullptr;
    return (*it)(m_state, *this);
}

ui::Screen *Navigator::open(const QString &code)
{
    ui::Screen *s = create(code);
    if (!s)
        return nullptr;
    m_pages->addWidget(s);
    m_pageStack.append(s);
    m_pages->setCurrentWidget(s);
    if (!m_host->isVisible())
        showHost();
    connect(s, &QObject::destroyed, this, &Navigator::forget);
    Q_EMIT screenShown(code);
    return s;
}

ui::Screen *Navigator::openModal(const QString &code, std::function<void()> onClosed)
{
    ui::Screen *s = create(code);
    if (!s)
        return nullptr;
    s->setModalScreen(true);
    // The control that had the focus gets it back when the window closes.
    m_focusBefore.insert(s, QPointer<QWidget>(QApplication::focusWidget()));
    s->setParent(m_host, Qt::Dialog);
    s->setWindowModality(Qt::ApplicationModal);
    s->setAttribute(Qt::WA_DeleteOnClose);
    const QSize size = s->designSize();
    s->resize(size);
    s->move(m_host->geometry().center() - QPoint(size.width() / 2, size.height() / 2));
    m_modals.append(s);
    dimPages(true);
    if (onClosed)
        m_onClosed.insert(s, std::move(onClosed));
    // Closing the window by its frame counts as closing the screen.
    connect(s, &ui::Screen::closed, this, [this, s] { close(s); });
    connect(s, &QObject::destroyed, this, &Navigator::forget);
    s->show();
    s->raise();
    s->activateWindow();
    Q_EMIT screenShown(code);
    return s;
}

void Navigator::showHost()
{
    // A screen that cannot hold the design size with its window frame gets a maximised window.
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QRect available = screen ? screen->availableGeometry() : QRect(0, 0, 1280, 1024);
    if (available.width() < 1100 || available.height() < 830) {
        m_host->showMaximized();
        return;
    }
    m_host->move(available.center() - QPoint(m_host->width() / 2, m_host->height() / 2));
    m_host->show();
}

void Navigator::showError(const QString &text)
{
    m_state.ErrorText = text;
    openModal(QStringLiteral("Error"));
}

void Navigator::dimPages(bool dim)
{
    // The page behind a modal window is dimmed, and its buttons cannot light up through it.
    if (!m_dimmer) {
        m_dimmer = new QWidget(m_host);
        m_dimmer->setAutoFillBackground(true);
        QPalette pal = m_dimmer->palette();
        pal.setColor(QPalette::Window, QColor(0, 0, 0, 110));
        m_dimmer->setPalette(pal);
        m_dimmer->hide();
    }
    if (dim) {
        m_dimmer->setGeometry(m_host->rect());
        m_dimmer->raise();
        m_dimmer->show();
    } else {
        m_dimmer->hide();
    }
}

void Navigator::showMessage(const QString &text, std::function<void()> onClosed)
{
    m_state.MessageText = text;
    openModal(QStringLiteral("MessageBox"), std::move(onClosed));
}

void Navigator::close(ui::Screen *screen)
{
    if (!screen || screen->property("sdClosing").toBool())
        return;
    screen->setProperty("sdClosing", true);
    const QString code = screen->code();
    std::function<void()> after = m_onClosed.take(screen);
    if (m_modals.contains(screen)) {
        m_modals.removeAll(screen);
        dimPages(!m_modals.isEmpty());
        screen->hide();
        screen->deleteLater();
        const QPointer<QWidget> before = m_focusBefore.take(screen);
        QWidget *window = m_modals.isEmpty() ? m_host : static_cast<QWidget *>(m_modals.last());
        window->activateWindow();
        // The control that had the focus gets it back; if the window took it away (a Check that is
        // gone once the answers show), the next control in the Tab order does.
        for (QWidget *w = before; w && window->isAncestorOf(w); w = w->nextInFocusChain()) {
            if (w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus)) {
                w->setFocus(Qt::OtherFocusReason);
                break;
            }
            if (w->nextInFocusChain() == before)
                break;
        }
    } else {
        m_pageStack.removeAll(screen);
        m_pages->removeWidget(screen);
        screen->hide();
        screen->deleteLater();
        if (!m_pageStack.isEmpty())
            m_pages->setCurrentWidget(m_pageStack.last());
    }
    Q_EMIT screenClosed(code);
    if (after)
        after();
}

void Navigator::forget(QObject *object)
{
    const auto same = [object](ui::Screen *s) { return static_cast<QObject *>(s) == object; };
    m_pageStack.removeIf(same);
    m_modals.removeIf(same);
    m_onClosed.removeIf([object](const auto &it) { return static_cast<QObject *>(it.key()) == object; });
    m_focusBefore.removeIf([object](const auto &it) { return static_cast<QObject *>(it.key()) == object; });
}

QList<ui::Screen *> Navigator::showing() const
{
    QList<ui::Screen *> out;
    if (!m_pageStack.isEmpty())
        out.append(m_pageStack.last());
    for (ui::Screen *m : m_modals)
        if (!m->property("sdClosing").toBool())
            out.append(m);
    return out;
}

ui::Screen *Navigator::topmost() const
{
    const auto all = showing();
    return all.isEmpty() ? nullptr : all.last();
}

ui::Screen *Navigator::find(const QString &code) const
{
    for (auto it = m_modals.crbegin(); it != m_modals.crend(); ++it)
        if ((*it)->code() == code)
            return *it;
    for (auto it = m_pageStack.crbegin(); it != m_pageStack.crend(); ++it)
        if ((*it)->code() == code)
            return *it;
    return nullptr;
}

} // namespace sd
