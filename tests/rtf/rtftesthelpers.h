// What a student sees of a document, written the way the shared samples' expected texts are:
// capitals applied, pictures as "[image]", raised text as "^(x)", lowered as "_(x)" and
// struck-out text as "~~x~~". Also the formatting of a given piece of text.
#pragma once

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>
#include <QTextFragment>

namespace sd::rtf::test {

inline QString visibleText(const QTextDocument &doc)
{
    QStringList lines;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        QString line;
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            const QTextCharFormat cf = f.charFormat();
            if (cf.isImageFormat()) {
                line += QStringLiteral("[image]");
                continue;
            }
            const bool capitals = cf.fontCapitalization() == QFont::AllUppercase
                               || cf.fontCapitalization() == QFont::SmallCaps;
            QString text = capitals ? f.text().toUpper() : f.text();
            if (cf.fontStrikeOut())
                text = QStringLiteral("~~") + text + QStringLiteral("~~");
            if (cf.verticalAlignment() == QTextCharFormat::AlignSuperScript)
                text = QStringLiteral("^(") + text + u')';
            else if (cf.verticalAlignment() == QTextCharFormat::AlignSubScript)
                text = QStringLiteral("_(") + text + u')';
            line += text;
        }
        lines.append(line);
    }
    return lines.join(u'\n');
}

// Words only: layout, punctuation, bullets and table rules do not count.
// The text as QTextDocument holds it: line breaks, tabs and no-break spaces as they are.
inline QString rawText(const QTextDocument &doc)
{
    return doc.toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

inline QStringList words(const QString &text)
{
    static const QRegularExpression separators(QStringLiteral("[^\\p{L}\\p{N}]+"));
    return text.split(separators, Qt::SkipEmptyParts);
}

// The format of the first fragment containing `text`; an invalid format if none does.
inline QTextCharFormat formatOf(const QTextDocument &doc, const QString &text)
{
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            if (it.fragment().text().contains(text))
                return it.fragment().charFormat();
        }
    }
    return {};
}

inline QTextBlock blockWith(const QTextDocument &doc, const QString &text)
{
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        if (b.text().contains(text))
            return b;
    }
    return {};
}

} // namespace sd::rtf::test
