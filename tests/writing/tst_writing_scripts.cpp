#include <QTest>
class T : public QObject { Q_OBJECT };
QTEST_MAIN(T)
#include "tst_writing_scripts.moc"
