#include "scriptrunner.h"

#include "frame/core/state.h"
#include "frame/navigator.h"
#include "ui/imagebutton.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <optional>
#include <utility>

namespace sd {

namespace {
using JsonFields = QList<QPair<QString, QJsonValue>>;

QString fileNameOnly(const QString &path)
{
    return QFileInfo(path).fileName();
}

QString jsonValue(const QJsonValue &v);

/// Writes an object with its keys in the given order (QJsonObject would sort them).
QString jsonObject(const JsonFields &fields)
{
    QString s = QStringLiteral("{");
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (i)
            s += u',';
        s += jsonValue(fields[i].first) + u':' + jsonValue(fields[i].second);
    }
    return s + u'}';
}

QString jsonValue(const QJsonValue &v)
{
    if (v.isArray()) {
        QString s = QStringLiteral("[");
        const QJsonArray a = v.toArray();
        for (qsizetype i = 0; i < a.size(); ++i) {
            if (i)
                s += u',';
            const QJsonValue item = a.at(i);
            // Nested ordered objects travel as pre-written strings tagged by a leading NUL.
            if (item.isString() && item.toString().startsWith(QChar(0)))
                s += item.toString().mid(1);
            else
                s += jsonValue(item);
        }
        return s + u']';
    }
    const QByteArray one = QJsonDocument(QJsonArray{v}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(one.mid(1, one.size() - 2));
}

void printJson(QTextStream &out, const JsonFields &fields)
{
    out << jsonObject(fields) << '\n';
    out.flush();
}

/// A mouse event at `at` (the middle of the control by default): the left button goes down on a
/// press and is up after a release; a move holds no button.
void sendMouse(QWidget *w, QEvent::Type type, std::optional<QPointF> at = std::nullopt)
{
    const QPointF local = at.value_or(QPointF(w->width() / 2.0, w->height() / 2.0));
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent e(type, local, w->mapToGlobal(local), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

/// A point of the screen's own background, where no control lies.
std::optional<QPointF> backgroundPoint(QWidget *screen)
{
    for (int y = 2; y < screen->height(); y += 8)
        for (int x = 2; x < screen->width(); x += 8)
            if (!screen->childAt(x, y))
                return QPointF(x, y);
    return std::nullopt;
}

void sendKey(QWidget *w, int key, const QString &text = {}, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QKeyEvent press(QEvent::KeyPress, key, mods, text);
    QApplication::sendEvent(w, &press);
    QKeyEvent release(QEvent::KeyRelease, key, mods, text);
    QApplication::sendEvent(w, &release);
}

QString colourOf(QWidget *w)
{
    const QPalette::ColorRole role =
        qobject_cast<QLineEdit *>(w) || qobject_cast<QTextEdit *>(w) || qobject_cast<QPlainTextEdit *>(w)
            ? QPalette::Text
            : QPalette::WindowText;
    return w->palette().color(role).name();
}
} // namespace

void ScriptSound::play(const QString &path)
{
    printJson(m_out, {{QStringLiteral("event"), QStringLiteral("sound")}, {QStringLiteral("file"), fileNameOnly(path)}});
}

void ScriptSound::missing(const QString &fileName)
{
    printJson(m_out, {{QStringLiteral("event"), QStringLiteral("sound")},
                      {QStringLiteral("file"), fileName},
                      {QStringLiteral("missing"), true}});
}

void ScriptSound::beep()
{
    printJson(m_out, {{QStringLiteral("event"), QStringLiteral("beep")}});
}

ScriptRunner::ScriptRunner(ProgramState &state, Navigator &nav, FakeSeedSource &time, QTextStream &out)
    : m_state(state), m_nav(nav), m_time(time), m_out(out)
{
    connect(&nav, &Navigator::screenShown, this, [this](const QString &code) {
        emitEvent({{QStringLiteral("event"), QStringLiteral("shown")}, {QStringLiteral("screen"), code}});
    });
    connect(&nav, &Navigator::screenClosed, this, [this](const QString &code) {
        emitEvent({{QStringLiteral("event"), QStringLiteral("closed")}, {QStringLiteral("screen"), code}});
    });
}

void ScriptRunner::emitEvent(const QList<QPair<QString, QJsonValue>> &fields)
{
    printJson(m_out, fields);
}

void ScriptRunner::reportPrint(const QString &file, int pages)
{
    emitEvent({{QStringLiteral("event"), QStringLiteral("print")}, {QStringLiteral("file"), file},
               {QStringLiteral("pages"), pages}});
}

bool ScriptRunner::loadFile(const QString &path, QString *error)
{
    if (path == u"-") {
        m_fromInput = true;
        auto *notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, &ScriptRunner::readInput);
        return true;
    }
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) {
        *error = QStringLiteral("cannot read script %1").arg(path);
        return false;
    }
    m_lines = QString::fromUtf8(f.readAll()).split(u'\n');
    return true;
}

void ScriptRunner::readInput()
{
    char buffer[4096];
    const ssize_t n = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (n <= 0) {
        m_inputEnded = true;
        if (auto *notifier = findChild<QSocketNotifier *>())
            notifier->setEnabled(false);
        if (!m_partial.isEmpty())
            m_lines.append(QString::fromUtf8(std::exchange(m_partial, {})));
    } else {
        m_partial.append(buffer, n);
        qsizetype eol;
        while ((eol = m_partial.indexOf('\n')) >= 0) {
            m_lines.append(QString::fromUtf8(m_partial.left(eol)));
            m_partial.remove(0, eol + 1);
        }
    }
    if (m_waiting) {
        m_waiting = false;
        QTimer::singleShot(0, this, &ScriptRunner::next);
    }
}

void ScriptRunner::start()
{
    QTimer::singleShot(0, this, &ScriptRunner::next);
}

void ScriptRunner::settle()
{
    // Let every effect of the last line happen: posted events, deferred deletes, windows shown.
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

void ScriptRunner::next()
{
    while (!m_done && m_lineNo < m_lines.size()) {
        const QString line = m_lines.at(m_lineNo++).trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        run(line);
        settle();
        if (!m_done)
            QTimer::singleShot(0, this, &ScriptRunner::next);
        return;
    }
    if (m_fromInput && !m_inputEnded && !m_done) {
        m_waiting = true;
        return;
    }
    if (!m_done) {
        m_done = true;
        QCoreApplication::exit(0);
    }
}

void ScriptRunner::fail(const QString &message)
{
    emitEvent({{QStringLiteral("event"), QStringLiteral("error")},
               {QStringLiteral("message"), QStringLiteral("line %1: %2").arg(m_lineNo).arg(message)}});
    m_done = true;
    QCoreApplication::exit(2);
}

QWidget *ScriptRunner::usable(const QString &name, const QString &verb)
{
    QWidget *w = control(name);
    if (w && (!w->isVisible() || !w->isEnabled())) {
        fail(QStringLiteral("%1 cannot be %2: it is %3").arg(name, verb, w->isVisible() ? QStringLiteral("disabled") : QStringLiteral("hidden")));
        return nullptr;
    }
    return w;
}

void ScriptRunner::moveOnto(QWidget *w)
{
    // The pointer leaves what it was over and enters the new control, as on a real screen.
    if (m_hovered && m_hovered != w) {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(m_hovered, &leave);
    }
    if (w && m_hovered != w) {
        QEnterEvent enter(QPointF(1, 1), w->mapToGlobal(QPointF(1, 1)), w->mapToGlobal(QPointF(1, 1)));
        QApplication::sendEvent(w, &enter);
    }
    m_hovered = w;
}

QWidget *ScriptRunner::control(const QString &name)
{
    ui::Screen *top = m_nav.topmost();
    if (!top) {
        fail(QStringLiteral("no screen is showing"));
        return nullptr;
    }
    QWidget *w = top->objectName() == name ? top : top->findChild<QWidget *>(name);
    if (!w)
        fail(QStringLiteral("no control named %1 on %2").arg(name, top->objectName()));
    return w;
}

QString ScriptRunner::parseText(const QString &rest, bool *ok)
{
    *ok = true;
    if (!rest.startsWith(u'"'))
        return rest;
    QString out;
    for (qsizetype i = 1; i < rest.size(); ++i) {
        const QChar c = rest.at(i);
        if (c == u'"')
            return out;
        if (c == u'\\' && i + 1 < rest.size()) {
            const QChar e = rest.at(++i);
            out += e == u'n' ? QChar(u'\n') : e;
        } else {
            out += c;
        }
    }
    *ok = false; // no closing quote
    return out;
}

void ScriptRunner::run(const QString &line)
{
    const qsizetype sp = line.indexOf(u' ');
    const QString cmd = sp < 0 ? line : line.left(sp);
    const QString args = sp < 0 ? QString() : line.mid(sp + 1);
    const qsizetype sp2 = args.indexOf(u' ');
    const QString name = sp2 < 0 ? args : args.left(sp2);
    const QString rest = sp2 < 0 ? QString() : args.mid(sp2 + 1);

    if (cmd == u"click" || cmd == u"press" || cmd == u"release") {
        QWidget *w = cmd == u"release" ? control(name) : usable(name, QStringLiteral("clicked"));
        if (!w)
            return;
        moveOnto(w);
        if (cmd == u"click") {
            if (auto *b = qobject_cast<QAbstractButton *>(w)) {
                b->click();
                return;
            }
            sendMouse(w, QEvent::MouseButtonPress);
            sendMouse(w, QEvent::MouseButtonRelease);
        } else {
            sendMouse(w, cmd == u"press" ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease);
        }
    } else if (cmd == u"hover") {
        QWidget *w = usable(name, QStringLiteral("pointed at"));
        if (!w)
            return;
        moveOnto(w);
        sendMouse(w, QEvent::MouseMove);
    } else if (cmd == u"leave") {
        // The pointer moves onto the background of the topmost screen.
        ui::Screen *top = m_nav.topmost();
        if (!top)
            return fail(QStringLiteral("no screen is showing"));
        moveOnto(nullptr);
        if (const std::optional<QPointF> at = backgroundPoint(top))
            sendMouse(top, QEvent::MouseMove, at);
    } else if (cmd == u"type") {
        QWidget *w = usable(name, QStringLiteral("typed into"));
        if (!w)
            return;
        bool ok = false;
        const QString text = parseText(rest, &ok);
        if (!ok)
            return fail(QStringLiteral("unterminated quoted text"));
        if (!qobject_cast<QLineEdit *>(w) && !qobject_cast<QTextEdit *>(w) && !qobject_cast<QPlainTextEdit *>(w))
            return fail(QStringLiteral("%1 is not a text box").arg(name));
        // As a student does it: focus, select all, then the keys (a read-only box stays as it is).
        w->setFocus();
        sendKey(w, Qt::Key_A, QString(), Qt::ControlModifier);
        if (text.isEmpty())
            sendKey(w, Qt::Key_Delete);
        for (const QChar c : text) {
            if (c == u'\n')
                sendKey(w, Qt::Key_Return, QStringLiteral("\r"));
            else
                sendKey(w, int(c.toUpper().unicode()), QString(c)); // Qt key codes follow upper-case Latin-1
        }
    } else if (cmd == u"choose") {
        QWidget *w = usable(name, QStringLiteral("chosen from"));
        if (!w)
            return;
        auto *combo = qobject_cast<QComboBox *>(w);
        if (!combo)
            return fail(QStringLiteral("%1 is not a drop-down list").arg(name));
        const int i = combo->findText(rest);
        if (i < 0)
            return fail(QStringLiteral("%1 has no entry %2").arg(name, rest));
        combo->setCurrentIndex(i);
        Q_EMIT combo->activated(i);
        Q_EMIT combo->textActivated(combo->itemText(i));
    } else if (cmd == u"key") {
        // "key KEYNAME" goes to the control with the focus; "key NAME KEYNAME" focuses NAME first.
        const QString keyName = rest.isEmpty() ? name : rest;
        QWidget *w = nullptr;
        if (rest.isEmpty()) {
            w = QApplication::focusWidget();
            ui::Screen *top = m_nav.topmost();
            if (!w || (top && w != top && !top->isAncestorOf(w)))
                w = top;
            if (!w)
                return fail(QStringLiteral("no screen is showing"));
        } else {
            w = usable(name, QStringLiteral("given a key"));
            if (!w)
                return;
            w->setFocus();
        }
        const QKeySequence seq = QKeySequence::fromString(keyName);
        if (seq.isEmpty())
            return fail(QStringLiteral("unknown key %1").arg(keyName));
        // A printable key types its character, as it would on a keyboard.
        const Qt::KeyboardModifiers mods = seq[0].keyboardModifiers();
        QString text;
        if ((mods & ~Qt::ShiftModifier) == Qt::NoModifier && seq[0].key() >= 0x20 && seq[0].key() < 0x7f) {
            text = QString(QChar(seq[0].key()));
            if (!mods.testFlag(Qt::ShiftModifier))
                text = text.toLower();
        }
        sendKey(w, seq[0].key(), text, mods);
    } else if (cmd == u"save-as") {
        // The answer to the next save dialog: a path, or nothing to cancel it.
        auto *dialog = dynamic_cast<QueuedSaveDialog *>(m_state.SaveAs.get());
        if (!dialog)
            return fail(QStringLiteral("save dialogs cannot be answered in this run"));
        dialog->answers.append(args);
    } else if (cmd == u"tick") {
        bool ok = false;
        const int n = name.toInt(&ok);
        if (!ok || n < 0)
            return fail(QStringLiteral("tick needs a number"));
        for (int i = 0; i < n && m_state.Clock.isRunning(); ++i)
            m_state.Clock.tick();
    } else if (cmd == u"wait") {
        bool ok = false;
        const qint64 ms = name.toLongLong(&ok);
        if (!ok || ms < 0)
            return fail(QStringLiteral("wait needs a number of milliseconds"));
        m_time.advance(ms);
        m_state.Clock.advance(ms);
        m_state.Time.advance(ms);
    } else if (cmd == u"dump") {
        QJsonArray screens;
        for (ui::Screen *s : m_nav.showing())
            screens.append(QString(QString(QChar(0)) + describeScreen(s, s->isModalScreen())));
        emitEvent({{QStringLiteral("event"), QStringLiteral("dump")}, {QStringLiteral("screens"), screens}});
    } else if (cmd == u"grab") {
        // A picture of the topmost screen, for documentation and reviews.
        ui::Screen *top = m_nav.topmost();
        QWidget *window = top && !top->isModalScreen() ? m_nav.host() : top;
        if (!window || !window->grab().save(name))
            return fail(QStringLiteral("cannot save a picture to %1").arg(name));
    } else if (cmd == u"quit") {
        m_done = true;
        QCoreApplication::exit(0);
    } else {
        fail(QStringLiteral("unknown command %1").arg(cmd));
    }
}

QString ScriptRunner::describeScreen(QWidget *screen, bool modal)
{
    QJsonArray controls;
    const auto children = screen->findChildren<QWidget *>();
    for (QWidget *w : children) {
        const QString name = w->objectName();
        if (name.isEmpty() || name.startsWith(u"qt_"))
            continue;
        QString text;
        JsonFields extra;
        if (auto *l = qobject_cast<QLabel *>(w))
            text = l->text();
        else if (auto *e = qobject_cast<QLineEdit *>(w))
            text = e->text();
        else if (auto *t = qobject_cast<QTextEdit *>(w))
            text = t->toPlainText();
        else if (auto *p = qobject_cast<QPlainTextEdit *>(w))
            text = p->toPlainText();
        else if (auto *combo = qobject_cast<QComboBox *>(w)) {
            text = combo->currentText();
            QJsonArray items;
            for (int i = 0; i < combo->count(); ++i)
                items.append(combo->itemText(i));
            extra.append({QStringLiteral("items"), items});
        } else if (auto *b = qobject_cast<QAbstractButton *>(w)) {
            text = b->text();
            if (b->isCheckable())
                extra.append({QStringLiteral("checked"), b->isChecked()});
        }
        JsonFields c{{QStringLiteral("name"), name},
                     {QStringLiteral("class"), QString::fromLatin1(w->metaObject()->className())},
                     {QStringLiteral("text"), text}};
        // What a student sees beyond the text: a box they cannot change, the picture shown, the focus.
        if (auto *e = qobject_cast<QLineEdit *>(w); e && e->isReadOnly())
            extra.append({QStringLiteral("readOnly"), true});
        else if (auto *t = qobject_cast<QTextEdit *>(w); t && t->isReadOnly())
            extra.append({QStringLiteral("readOnly"), true});
        else if (auto *pt = qobject_cast<QPlainTextEdit *>(w); pt && pt->isReadOnly())
            extra.append({QStringLiteral("readOnly"), true});
        if (const QString picture = w->property("picture").toString(); !picture.isEmpty())
            extra.append({QStringLiteral("picture"), picture});
        if (w->hasFocus())
            extra.append({QStringLiteral("focus"), true});
        c.append(extra);
        c.append({{QStringLiteral("visible"), w->isVisibleTo(screen)},
                  {QStringLiteral("enabled"), w->isEnabled()},
                  {QStringLiteral("color"), colourOf(w)},
                  {QStringLiteral("bold"), w->font().bold()}});
        controls.append(QString(QString(QChar(0)) + jsonObject(c)));
    }
    return jsonObject({{QStringLiteral("name"), screen->objectName()},
                       {QStringLiteral("modal"), modal},
                       {QStringLiteral("controls"), controls}});
}

} // namespace sd
