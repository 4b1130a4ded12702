#include "rtftesthelpers.h"
#include "ui/rtf/rtfreader.h"
#include "ui/rtf/rtfwriter.h"

#include <QImage>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace sd::rtf;
using namespace sd::rtf::test;

namespace {

// Writes the document and reads it back, as the content tool and the program do.
void roundTrip(const QTextDocument &in, QTextDocument &out)
{
    const QByteArray rtf = writeRtf(in);
    const ReadResult r = readRtf(rtf, out);
    QVERIFY2(r.ok && !r.partial, qPrintable(r.message));
}

QString cellText(QTextTable *t, int row, int col)
{
    QTextCursor c = t->cellAt(row, col).firstCursorPosition();
    c.setPosition(t->cellAt(row, col).lastCursorPosition().position(), QTextCursor::KeepAnchor);
    return c.selectedText();
}

} // namespace

class TestRtfWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void characterFormat_data();
    void characterFormat();
    void paragraphFormat_data();
    void paragraphFormat();
    void encoding_data();
    void encoding();
    void structure_data();
    void structure();
    void headings();
    void tables();
    void lists();
    void picturesAndLinks();
};

void TestRtfWriter::characterFormat_data()
{
    QTest::addColumn<int>("property");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("bold") << int(QTextFormat::FontWeight) << QVariant(int(QFont::Bold));
    QTest::newRow("italic") << int(QTextFormat::FontItalic) << QVariant(true);
    QTest::newRow("underline") << int(QTextFormat::TextUnderlineStyle) << QVariant(int(QTextCharFormat::SingleUnderline));
    QTest::newRow("wave underline") << int(QTextFormat::TextUnderlineStyle) << QVariant(int(QTextCharFormat::WaveUnderline));
    QTest::newRow("strike") << int(QTextFormat::FontStrikeOut) << QVariant(true);
    QTest::newRow("size") << int(QTextFormat::FontPointSize) << QVariant(18.0);
    QTest::newRow("half point size") << int(QTextFormat::FontPointSize) << QVariant(10.5);
    QTest::newRow("family") << int(QTextFormat::FontFamilies) << QVariant(QStringList{u"Georgia"_s});
    QTest::newRow("colour") << int(QTextFormat::ForegroundBrush) << QVariant(QBrush(QColor(200, 30, 40)));
    QTest::newRow("background") << int(QTextFormat::BackgroundBrush) << QVariant(QBrush(QColor(255, 255, 0)));
    QTest::newRow("super") << int(QTextFormat::TextVerticalAlignment) << QVariant(int(QTextCharFormat::AlignSuperScript));
    QTest::newRow("sub") << int(QTextFormat::TextVerticalAlignment) << QVariant(int(QTextCharFormat::AlignSubScript));
    QTest::newRow("caps") << int(QTextFormat::FontCapitalization) << QVariant(int(QFont::AllUppercase));
    QTest::newRow("small caps") << int(QTextFormat::FontCapitalization) << QVariant(int(QFont::SmallCaps));
}

void TestRtfWriter::characterFormat()
{
    QFETCH(int, property);
    QFETCH(QVariant, value);
    QTextDocument in;
    QTextCursor c(&in);
    c.insertText(u"plain "_s);
    QTextCharFormat f;
    f.setProperty(property, value);
    c.insertText(u"word"_s, f);
    c.insertText(u" after"_s, QTextCharFormat());

    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(out.toPlainText(), u"plain word after"_s);
    QCOMPARE(formatOf(out, u"word"_s).property(property), value);
    if (property != QTextFormat::FontPointSize && property != QTextFormat::FontFamilies)
        QVERIFY(!formatOf(out, u"after"_s).hasProperty(property));
}

void TestRtfWriter::paragraphFormat_data()
{
    QTest::addColumn<QTextBlockFormat>("format");
    QTest::addColumn<int>("property");

    const auto with = [](auto setter) {
        QTextBlockFormat f;
        setter(f);
        return f;
    };
    QTest::newRow("centre") << with([](auto &f) { f.setAlignment(Qt::AlignHCenter); }) << int(QTextFormat::BlockAlignment);
    QTest::newRow("right") << with([](auto &f) { f.setAlignment(Qt::AlignRight); }) << int(QTextFormat::BlockAlignment);
    QTest::newRow("justify") << with([](auto &f) { f.setAlignment(Qt::AlignJustify); }) << int(QTextFormat::BlockAlignment);
    QTest::newRow("left margin") << with([](auto &f) { f.setLeftMargin(48); }) << int(QTextFormat::BlockLeftMargin);
    QTest::newRow("right margin") << with([](auto &f) { f.setRightMargin(30); }) << int(QTextFormat::BlockRightMargin);
    QTest::newRow("hanging indent") << with([](auto &f) { f.setLeftMargin(48); f.setTextIndent(-24); })
                                    << int(QTextFormat::TextIndent);
    QTest::newRow("space before") << with([](auto &f) { f.setTopMargin(16); }) << int(QTextFormat::BlockTopMargin);
    QTest::newRow("space after") << with([](auto &f) { f.setBottomMargin(8); }) << int(QTextFormat::BlockBottomMargin);
    QTest::newRow("line height") << with([](auto &f) { f.setLineHeight(150, QTextBlockFormat::ProportionalHeight); })
                                 << int(QTextFormat::LineHeight);
    QTest::newRow("page break") << with([](auto &f) { f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore); })
                                << int(QTextFormat::PageBreakPolicy);
}

void TestRtfWriter::paragraphFormat()
{
    QFETCH(QTextBlockFormat, format);
    QFETCH(int, property);
    QTextDocument in;
    QTextCursor c(&in);
    c.insertText(u"First"_s);
    c.insertBlock(format);
    c.insertText(u"Text"_s);
    c.insertBlock(QTextBlockFormat());
    c.insertText(u"Last"_s);

    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(out.toPlainText(), u"First\nText\nLast"_s);
    QCOMPARE(blockWith(out, u"Text"_s).blockFormat().property(property), format.property(property));
    QVERIFY(!blockWith(out, u"Last"_s).blockFormat().hasProperty(property)
            || property == QTextFormat::BlockAlignment);
}

void TestRtfWriter::encoding_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("written");

    QTest::newRow("1252 accents") << u"caf\u00E9 na\u00EFve"_s << QByteArray("caf\\'e9 na\\'efve");
    QTest::newRow("1252 punctuation") << u"\u201Cquoted\u201D \u2013 \u20AC5"_s << QByteArray("\\'93quoted\\'94 \\'96 \\'805");
    QTest::newRow("cyrillic") << u"\u041F\u0440\u0438"_s << QByteArray("\\u1055?\\u1088?\\u1080?");
    QTest::newRow("above 32767") << u"\uFB01"_s << QByteArray("\\u-1279?");
    QTest::newRow("outside the BMP") << u"\U0001F600"_s << QByteArray("\\u-10179?\\u-8704?");
    QTest::newRow("rtf specials") << u"a\\b{c}"_s << QByteArray("a\\\\b\\{c\\}");
    QTest::newRow("tab and line break") << u"a\tb\u2028c"_s << QByteArray("a\\tab b\\line c");
    QTest::newRow("spaces and hyphens") << u"a\u00A0b\u00ADc\u2011d"_s << QByteArray("a\\~b\\-c\\_d");
}

void TestRtfWriter::encoding()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, written);
    QTextDocument in;
    QTextCursor(&in).insertText(text);
    const QByteArray rtf = writeRtf(in);
    QVERIFY(rtf.startsWith("{\\rtf1\\ansi\\ansicpg1252"));
    QVERIFY2(rtf.contains(written), rtf.constData());
    QVERIFY(std::all_of(rtf.begin(), rtf.end(), [](char c) { return uchar(c) < 0x80; }));
    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(rawText(out), text);
}

void TestRtfWriter::structure_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::newRow("empty document") << QByteArray("{\\rtf1}");
    QTest::newRow("empty paragraphs at the end") << QByteArray("{\\rtf1 Text\\par\\par\\par\\par}");
    QTest::newRow("empty paragraphs at the start") << QByteArray("{\\rtf1\\par\\par Text}");
    QTest::newRow("cell ending in an empty paragraph")
        << QByteArray("{\\rtf1\\intbl A\\par\\par\\cell B\\cell\\row After}");
    QTest::newRow("table first in a cell")
        << QByteArray("{\\rtf1\\intbl\\itap2 In\\nestcell{\\*\\nesttableprops\\nestrow}\\itap1 Out\\cell\\row}");
    QTest::newRow("table at the end") << QByteArray("{\\rtf1 Text\\par\\intbl A\\cell\\row}");
    QTest::newRow("tables back to back")
        << QByteArray("{\\rtf1\\intbl A\\cell\\row\\pard\\par\\intbl B\\cell\\row\\pard\\intbl C\\cell\\row}");
}

void TestRtfWriter::structure()
{
    QFETCH(QByteArray, rtf);
    QTextDocument in;
    QVERIFY(readRtf(rtf, in).ok);
    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(out.blockCount(), in.blockCount());
    QCOMPARE(rawText(out), rawText(in));
}

void TestRtfWriter::headings()
{
    QTextDocument in;
    QTextCursor c(&in);
    QTextBlockFormat heading;
    heading.setHeadingLevel(1);
    c.setBlockFormat(heading);
    c.insertText(u"Reading Part 1"_s);
    c.insertBlock(QTextBlockFormat());
    c.insertText(u"Body text"_s);

    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(blockWith(out, u"Reading"_s).blockFormat().headingLevel(), 1);
    const QTextCharFormat title = formatOf(out, u"Reading"_s);
    const QTextCharFormat body = formatOf(out, u"Body"_s);
    QCOMPARE(title.fontWeight(), int(QFont::Bold));
    QVERIFY(title.fontPointSize() > body.fontPointSize());
    QCOMPARE(body.fontWeight(), int(QFont::Normal));
}

void TestRtfWriter::tables()
{
    QTextDocument in;
    QTextCursor c(&in);
    c.insertText(u"Before"_s);
    QTextTable *t = c.insertTable(2, 3);
    for (int r = 0; r < 2; ++r)
        for (int col = 0; col < 3; ++col)
            t->cellAt(r, col).firstCursorPosition().insertText(u"r%1c%2"_s.arg(r).arg(col));
    QTextCursor inCell = t->cellAt(1, 1).lastCursorPosition();
    QTextTable *inner = inCell.insertTable(1, 2);
    inner->cellAt(0, 0).firstCursorPosition().insertText(u"deep1"_s);
    inner->cellAt(0, 1).firstCursorPosition().insertText(u"deep2"_s);
    c.movePosition(QTextCursor::End);
    c.insertText(u"After"_s);

    QTextDocument out;
    roundTrip(in, out);
    QTextCursor oc(&out);
    oc.setPosition(blockWith(out, u"r0c0"_s).position());
    QTextTable *ot = oc.currentTable();
    QVERIFY(ot);
    QCOMPARE(ot->rows(), 2);
    QCOMPARE(ot->columns(), 3);
    QCOMPARE(cellText(ot, 0, 2), u"r0c2"_s);
    QCOMPARE(cellText(ot, 1, 0), u"r1c0"_s);
    oc.setPosition(blockWith(out, u"deep2"_s).position());
    QTextTable *oi = oc.currentTable();
    QVERIFY(oi && oi != ot);
    QCOMPARE(oi->columns(), 2);
    QCOMPARE(cellText(oi, 0, 0), u"deep1"_s);
    QCOMPARE(words(out.toPlainText()), words(in.toPlainText()));
    oc.setPosition(blockWith(out, u"After"_s).position());
    QVERIFY(!oc.currentTable());
}

void TestRtfWriter::lists()
{
    QTextDocument in;
    QTextCursor c(&in);
    c.insertText(u"Steps:"_s);
    c.insertList(QTextListFormat::ListDecimal);
    c.insertText(u"Read"_s);
    c.insertBlock();
    c.insertText(u"Answer"_s);
    c.insertBlock(QTextBlockFormat());
    c.createList(QTextListFormat::ListDisc);
    c.insertText(u"Check"_s);

    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(out.toPlainText(), u"Steps:\n1.\tRead\n2.\tAnswer\n\u2022\tCheck"_s);
    QVERIFY(blockWith(out, u"Read"_s).blockFormat().leftMargin() > 0);
}

void TestRtfWriter::picturesAndLinks()
{
    QTextDocument in;
    QImage image(5, 4, QImage::Format_ARGB32);
    image.fill(Qt::blue);
    in.addResource(QTextDocument::ImageResource, QUrl(u"pic"_s), image);
    QTextCursor c(&in);
    QTextImageFormat img;
    img.setName(u"pic"_s);
    img.setWidth(50);
    img.setHeight(40);
    c.insertImage(img);
    QTextCharFormat link;
    link.setAnchor(true);
    link.setAnchorHref(u"https://example.org/?q=1"_s);
    c.insertText(u" site"_s, link);
    QTextCharFormat internal;
    internal.setAnchor(true);
    internal.setAnchorHref(u"#top"_s);
    c.insertText(u" back"_s, internal);
    QTextCharFormat target;
    target.setAnchor(true);
    target.setAnchorNames({u"top"_s});
    c.insertText(u" here"_s, target);

    QTextDocument out;
    roundTrip(in, out);
    QCOMPARE(visibleText(out), u"[image] site back here"_s);
    QCOMPARE(formatOf(out, u"site"_s).anchorHref(), u"https://example.org/?q=1"_s);
    QCOMPARE(formatOf(out, u"back"_s).anchorHref(), u"#top"_s);
    QCOMPARE(formatOf(out, u"here"_s).anchorNames(), QStringList{u"top"_s});
    const QTextImageFormat outImg = out.begin().begin().fragment().charFormat().toImageFormat();
    QVERIFY(outImg.isValid());
    QCOMPARE(QSizeF(outImg.width(), outImg.height()), QSizeF(50, 40));
    const QImage back = out.resource(QTextDocument::ImageResource, QUrl(outImg.name())).value<QImage>();
    QCOMPARE(back.size(), QSize(5, 4));
    QCOMPARE(back.pixelColor(2, 2), QColor(Qt::blue));
}

QTEST_MAIN(TestRtfWriter)
#include "tst_rtfwriter.moc"
