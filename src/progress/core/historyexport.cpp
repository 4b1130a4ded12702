// The whole history as one CSV table: a row per attempt, answer, test, grading and composition,
// in that order, each in the order it was written. Columns a record does not have stay empty.

#include "sqlhistory.h"

#include <QSqlQuery>
#include <QStringList>
#include <QTextStream>
#include <QVariant>

namespace sd {

namespace {

const char *const columns[] = {"record", "when", "mode", "paper", "kind", "level", "exercise", "test", "question",
                               "given", "expected", "correct", "score", "max", "percent", "verdict", "seconds",
                               "sample", "student", "examiner", "title", "words", "file"};
constexpr int columnCount = int(std::size(columns));

int column(const char *name)
{
    for (int i = 0; i < columnCount; ++i)
        if (qstrcmp(columns[i], name) == 0)
            return i;
    return -1;
}

QString csvField(const QString &v)
{
    if (!v.contains(u',') && !v.contains(u'"') && !v.contains(u'\n') && !v.contains(u'\r'))
        return v;
    QString quoted = v;
    quoted.replace(u'"', QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

QString text(const QVariant &v)
{
    if (v.isNull())
        return {};
    if (v.typeId() == QMetaType::Double)
        return QString::number(v.toDouble(), 'g', 10);
    return v.toString();
}

/// Writes each row of the query; `names` gives the CSV column of each selected value.
bool writeRows(QSqlQuery &q, const QString &sql, const QString &record, const QList<const char *> &names, QTextStream &out)
{
    if (!q.exec(sql))
        return false;
    while (q.next()) {
        QStringList row(columnCount);
        row[0] = record;
        for (int i = 0; i < names.size(); ++i)
            row[column(names[i])] = csvField(text(q.value(i)));
        out << row.join(u',') << "\r\n";
    }
    return true;
}

} // namespace

bool SqlHistory::exportCsv(QIODevice &device)
{
    if (!open())
        return false;
    QTextStream out(&device);
    out.setEncoding(QStringConverter::Utf8);
    QStringList header;
    for (const char *c : columns)
        header.append(QString::fromLatin1(c));
    out << header.join(u',') << "\r\n";
    QSqlQuery q(db());
    q.setForwardOnly(true);
    const bool ok =
        writeRows(q,
                  QStringLiteral("SELECT finished_at, mode, paper, kind, level, exercise, score, max, seconds FROM attempts"
                                 " ORDER BY id"),
                  QStringLiteral("attempt"),
                  {"when", "mode", "paper", "kind", "level", "exercise", "score", "max", "seconds"}, out)
        && writeRows(q,
                     QStringLiteral("SELECT a.finished_at, a.mode, a.paper, a.kind, a.level, a.exercise, n.question, n.given,"
                                    " n.expected, n.correct FROM answers n JOIN attempts a ON a.id = n.attempt_id"
                                    " ORDER BY a.id, n.rowid"),
                     QStringLiteral("answer"),
                     {"when", "mode", "paper", "kind", "level", "exercise", "question", "given", "expected", "correct"}, out)
        && writeRows(q, QStringLiteral("SELECT finished_at, paper, test, percent, verdict, seconds FROM tests ORDER BY id"),
                     QStringLiteral("test"), {"when", "paper", "test", "percent", "verdict", "seconds"}, out)
        && writeRows(q, QStringLiteral("SELECT at, sample, student, examiner FROM gradings ORDER BY id"),
                     QStringLiteral("grading"), {"when", "sample", "student", "examiner"}, out)
        && writeRows(q, QStringLiteral("SELECT saved_at, kind, title, words, file FROM compositions ORDER BY id"),
                     QStringLiteral("composition"), {"when", "kind", "title", "words", "file"}, out);
    out.flush();
    return ok && out.status() == QTextStream::Ok;
}

} // namespace sd
