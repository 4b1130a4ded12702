#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace sd {

/// What an editor keeps of unsaved work: the text, the name and when the draft was started.
struct Draft
{
    QString text;
    QString name;
    QDateTime started;
};

/// Drafts of the editors, one file per title or topic, in the student's application-data folder.
/// Each write replaces the file atomically, so a killed program leaves the last whole draft.
class DraftStore
{
public:
    /// `folder` empty: "drafts" in the student's application-data folder.
    explicit DraftStore(QString folder = {});

    QString folder() const { return m_folder; }
    /// The key of a practice composition ("nar-03") or letter topic ("leta-07").
    static QString keyFor(const QString &typeCode, int title);

    std::optional<Draft> read(const QString &key) const;
    bool write(const QString &key, const Draft &draft) const;
    void remove(const QString &key) const;

    /// "Continue the draft you started on 4 March 2024 at 09:00?"
    static QString question(const QDateTime &started);

private:
    QString path(const QString &key) const;
    QString m_folder;
};

} // namespace sd
