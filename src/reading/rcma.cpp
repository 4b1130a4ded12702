#include "rcma.h"

#include "core/readingscore.h"
#include "frame/core/state.h"
#include "ui/richtextbox.h"

#include <algorithm>

namespace sd {

rcma::rcma(ProgramState &s, Navigator &nav) : ReadingScreen(QStringLiteral("rcma"), s, nav, 4, DataFile::Rcma, Items)
{
    placeInstruction(QRect(84, 86, 840, 66), 10);
    addPassage(QRect(16, 156, 520, 504));
    lblTitle = addLabel(QStringLiteral("lblTitle"), QString(), QRect(552, 156, 456, 36), 12, true);
    for (int i = 1; i <= Items; ++i) {
        const int y = 196 + (i - 1) * 35;
        m_items.append(addLabel(QStringLiteral("lblItem%1").arg(i), QString(), QRect(582, y, 320, 32), 9));
        addAnswerRow(i, QRect(552, y, 26, 32), QRect(908, y + 1, 54, 30), QRect(966, y + 1, 42, 30), 10);
    }
}

QString rcma::instruction() const
{
    return QStringLiteral("For each question, choose from the texts and write the letter of the text in the box.");
}

ReadingScreen::Exercise rcma::readExercise()
{
    const auto r = readRecord<RecordB>(dataFile());

    lblTitle->setText(r.Title);
    QString sheet = r.Title;
    for (int i = 1; i <= Items; ++i) {
        m_items.at(i - 1)->setText(r.Item[i]);
        if (!r.Item[i].isEmpty())
            sheet += u'\n' + QString::number(i) + QStringLiteral("  ") + r.Item[i];
    }
    m_questions.setPlainText(sheet);

    // Only an exercise with questions of two or three letters says how to answer them.
    const QStringList keys = splitSlashKey(r.Answers);
    if (std::any_of(keys.cbegin(), keys.cend(), [](const QString &k) { return k.size() > 1; }))
        lblInstruction->setText(ui::lineBreaks(instruction() + u'\r'
                                               + QStringLiteral("Where a question asks for two or three, write all "
                                                                "their letters in its box (for example AD).")));
    return {r.Name, QString(), r.Answers};
}

QStringList rcma::splitKey(const QString &key) const
{
    const QStringList keys = splitSlashKey(key);
    for (const QString &k : keys)
        if (k.isEmpty() || k.size() > 3)
            throw ProgramError(QStringLiteral("Bad key"));
    return keys;
}

QList<QTextDocument *> rcma::printableDocuments()
{
    return {RichTextBox1->document(), &m_questions};
}

} // namespace sd
