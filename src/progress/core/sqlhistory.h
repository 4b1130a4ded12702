#pragma once

#include "frame/core/history.h"

#include <QSqlError>
#include <QVariantList>

#include <functional>

class QSqlDatabase;
class QSqlError;
class QSqlQuery;

namespace sd {

/// The student's history in one SQLite file (see docs/history.md for its tables). The file is
/// opened on first use, never before. A file that is not a database, or fails SQLite's check, is
/// renamed "history-damaged-YYYY-MM-DD.sqlite" and a new one begun; a file of an older schema is
/// migrated in place in one transaction.
class SqlHistory final : public StudentHistory
{
public:
    static constexpr int SchemaVersion = 2;

    /// `now` gives the dates of set-aside files.
    SqlHistory(QString path, std::function<QDateTime()> now);
    ~SqlHistory() override;
    SqlHistory(const SqlHistory &) = delete;
    SqlHistory &operator=(const SqlHistory &) = delete;

    /// "history.sqlite" in the student's application-data folder.
    static QString defaultPath();

    bool recordAttempt(const AttemptRecord &attempt) override;
    bool recordTest(const TestRecord &test, const QString &verdict, const QList<AttemptRecord> &sections) override;
    bool recordGrading(const GradingRecord &grading) override;
    bool recordComposition(const CompositionRecord &composition) override;
    QMap<int, BestScore> bestScores(int kind, int level) override;
    ProgressSummary summary() override;
    QList<Mistake> mistakes() override;
    bool exportCsv(QIODevice &out) override;
    bool keepPausedTest(const PausedTest &paused) override;
    std::optional<PausedTest> pausedTest(int paper) override;
    bool dropPausedTest(int paper) override;
    QString problem() const override { return m_problem; }

    /// Whether the file has been opened (it is only opened on first use).
    bool isOpen() const { return m_open; }
    QString path() const { return m_path; }

private:
    QSqlDatabase db() const;
    bool open();
    bool openFile();
    void closeFile();
    bool setAside();
    bool migrate();
    /// Runs the steps in one transaction; a failure rolls back and is reported.
    bool write(const std::function<bool(QSqlDatabase &)> &steps);
    bool insertAttempt(QSqlDatabase &db, const AttemptRecord &a);
    /// Runs one statement of a write; a failure is kept for write() to report.
    bool run(QSqlQuery &q, const QString &sql, const QVariantList &values = {});
    void fail(const QString &what, const QSqlError &error);

    QString m_path;
    QString m_connection;
    std::function<QDateTime()> m_now;
    bool m_open = false;
    QString m_problem;
    QSqlError m_error;
};

} // namespace sd
