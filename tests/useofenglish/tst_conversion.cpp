// The one-item rules shared by word formation and sentence conversion: contraction expansion,
// the answer normaliser and the judge.

#include "useofenglish/core/conversion.h"

#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

class TestConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void expandContractions_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expanded");
        QTest::newRow("can't is one word") << u"i can't swim"_s << u"i cannot swim"_s;
        QTest::newRow("won't") << u"she won't come"_s << u"she will not come"_s;
        QTest::newRow("shan't") << u"we shan't wait"_s << u"we shall not wait"_s;
        QTest::newRow("didn't") << u"he didn't know"_s << u"he did not know"_s;
        QTest::newRow("hasn't") << u"it hasn't rained"_s << u"it has not rained"_s;
        QTest::newRow("several, can't found after the first n't")
            << u"don't say you can't"_s << u"do not say you cannot"_s;
        QTest::newRow("won't before shan't") << u"shan't and won't"_s << u"shall not and will not"_s;
        QTest::newRow("capitals are left alone") << u"CAN'T"_s << u"CAN'T"_s;
        QTest::newRow("nothing to expand") << u"not at all"_s << u"not at all"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void expandContractions()
    {
        QFETCH(QString, text);
        QTEST(ExpandContractions(text), "expanded");
    }

    void normalise_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("normalised");
        QTest::newRow("lower case and trimmed") << u"  Had Better  "_s << u"had better"_s;
        QTest::newRow("can't") << u"Can't Have"_s << u"cannot have"_s;
        QTest::newRow("didn't") << u"didn't use to"_s << u"did not use to"_s;
        QTest::newRow("commas removed") << u"yes, of course, it"_s << u"yes of course it"_s;
        QTest::newRow("exclamation removed") << u"what a day!"_s << u"what a day"_s;
        QTest::newRow("full stop closed up") << u"it was late  ."_s << u"it was late."_s;
        QTest::newRow("question mark closed up") << u"was it   ?"_s << u"was it?"_s;
        QTest::newRow("blanks collapsed") << u"so    much   that"_s << u"so much that"_s;
        QTest::newRow("blank left by a removed comma") << u"well , then"_s << u"well then"_s;
    }
    void normalise()
    {
        QFETCH(QString, text);
        QTEST(NormaliseAnswer(text), "normalised");
    }

    void removeCarriageReturns()
    {
        QCOMPARE(RemoveCarriageReturns(u"one\r\ntwo\r"_s), u"one\ntwo"_s);
    }

    void judge_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("correct");
        QTest::addColumn<QString>("alternatives"); // joined with "|"
        QTest::addColumn<bool>("right");
        QTest::newRow("capitals equal the key") << u"UNLESS YOU HURRY"_s << u"unless you hurry"_s << u"unless you hurry|||"_s << true;
        QTest::newRow("blanks around the answer") << u"  unusual "_s << u"UNUSUAL"_s << u"UNUSUAL|||"_s << true;
        QTest::newRow("alternative in lower case") << u"did not"_s << u"had not"_s << u"had not|Did Not||"_s << true;
        QTest::newRow("alternative typed in capitals") << u"DID NOT"_s << u"had not"_s << u"had not|did not||"_s << true;
        QTest::newRow("can't against cannot") << u"can't afford"_s << u"cannot afford"_s << u"cannot afford|||"_s << true;
        QTest::newRow("key written with n't") << u"didn't"_s << u"didn't"_s << u"didn't|||"_s << true;
        QTest::newRow("did not against didn't") << u"did not"_s << u"didn't"_s << u"didn't|||"_s << true;
        QTest::newRow("comma in the answer") << u"however, it"_s << u"however it"_s << u"however it|||"_s << true;
        QTest::newRow("wrong word") << u"unusually"_s << u"unusual"_s << u"unusual|||"_s << false;
        QTest::newRow("empty answer, empty alternative") << QString() << u"key"_s << u"key|||"_s << false;
        QTest::newRow("empty answer, empty key") << QString() << QString() << u"|||"_s << false;
        QTest::newRow("blank answer") << u"   "_s << u"key"_s << u"key|||"_s << false;
    }
    void judge()
    {
        QFETCH(QString, answer);
        QFETCH(QString, correct);
        QFETCH(QString, alternatives);
        const QStringList parts = alternatives.split(u'|');
        Alternatives alts;
        for (int i = 0; i < 4; ++i)
            alts[std::size_t(i)] = parts.value(i);
        QTEST(JudgeItemAnswer(answer, correct, alts), "right");
    }
};

QTEST_GUILESS_MAIN(TestConversion)
#include "tst_conversion.moc"
