#include "composition.h"

#include "frame/core/state.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace sd {

namespace {
const CompositionTypeInfo kTypes[CompositionTypeCount] = {
    {1, "leta", 22, "", "lblleta"},        {2, "nar", 23, "narlist", "lblnar"},
    {3, "art", 24, "artlist", "lblart"},   {4, "rep", 25, "replist", "lblrep"},
    {5, "dis", 26, "dislist", "lbldis"},   {6, "letb", 27, "letblist", "lblletb"},
    {7, "book", 28, "booklist", "lblbook"},
};
} // namespace

const CompositionTypeInfo &compositionType(int n)
{
    if (n < 1 || n > CompositionTypeCount)
        throw RangeError(QStringLiteral("Subscript out of range: composition type %1").arg(n));
    return kTypes[n - 1];
}

void SelectCompositionType(ProgramState &state, int n)
{
    const CompositionTypeInfo &t = compositionType(n);
    state.CompositionType = QString::fromLatin1(t.code);
    state.CompositionTypeNumber = t.number;
    state.CompositionIndex = t.index;
    if (n != 1)
        state.CompositionListName = QString::fromLatin1(t.listName);
}

QString compositionHelpTopic(int compositionIndex)
{
    if (compositionIndex >= 22 && compositionIndex <= 28)
        return QStringLiteral("help") + QString::fromLatin1(kTypes[compositionIndex - 22].code);
    if (compositionIndex == 29)
        return QStringLiteral("helpwrite");
    return QStringLiteral("helpcomp");
}

int samplesIndex(int compositionIndex)
{
    return compositionIndex >= 22 && compositionIndex <= 28 ? compositionIndex + 19 : 41;
}

QString paperLabelFor(int testNumber)
{
    return QStringLiteral("Test paper ") + QString::number(testNumber) + QStringLiteral(" B   Topic number: ");
}

QString practiceHeading(const QString &title, const QString &note)
{
    return title + u' ' + note;
}

QString testHeading(const QString &paperLabel, const QString &number)
{
    return paperLabel + number;
}

QString letterHeading(const QString &title, const QString &note)
{
    return title + u' ' + note;
}

QString letterTaskText(const QString &topicCode, const QString &title, const QString &note)
{
    return QString::number(topicCode.toInt()) + QStringLiteral(". ") + title + note + QString::fromUtf16(NoAddresses)
           + QString::fromUtf16(WordCountRule);
}

QString withCrLf(const QString &text)
{
    QString t = text;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(u'\r', u'\n');
    t.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return t;
}

QByteArray compositionFileBytes(const QString &heading, const QString &text, const QString &name)
{
    const QString lines[] = {QStringLiteral(" "), heading, QStringLiteral(" "), withCrLf(text), QStringLiteral(" "),
                             QStringLiteral(" "), name, QStringLiteral(" ")};
    QString out;
    for (const QString &l : lines)
        out += l + QStringLiteral("\r\n");
    return out.toUtf8();
}

QString withTextExtension(const QString &path)
{
    return QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".txt") : path;
}

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *reason)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        if (reason)
            *reason = file.errorString();
        file.cancelWriting();
        return false;
    }
    return true;
}

} // namespace sd
