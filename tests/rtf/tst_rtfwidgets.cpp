#include "ui/richtextbox.h"
#include "ui/webpagebox.h"

#include <QImage>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

bool writeFile(const QString &path, const QByteArray &data)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
}

} // namespace

class TestRtfWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void richTextBoxLoads_data();
    void richTextBoxLoads();
    void richTextBoxPrintsEverything();
    void webPageBox();
    void webPageStaysInItsDirectory();
};

void TestRtfWidgets::richTextBoxLoads_data()
{
    QTest::addColumn<QByteArray>("content"); // empty: no file at all
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<QString>("shown");

    QTest::newRow("passage") << QByteArray("{\\rtf1\\ansi Read the {\\b text}.\\par}") << true << u"Read the text."_s;
    QTest::newRow("damaged but readable") << QByteArray("{\\rtf1 First part") << true << u"First part"_s;
    QTest::newRow("missing") << QByteArray() << false << QString();
    QTest::newRow("not rtf") << QByteArray("plain words") << false << QString();
}

void TestRtfWidgets::richTextBoxLoads()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, loaded);
    QFETCH(QString, shown);
    QTemporaryDir dir;
    const QString path = dir.filePath(u"passage.rtf"_s);
    if (!content.isEmpty())
        QVERIFY(writeFile(path, content));

    sd::RichTextBox box;
    box.setPlainMessage(u"previous"_s);
    QCOMPARE(box.loadFile(path), loaded);
    QCOMPARE(box.toPlainText(), shown);
    QVERIFY(box.isReadOnly());
    QCOMPARE(box.lastMessage().isEmpty(), loaded && QByteArray(QTest::currentDataTag()) == "passage");
}

void TestRtfWidgets::richTextBoxPrintsEverything()
{
    sd::RichTextBox box;
    box.resize(200, 100);
    QByteArray rtf = "{\\rtf1\\ansi ";
    for (int i = 0; i < 300; ++i)
        rtf += "Line " + QByteArray::number(i) + "\\par ";
    rtf += '}';
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(u"long.rtf"_s), rtf));
    QVERIFY(box.loadFile(dir.filePath(u"long.rtf"_s)));

    const QString pdf = dir.filePath(u"out.pdf"_s);
    {
        QPdfWriter writer(pdf);
        box.printTo(&writer);
    }
    QFile f(pdf);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QByteArray data = f.readAll();
    const qsizetype pages = data.count("/Type /Page") - data.count("/Type /Pages");
    QVERIFY2(pages > 1, "300 lines fill more than one page");
}

void TestRtfWidgets::webPageBox()
{
    QTemporaryDir dir;
    QImage image(6, 6, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(dir.filePath(u"pic.png"_s)));
    QVERIFY(writeFile(dir.filePath(u"index.htm"_s),
                      "<html><head><meta charset=\"windows-1252\"></head><body><p>Caf\xe9 <img src=\"pic.png\">"
                      "<a href=\"https://example.org/\">web</a> <a href=\"second.htm\">next</a></p></body></html>"));
    QVERIFY(writeFile(dir.filePath(u"second.htm"_s), "<p>Second page</p>"));

    sd::WebPageBox box;
    QVERIFY(!box.loadFile(dir.filePath(u"missing.htm"_s)));
    QVERIFY(box.toPlainText().isEmpty());

    QVERIFY(box.loadFile(dir.filePath(u"index.htm"_s)));
    QVERIFY(box.toPlainText().startsWith(u"Caf\u00E9"_s));
    const QVariant pic = box.document()->resource(QTextDocument::ImageResource, QUrl(u"pic.png"_s));
    QVERIFY(pic.isValid());

    QSignalSpy external(&box, &sd::WebPageBox::externalLinkClicked);
    Q_EMIT box.anchorClicked(QUrl(u"https://example.org/"_s));
    QCOMPARE(external.size(), 1);
    QVERIFY(box.toPlainText().startsWith(u"Caf\u00E9"_s)); // still on our page

    Q_EMIT box.anchorClicked(QUrl(u"second.htm"_s));
    QCOMPARE(box.toPlainText(), u"Second page"_s);
    QCOMPARE(external.size(), 1);
}

void TestRtfWidgets::webPageStaysInItsDirectory()
{
    // A page may name pictures and pages anywhere; only those of its own directory are loaded.
    QTemporaryDir dir, outside;
    QImage image(6, 6, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QVERIFY(image.save(dir.filePath(u"inside.png"_s)));
    QVERIFY(image.save(outside.filePath(u"secret.png"_s)));
    QVERIFY(writeFile(outside.filePath(u"secret.htm"_s), "<p>Secret page</p>"));
    QVERIFY(QFile::link(outside.filePath(u"secret.png"_s), dir.filePath(u"linked.png"_s)));
    const QByteArray secret = QFile::encodeName(outside.filePath(u"secret.png"_s));
    QVERIFY(writeFile(dir.filePath(u"page.htm"_s),
                      "<p>Page <img src=\"inside.png\"><img src=\"" + secret + "\"><img src=\"file://" + secret
                          + "\"><img src=\"../" + QFileInfo(outside.path()).fileName().toLatin1()
                          + "/secret.png\"><img src=\"linked.png\"><img src=\"http://example.org/x.png\"></p>"));

    sd::WebPageBox box;
    QVERIFY(box.loadDataFile(dir.path(), u"page.htm"_s));
    QTextDocument *doc = box.document();
    auto picture = [doc](const QString &url) { return doc->resource(QTextDocument::ImageResource, QUrl(url)).value<QImage>(); };
    QCOMPARE(picture(u"inside.png"_s).size(), QSize(6, 6));
    for (const QString &refused : QStringList{QString::fromLocal8Bit(secret), u"file://"_s + QString::fromLocal8Bit(secret),
                                   u"linked.png"_s, u"http://example.org/x.png"_s})
        QVERIFY2(picture(refused).isNull(), qPrintable(refused));

    QSignalSpy external(&box, &sd::WebPageBox::externalLinkClicked);
    Q_EMIT box.anchorClicked(QUrl::fromLocalFile(outside.filePath(u"secret.htm"_s)));
    QCOMPARE(external.size(), 1);
    QVERIFY(box.toPlainText().startsWith(u"Page"_s));
}

QTEST_MAIN(TestRtfWidgets)
#include "tst_rtfwidgets.moc"
