#include "sqlhistory.h"

#include <QDir>
#include <QSet>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTextStream>
#include <QVariant>

#include <algorithm>
#include <atomic>

namespace sd {

namespace {

QString isoUtc(const QDateTime &t)
{
    return t.toUTC().toString(Qt::ISODate);
}

QDateTime fromIso(const QVariant &v)
{
    // Written with a "Z": read back in UTC.
    return QDateTime::fromString(v.toString(), Qt::ISODate).toUTC();
}

/// The tables of every version, created in order; version 1 is the first released schema.
const char *const createV1[] = {
    "CREATE TABLE attempts(id INTEGER PRIMARY KEY, finished_at TEXT NOT NULL, mode TEXT NOT NULL, paper TEXT NOT NULL,"
    " kind TEXT NOT NULL, level INTEGER, exercise TEXT NOT NULL, score REAL NOT NULL, max REAL NOT NULL)",
    "CREATE TABLE answers(attempt_id INTEGER NOT NULL REFERENCES attempts(id), question INTEGER NOT NULL,"
    " given TEXT, expected TEXT, correct INTEGER NOT NULL)",
    "CREATE TABLE tests(id INTEGER PRIMARY KEY, finished_at TEXT NOT NULL, paper TEXT NOT NULL, test INTEGER NOT NULL,"
    " percent INTEGER, verdict TEXT)",
};
const char *const upgradeToV2[] = {
    "ALTER TABLE attempts ADD COLUMN seconds INTEGER",
    "ALTER TABLE tests ADD COLUMN seconds INTEGER",
    "CREATE TABLE gradings(id INTEGER PRIMARY KEY, at TEXT NOT NULL, sample TEXT NOT NULL, student TEXT, examiner TEXT)",
    "CREATE TABLE compositions(id INTEGER PRIMARY KEY, saved_at TEXT NOT NULL, kind TEXT, title TEXT,"
    " words INTEGER, file TEXT)",
    "CREATE TABLE paused_tests(paper TEXT PRIMARY KEY, test INTEGER NOT NULL, state TEXT NOT NULL,"
    " seconds INTEGER, saved_at TEXT NOT NULL)",
    "CREATE INDEX attempts_menu ON attempts(kind, level, mode)",
    "CREATE INDEX answers_attempt ON answers(attempt_id)",
};

/// SQLite's primary result codes that the student is told about in words.
QString reasonOf(const QSqlError &e)
{
    const int code = e.nativeErrorCode().toInt() & 0xff;
    switch (code) {
    case 5:
    case 6: return QStringLiteral("the history file is in use by another program");
    case 8: return QStringLiteral("the history file is read-only");
    case 11:
    case 26: return QStringLiteral("the history file is damaged");
    case 13: return QStringLiteral("the disk is full");
    case 14: return QStringLiteral("the history file cannot be opened");
    default: return e.databaseText().isEmpty() ? e.text() : e.databaseText();
    }
}

bool exec(QSqlQuery &q, const QString &sql, const QVariantList &values = {})
{
    if (!q.prepare(sql))
        return false;
    for (const QVariant &v : values)
        q.addBindValue(v);
    return q.exec();
}

QVariant orNull(int v, bool known)
{
    return known ? QVariant(v) : QVariant(QMetaType(QMetaType::Int));
}

int exerciseNumber(const QString &key)
{
    return key.right(2).toInt();
}

} // namespace

SqlHistory::SqlHistory(QString path, std::function<QDateTime()> now) : m_path(std::move(path)), m_now(std::move(now))
{
    static std::atomic<int> serial{0};
    m_connection = QStringLiteral("studydesk-history-%1").arg(++serial);
}

SqlHistory::~SqlHistory()
{
    closeFile();
}

QString SqlHistory::defaultPath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)).filePath(QStringLiteral("history.sqlite"));
}

QSqlDatabase SqlHistory::db() const
{
    return QSqlDatabase::database(m_connection, false);
}

void SqlHistory::closeFile()
{
    if (!QSqlDatabase::contains(m_connection))
        return;
    {
        QSqlDatabase d = db();
        d.close();
    }
    QSqlDatabase::removeDatabase(m_connection);
    m_open = false;
}

void SqlHistory::fail(const QString &what, const QSqlError &error)
{
    m_problem = what + reasonOf(error) + u'.';
}

bool SqlHistory::open()
{
    if (m_open)
        return true;
    if (!openFile())
        return false;
    // A file that is not a database, or is damaged, is kept aside and a new one begun.
    QSqlQuery check(db());
    const bool checked = check.exec(QStringLiteral("PRAGMA quick_check")) && check.next();
    const int code = check.lastError().nativeErrorCode().toInt() & 0xff;
    const bool damaged = checked ? check.value(0).toString() != u"ok" : (code == 11 || code == 26);
    check.finish();
    if (!checked && !damaged) {
        fail(QStringLiteral("Your history could not be opened: "), check.lastError());
        closeFile();
        return false;
    }
    if (damaged && !setAside())
        return false;
    if (!migrate()) {
        closeFile();
        return false;
    }
    m_open = true;
    return true;
}

bool SqlHistory::openFile()
{
    const QFileInfo file(m_path);
    if (!QDir().mkpath(file.absolutePath())) {
        m_problem = QStringLiteral("Your history could not be saved: the folder %1 cannot be made.")
                        .arg(QDir::toNativeSeparators(file.absolutePath()));
        return false;
    }
    {
        QSqlDatabase d = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
        d.setDatabaseName(m_path);
        // Another program holding the file gets a moment before a write gives up.
        d.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=250"));
        if (!d.open()) {
            fail(QStringLiteral("Your history could not be saved: "), d.lastError());
            d = QSqlDatabase();
            QSqlDatabase::removeDatabase(m_connection);
            return false;
        }
    }
    return true;
}

bool SqlHistory::setAside()
{
    closeFile();
    const QFileInfo file(m_path);
    const QString base = QStringLiteral("history-damaged-%1").arg(m_now().date().toString(Qt::ISODate));
    QString aside = file.dir().filePath(base + QStringLiteral(".sqlite"));
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = file.dir().filePath(base + QStringLiteral("-%1.sqlite").arg(n));
    if (!QFile::rename(m_path, aside)) {
        m_problem = QStringLiteral("Your history could not be saved: the history file is damaged and cannot be moved aside.");
        return false;
    }
    for (const char *suffix : {"-wal", "-shm", "-journal"})
        QFile::remove(m_path + QLatin1String(suffix));
    m_problem = QStringLiteral("Your history file was damaged. It is kept as %1 and a new history has begun.")
                    .arg(QFileInfo(aside).fileName());
    return openFile();
}

bool SqlHistory::migrate()
{
    QSqlDatabase d = db();
    QSqlQuery q(d);
    if (!q.exec(QStringLiteral("PRAGMA user_version")) || !q.next()) {
        fail(QStringLiteral("Your history could not be opened: "), q.lastError());
        return false;
    }
    const int version = q.value(0).toInt();
    q.finish();
    if (version >= SchemaVersion)
        return true; // a newer program's file is used as it is
    if (!d.transaction()) {
        fail(QStringLiteral("Your history could not be opened: "), d.lastError());
        return false;
    }
    bool ok = true;
    if (version < 1)
        for (const char *sql : createV1)
            ok = ok && q.exec(QString::fromLatin1(sql));
    for (const char *sql : upgradeToV2)
        ok = ok && q.exec(QString::fromLatin1(sql));
    ok = ok && q.exec(QStringLiteral("PRAGMA user_version = %1").arg(SchemaVersion));
    if (ok && d.commit())
        return true;
    fail(QStringLiteral("Your history could not be opened: "), q.lastError().isValid() ? q.lastError() : d.lastError());
    d.rollback();
    return false;
}

bool SqlHistory::write(const std::function<bool(QSqlDatabase &)> &steps)
{
    if (!open())
        return false;
    QSqlDatabase d = db();
    if (!d.transaction()) {
        fail(QStringLiteral("Your history could not be saved: "), d.lastError());
        return false;
    }
    m_error = QSqlError();
    if (steps(d) && d.commit()) {
        if (m_problem.startsWith(u"Your history could not be saved"))
            m_problem.clear();
        return true;
    }
    const QSqlError error = m_error.isValid() ? m_error : d.lastError();
    d.rollback();
    fail(QStringLiteral("Your history could not be saved: "), error);
    return false;
}

bool SqlHistory::run(QSqlQuery &q, const QString &sql, const QVariantList &values)
{
    if (exec(q, sql, values))
        return true;
    m_error = q.lastError();
    return false;
}

bool SqlHistory::insertAttempt(QSqlDatabase &d, const AttemptRecord &a)
{
    QSqlQuery q(d);
    const bool inserted = run(q,
                               QStringLiteral("INSERT INTO attempts(finished_at, mode, paper, kind, level, exercise, score,"
                                              " max, seconds) VALUES(?,?,?,?,?,?,?,?,?)"),
                               {isoUtc(a.finishedAt), a.test ? QStringLiteral("test") : QStringLiteral("practice"),
                                historyPaperName(paperOfKind(a.kind)), historyKindName(a.kind),
                                orNull(a.level, a.level > 0), a.exercise, a.score, a.max,
                                orNull(a.seconds, a.seconds >= 0)});
    if (!inserted)
        return false;
    const QVariant id = q.lastInsertId();
    for (const AnswerRecord &n : a.answers) {
        if (!run(q, QStringLiteral("INSERT INTO answers(attempt_id, question, given, expected, correct) VALUES(?,?,?,?,?)"),
                 {id, n.question, n.given, n.expected, n.correct ? 1 : 0}))
            return false;
    }
    return true;
}

bool SqlHistory::recordAttempt(const AttemptRecord &attempt)
{
    return write([&](QSqlDatabase &d) { return insertAttempt(d, attempt); });
}

bool SqlHistory::recordTest(const TestRecord &test, const QString &verdict, const QList<AttemptRecord> &sections)
{
    return write([&](QSqlDatabase &d) {
        QSqlQuery q(d);
        const bool scored = test.paper != 2;
        if (!run(q, QStringLiteral("INSERT INTO tests(finished_at, paper, test, percent, verdict, seconds) VALUES(?,?,?,?,?,?)"),
                 {isoUtc(test.finishedAt), historyPaperName(test.paper), test.test, orNull(test.percent, scored),
                  scored ? QVariant(verdict) : QVariant(QMetaType(QMetaType::QString)), test.minutes * 60}))
            return false;
        for (const AttemptRecord &a : sections)
            if (!insertAttempt(d, a))
                return false;
        return run(q, QStringLiteral("DELETE FROM paused_tests WHERE paper = ?"), {historyPaperName(test.paper)});
    });
}

bool SqlHistory::recordGrading(const GradingRecord &g)
{
    return write([&](QSqlDatabase &d) {
        QSqlQuery q(d);
        return run(q, QStringLiteral("INSERT INTO gradings(at, sample, student, examiner) VALUES(?,?,?,?)"),
                    {isoUtc(g.at), g.sample, g.student, g.examiner});
    });
}

bool SqlHistory::recordComposition(const CompositionRecord &c)
{
    return write([&](QSqlDatabase &d) {
        QSqlQuery q(d);
        return run(q, QStringLiteral("INSERT INTO compositions(saved_at, kind, title, words, file) VALUES(?,?,?,?,?)"),
                    {isoUtc(c.savedAt), c.kind, c.title, c.words, c.file});
    });
}

QMap<int, BestScore> SqlHistory::bestScores(int kind, int level)
{
    QMap<int, BestScore> out;
    if (!open())
        return out;
    QSqlQuery q(db());
    q.setForwardOnly(true);
    // SQLite gives the bare columns of the row where MAX() was found.
    exec(q,
         QStringLiteral("SELECT exercise, score, max, MAX(score / max) FROM attempts"
                        " WHERE kind = ? AND level = ? AND mode = 'practice' AND max > 0 GROUP BY exercise"),
         {historyKindName(kind), level});
    while (q.next())
        out.insert(exerciseNumber(q.value(0).toString()), {q.value(1).toDouble(), q.value(2).toDouble()});
    return out;
}

ProgressSummary SqlHistory::summary()
{
    ProgressSummary s;
    if (!open())
        return s;
    QSqlQuery q(db());
    q.setForwardOnly(true);
    exec(q, QStringLiteral("SELECT finished_at, paper, 0, 100.0 * score / max FROM attempts WHERE mode = 'practice' AND max > 0"
                           " UNION ALL SELECT finished_at, paper, 1, percent FROM tests WHERE percent IS NOT NULL"
                           " ORDER BY 1"));
    while (q.next())
        s.points.append({fromIso(q.value(0)), historyPaperNumber(q.value(1).toString()), q.value(2).toBool(), q.value(3).toDouble()});
    exec(q, QStringLiteral("SELECT kind, AVG(100.0 * score / max), COUNT(*) FROM attempts"
                           " WHERE mode = 'practice' AND max > 0 GROUP BY kind"));
    while (q.next())
        s.kinds.append({historyKindNumber(q.value(0).toString()), q.value(1).toDouble(), q.value(2).toInt()});
    std::sort(s.kinds.begin(), s.kinds.end(), [](const auto &a, const auto &b) { return a.kind < b.kind; });
    exec(q, QStringLiteral("SELECT t.finished_at, t.paper, t.test, t.percent, t.verdict, t.seconds,"
                           " (SELECT COUNT(*) FROM attempts a WHERE a.mode = 'test' AND a.finished_at = t.finished_at"
                           "  AND a.paper = t.paper) FROM tests t ORDER BY t.id DESC"));
    while (q.next()) {
        ProgressSummary::TestRow row{fromIso(q.value(0)), historyPaperNumber(q.value(1).toString()), q.value(2).toInt(),
                                     q.value(5).toInt(), q.value(6).toInt(), std::nullopt, q.value(4).toString()};
        if (!q.value(3).isNull())
            row.percent = q.value(3).toInt();
        s.tests.append(row);
    }
    exec(q, QStringLiteral("SELECT student = examiner FROM gradings ORDER BY id DESC LIMIT 10"));
    while (q.next()) {
        ++s.gradingsCounted;
        s.gradingsAgreed += q.value(0).toInt();
    }
    exec(q, QStringLiteral("SELECT title, words, saved_at FROM compositions ORDER BY id DESC"));
    while (q.next())
        s.compositions.append({q.value(0).toString(), q.value(1).toInt(), fromIso(q.value(2))});
    return s;
}

QList<Mistake> SqlHistory::mistakes()
{
    QList<Mistake> out;
    if (!open())
        return out;
    QSqlQuery q(db());
    q.setForwardOnly(true);
    exec(q, QStringLiteral("SELECT a.finished_at, a.kind, a.level, a.exercise, n.question, n.given, n.expected, n.correct"
                           " FROM answers n JOIN attempts a ON a.id = n.attempt_id WHERE a.mode = 'practice'"
                           " ORDER BY a.id DESC"));
    // The newest answer to each question decides: wrong, it is listed; right, it is not.
    QSet<QString> seen;
    while (q.next()) {
        const QString item = q.value(1).toString() + u'/' + q.value(3).toString() + u'/' + q.value(4).toString();
        if (seen.contains(item))
            continue;
        seen.insert(item);
        if (q.value(7).toBool())
            continue;
        out.append({fromIso(q.value(0)), historyKindNumber(q.value(1).toString()), q.value(2).toInt(), q.value(3).toString(),
                    q.value(4).toInt(), q.value(5).toString(), q.value(6).toString()});
    }
    return out;
}

bool SqlHistory::keepPausedTest(const PausedTest &p)
{
    return write([&](QSqlDatabase &d) {
        QSqlQuery q(d);
        return run(q,
                    QStringLiteral("INSERT OR REPLACE INTO paused_tests(paper, test, state, seconds, saved_at)"
                                   " VALUES(?,?,?,?,?)"),
                    {historyPaperName(p.paper), p.test, QString::fromUtf8(p.state), p.seconds, isoUtc(p.savedAt)});
    });
}

std::optional<PausedTest> SqlHistory::pausedTest(int paper)
{
    if (!open())
        return std::nullopt;
    QSqlQuery q(db());
    if (!exec(q, QStringLiteral("SELECT test, state, seconds, saved_at FROM paused_tests WHERE paper = ?"),
              {historyPaperName(paper)})
        || !q.next())
        return std::nullopt;
    return PausedTest{paper, q.value(0).toInt(), q.value(1).toString().toUtf8(), q.value(2).toInt(), fromIso(q.value(3))};
}

bool SqlHistory::dropPausedTest(int paper)
{
    return write([&](QSqlDatabase &d) {
        QSqlQuery q(d);
        return run(q, QStringLiteral("DELETE FROM paused_tests WHERE paper = ?"), {historyPaperName(paper)});
    });
}

} // namespace sd
