#pragma once

// Reads PDFs back with poppler's pdftotext and pdfinfo.

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

namespace sd::test {

inline bool havePdfTools()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()
           && !QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty();
}

inline QString runTool(const QString &tool, const QStringList &args)
{
    QProcess p;
    p.start(tool, args);
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QString();
    return QString::fromUtf8(p.readAllStandardOutput());
}

/// Text of the PDF (of one page when page > 0).
inline QString pdfText(const QString &file, int page = 0)
{
    QStringList args;
    if (page > 0)
        args << QStringLiteral("-f") << QString::number(page) << QStringLiteral("-l") << QString::number(page);
    return runTool(QStringLiteral("pdftotext"), args << file << QStringLiteral("-"));
}

inline int pdfPages(const QString &file)
{
    const QRegularExpressionMatch m = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)"))
                                          .match(runTool(QStringLiteral("pdfinfo"), {file}));
    return m.hasMatch() ? m.captured(1).toInt() : -1;
}

} // namespace sd::test
