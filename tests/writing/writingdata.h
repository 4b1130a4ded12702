// A small Writing data directory: titles of a few types, two letter topics, a test's letter and
// questions, and the samples of one type.
#pragma once

#include "common/fixtures.h"

namespace sd::test {

inline QStringList titleRecord(const QString &type, int n, const QString &note = {})
{
    return {type, QStringLiteral("%1 title %2: write about it.").arg(type).arg(n), note, QString()};
}

inline void writeWritingData(DataDir &dir, int narratives = 10)
{
    QList<QStringList> records;
    for (int n = 1; n <= narratives; ++n)
        records << titleRecord(QStringLiteral("nar"), n, n == 1 ? QStringLiteral("Begin with a door.") : QString());
    for (int n = 1; n <= 3; ++n)
        records << titleRecord(QStringLiteral("art"), n);
    for (int n = 1; n <= 10; ++n)
        records << titleRecord(QStringLiteral("leta"), n, QStringLiteral("Ask about prices."));
    records << QStringList{QStringLiteral("x01"), QStringLiteral("Write to Jamie about the bike ride."), QString(), QString()};
    dir.writeRecords(DataFile::Comp, records);
    for (const char *sheet : {"leta01", "leta02", "compx01"}) {
        dir.writeText(QString::fromLatin1(sheet) + QStringLiteral(".htm"),
                      QStringLiteral("<html><body><p>Sheet %1</p></body></html>").arg(QString::fromLatin1(sheet)));
        dir.writeRtf(QString::fromLatin1(sheet), QStringLiteral("Sheet %1").arg(QString::fromLatin1(sheet)));
    }
    dir.writeRtf(QStringLiteral("compx01b"), QStringLiteral("Part 2\nQuestion 2: an article."));
    for (int n = 1; n <= 3; ++n)
        dir.writeRtf(QStringLiteral("Samplenar%1").arg(n), QStringLiteral("Sample story %1.").arg(n));
    dir.writeRtf(QStringLiteral("helpnar"), QStringLiteral("How to write a story."));
    dir.writeRtf(QStringLiteral("helpwrite"), QStringLiteral("Writing in general."));
}

} // namespace sd::test
