#include "drafts.h"

#include "composition.h"

#include "ui/files/datapath.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>
#include <QStandardPaths>

namespace sd {

namespace {
constexpr qint64 MaxDraftBytes = 4LL * 1024 * 1024;
}

DraftStore::DraftStore(QString folder) : m_folder(std::move(folder))
{
    if (m_folder.isEmpty())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/drafts");
}

QString DraftStore::keyFor(const QString &typeCode, int title)
{
    return typeCode + QStringLiteral("-%1").arg(title, 2, 10, QLatin1Char('0'));
}

QString DraftStore::path(const QString &key) const
{
    static const QRegularExpression safe(QStringLiteral("^[A-Za-z0-9-]+$"));
    if (!safe.match(key).hasMatch())
        return {};
    return m_folder + u'/' + key + QStringLiteral(".json");
}

std::optional<Draft> DraftStore::read(const QString &key) const
{
    const QString p = path(key);
    if (p.isEmpty() || !QFile::exists(p))
        return std::nullopt;
    const FileBytes f = readBounded(p, MaxDraftBytes);
    if (!f.ok())
        return std::nullopt;
    const QJsonObject o = QJsonDocument::fromJson(f.bytes).object();
    Draft d{o.value(QStringLiteral("text")).toString(), o.value(QStringLiteral("name")).toString(),
            QDateTime::fromString(o.value(QStringLiteral("started")).toString(), Qt::ISODate)};
    if (d.text.isEmpty() && d.name.isEmpty())
        return std::nullopt;
    return d;
}

bool DraftStore::write(const QString &key, const Draft &draft) const
{
    const QString p = path(key);
    if (p.isEmpty() || !QDir().mkpath(m_folder))
        return false;
    const QJsonObject o{{QStringLiteral("text"), draft.text},
                        {QStringLiteral("name"), draft.name},
                        {QStringLiteral("started"), draft.started.toString(Qt::ISODate)}};
    return writeFileAtomically(p, QJsonDocument(o).toJson(QJsonDocument::Indented));
}

void DraftStore::remove(const QString &key) const
{
    const QString p = path(key);
    if (!p.isEmpty())
        QFile::remove(p);
}

QString DraftStore::question(const QDateTime &started)
{
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    return QStringLiteral("Continue the draft you started on ") + english.toString(started, QStringLiteral("d MMMM yyyy"))
           + QStringLiteral(" at ") + english.toString(started, QStringLiteral("HH:mm")) + u'?';
}

} // namespace sd
