#pragma once

#include "readingscreen.h"

#include <QTextDocument>

namespace sd {

/// Reading matching (kind 4): lettered texts, a question stem and up to thirteen items, each
/// answered with the letters of the texts it matches (one, two or three).
class rcma : public ReadingScreen
{
    Q_OBJECT

public:
    static constexpr int Items = 13;

    rcma(ProgramState &state, Navigator &nav);

protected:
    QString instruction() const override;
    Exercise readExercise() override;
    QStringList splitKey(const QString &key) const override;
    QList<QWidget *> rowExtras(int i) const override { return {m_items.at(i - 1)}; }
    QList<QTextDocument *> printableDocuments() override;

private:
    QLabel *lblTitle = nullptr;
    QList<QLabel *> m_items;
    QTextDocument m_questions; ///< stem and items, for printing
};

} // namespace sd
