#include "rtftesthelpers.h"
#include "ui/rtf/rtfreader.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QTextTable>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace sd::rtf;
using namespace sd::rtf::test;

namespace {

// A small document in the shape Word writes: font and colour tables, then the body.
QByteArray rtfDoc(const QByteArray &body)
{
    return "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}{\\f2 Symbol;}"
           "{\\f3\\fcharset204 Times Cyr;}{\\f4 Wingdings;}{\\f5\\fcharset2 Marks;}}"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\n"
         + body + "}";
}

QByteArray pngBytes(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray jpegBytes()
{
    QImage image(QSize(8, 8), QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG");
    return bytes;
}

int imageCount(const QTextDocument &doc)
{
    int n = 0;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next())
        for (auto it = b.begin(); !it.atEnd(); ++it)
            n += it.fragment().charFormat().isImageFormat();
    return n;
}

QString samplesDir() { return QStringLiteral(STUDYDESK_SOURCE_DIR "/../shared/rtf-samples"); }

} // namespace

class TestRtfReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void characterFormat_data();
    void characterFormat();
    void paragraphFormat_data();
    void paragraphFormat();
    void breaks();
    void text_data();
    void text();
    void skippedDestinations_data();
    void skippedDestinations();
    void tables();
    void nestedTables();
    void links_data();
    void links();
    void pictures_data();
    void pictures();
    void footnotes();
    void malformed_data();
    void malformed();
    void samples_data();
    void samples();
    void corpus_data();
    void corpus();
    void textOnlyAsTheDocument_data();
    void textOnlyAsTheDocument();
};

void TestRtfReader::characterFormat_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("property");
    QTest::addColumn<QVariant>("expected"); // an invalid QVariant: the property is not set

    const QVariant unset;
    QTest::newRow("bold") << QByteArray("{\\b word}") << int(QTextFormat::FontWeight) << QVariant(int(QFont::Bold));
    QTest::newRow("bold off") << QByteArray("{\\b on \\b0 word}") << int(QTextFormat::FontWeight) << unset;
    QTest::newRow("group end restores") << QByteArray("{\\b on}word") << int(QTextFormat::FontWeight) << unset;
    QTest::newRow("italic") << QByteArray("{\\i word}") << int(QTextFormat::FontItalic) << QVariant(true);
    QTest::newRow("underline") << QByteArray("{\\ul word}") << int(QTextFormat::TextUnderlineStyle)
                               << QVariant(int(QTextCharFormat::SingleUnderline));
    QTest::newRow("ulnone") << QByteArray("{\\ul on \\ulnone word}") << int(QTextFormat::TextUnderlineStyle) << unset;
    QTest::newRow("ul0") << QByteArray("{\\ul on \\ul0 word}") << int(QTextFormat::TextUnderlineStyle) << unset;
    QTest::newRow("dotted underline") << QByteArray("{\\uld word}") << int(QTextFormat::TextUnderlineStyle)
                                      << QVariant(int(QTextCharFormat::DotLine));
    QTest::newRow("strike") << QByteArray("{\\strike word}") << int(QTextFormat::FontStrikeOut) << QVariant(true);
    QTest::newRow("size") << QByteArray("{\\fs32 word}") << int(QTextFormat::FontPointSize) << QVariant(16.0);
    QTest::newRow("default size") << QByteArray("word") << int(QTextFormat::FontPointSize) << QVariant(12.0);
    QTest::newRow("plain") << QByteArray("{\\b\\fs40 x\\plain word}") << int(QTextFormat::FontPointSize) << QVariant(12.0);
    QTest::newRow("family") << QByteArray("{\\f1 word}") << int(QTextFormat::FontFamilies)
                            << QVariant(QStringList{u"Georgia"_s});
    QTest::newRow("colour") << QByteArray("{\\cf1 word}") << int(QTextFormat::ForegroundBrush)
                            << QVariant(QBrush(QColor(255, 0, 0)));
    QTest::newRow("cf0 is automatic") << QByteArray("{\\cf1 x\\cf0 word}") << int(QTextFormat::ForegroundBrush) << unset;
    QTest::newRow("highlight") << QByteArray("{\\highlight2 word}") << int(QTextFormat::BackgroundBrush)
                               << QVariant(QBrush(QColor(0, 0, 255)));
    QTest::newRow("cb") << QByteArray("{\\cb1 word}") << int(QTextFormat::BackgroundBrush)
                        << QVariant(QBrush(QColor(255, 0, 0)));
    const int valign = QTextFormat::TextVerticalAlignment;
    QTest::newRow("super") << QByteArray("x{\\super word}") << valign << QVariant(int(QTextCharFormat::AlignSuperScript));
    QTest::newRow("sub") << QByteArray("x{\\sub word}") << valign << QVariant(int(QTextCharFormat::AlignSubScript));
    QTest::newRow("up") << QByteArray("x{\\up6 word}") << valign << QVariant(int(QTextCharFormat::AlignSuperScript));
    QTest::newRow("dn") << QByteArray("x{\\dn4 word}") << valign << QVariant(int(QTextCharFormat::AlignSubScript));
    QTest::newRow("nosupersub") << QByteArray("{\\super x\\nosupersub word}") << valign << unset;
    QTest::newRow("caps") << QByteArray("{\\caps word}") << int(QTextFormat::FontCapitalization)
                          << QVariant(int(QFont::AllUppercase));
    QTest::newRow("small caps") << QByteArray("{\\scaps word}") << int(QTextFormat::FontCapitalization)
                                << QVariant(int(QFont::SmallCaps));
    QTest::newRow("character style") << QByteArray("{\\stylesheet{\\*\\cs7 \\i Emphasis;}}{\\cs7 word}")
                                     << int(QTextFormat::FontItalic) << QVariant(true);
}

void TestRtfReader::characterFormat()
{
    QFETCH(QByteArray, body);
    QFETCH(int, property);
    QFETCH(QVariant, expected);
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc(body), doc).ok);
    const QTextCharFormat f = formatOf(doc, u"word"_s);
    QVERIFY2(f.isValid(), qPrintable(doc.toPlainText()));
    QCOMPARE(f.property(property), expected);
}

void TestRtfReader::paragraphFormat_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("property");
    QTest::addColumn<QVariant>("expected");

    const int align = QTextFormat::BlockAlignment;
    QTest::newRow("left") << QByteArray("\\ql Text") << align << QVariant(int(Qt::AlignLeft));
    QTest::newRow("centre") << QByteArray("\\qc Text") << align << QVariant(int(Qt::AlignHCenter));
    QTest::newRow("right") << QByteArray("\\qr Text") << align << QVariant(int(Qt::AlignRight));
    QTest::newRow("justify") << QByteArray("\\qj Text") << align << QVariant(int(Qt::AlignJustify));
    QTest::newRow("pard resets") << QByteArray("\\qc First\\par\\pard Text") << align << QVariant(int(Qt::AlignLeft));
    QTest::newRow("format at the end mark") << QByteArray("Text\\qr\\par") << align << QVariant(int(Qt::AlignRight));
    // 15 twips to a pixel.
    QTest::newRow("left indent") << QByteArray("\\li720 Text") << int(QTextFormat::BlockLeftMargin) << QVariant(48.0);
    QTest::newRow("right indent") << QByteArray("\\ri1440 Text") << int(QTextFormat::BlockRightMargin) << QVariant(96.0);
    QTest::newRow("hanging indent") << QByteArray("\\li720\\fi-360 Text") << int(QTextFormat::TextIndent) << QVariant(-24.0);
    QTest::newRow("space before") << QByteArray("\\sb240 Text") << int(QTextFormat::BlockTopMargin) << QVariant(16.0);
    QTest::newRow("space after") << QByteArray("\\sa120 Text") << int(QTextFormat::BlockBottomMargin) << QVariant(8.0);
    QTest::newRow("line spacing 1.5") << QByteArray("\\sl360\\slmult1 Text") << int(QTextFormat::LineHeight) << QVariant(150.0);
    QTest::newRow("outline level") << QByteArray("\\outlinelevel1 Text") << int(QTextFormat::HeadingLevel) << QVariant(2);
    QTest::newRow("page break before") << QByteArray("First\\par\\pagebb Text") << int(QTextFormat::PageBreakPolicy)
                                       << QVariant(int(QTextFormat::PageBreak_AlwaysBefore));
    const QByteArray styles = "{\\stylesheet{\\s0 Normal;}{\\s1\\qc\\b\\fs36 heading 1;}}";
    QTest::newRow("style alignment") << styles + "\\pard\\s1 Text" << align << QVariant(int(Qt::AlignHCenter));
    QTest::newRow("style heading") << styles + "\\pard\\s1 Text" << int(QTextFormat::HeadingLevel) << QVariant(1);
}

void TestRtfReader::paragraphFormat()
{
    QFETCH(QByteArray, body);
    QFETCH(int, property);
    QFETCH(QVariant, expected);
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc(body), doc).ok);
    const QTextBlock b = blockWith(doc, u"Text"_s);
    QVERIFY2(b.isValid(), qPrintable(doc.toPlainText()));
    QCOMPARE(b.blockFormat().property(property), expected);
}

void TestRtfReader::breaks()
{
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc("\\tx1440 Line one\\line two\\tab three\\par\\par Next\\page After\\par"), doc).ok);
    QCOMPARE(rawText(doc), u"Line one\u2028two\tthree\n\nNext\nAfter"_s);
    const QList<QTextOption::Tab> tabs = doc.begin().blockFormat().tabPositions();
    QCOMPARE(tabs.size(), 1);
    QCOMPARE(tabs.first().position, 96.0);
    QCOMPARE(blockWith(doc, u"After"_s).blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_AlwaysBefore);
    QCOMPARE(blockWith(doc, u"Next"_s).blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);

    // Styles carry a paragraph's whole look: bold 18 pt text from the heading style.
    QVERIFY(readRtf(rtfDoc("{\\stylesheet{\\s1\\b\\fs36 heading 1;}}\\pard\\s1 Title\\par\\pard\\plain Body"), doc).ok);
    QCOMPARE(formatOf(doc, u"Title"_s).fontWeight(), int(QFont::Bold));
    QCOMPARE(formatOf(doc, u"Title"_s).fontPointSize(), 18.0);
    QCOMPARE(formatOf(doc, u"Body"_s).fontPointSize(), 12.0);
}

void TestRtfReader::text_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("expected");

    QTest::newRow("symbols") << rtfDoc("a\\emdash b\\endash c\\bullet\\lquote d\\rquote\\ldblquote e\\rdblquote")
                             << u"a\u2014b\u2013c\u2022\u2018d\u2019\u201Ce\u201D"_s;
    QTest::newRow("escapes") << rtfDoc("\\\\ \\{x\\} 1\\~2\\_3") << u"\\ {x} 1\u00A02\u20113"_s;
    QTest::newRow("optional hyphen") << rtfDoc("hy\\-phen") << u"hy\u00ADphen"_s;
    QTest::newRow("hidden text") << rtfDoc("shown {\\v secret}here") << u"shown here"_s;
    QTest::newRow("1252 by default") << QByteArray("{\\rtf1\\ansi caf\\'e9 \\'93q\\'94}") << u"caf\u00E9 \u201Cq\u201D"_s;
    QTest::newRow("1251 from ansicpg") << QByteArray("{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2}")
                                       << u"\u041F\u0440\u0438\u0432\u0435\u0442"_s;
    QTest::newRow("1251 from fcharset204") << rtfDoc("{\\f3 \\'cf\\'f0\\'e8} \\'e9") << u"\u041F\u0440\u0438 \u00E9"_s;
    QTest::newRow("1253 from fcharset161") << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset161 Arial Greek;}}\\'e1\\'e2}")
                                           << u"\u03B1\u03B2"_s;
    QTest::newRow("932 double byte") << QByteArray("{\\rtf1\\ansi\\ansicpg932 \\'82\\'a0\\'82\\'a2}") << u"\u3042\u3044"_s;
    QTest::newRow("u with uc1") << rtfDoc("\\uc1\\u1055?\\u1088?") << u"\u041F\u0440"_s;
    QTest::newRow("u with uc0") << rtfDoc("\\uc0\\u1055\\u1088 x") << u"\u041F\u0440x"_s;
    QTest::newRow("u with uc2") << rtfDoc("\\uc2\\u1055\\'cf\\'d0x") << u"\u041Fx"_s;
    QTest::newRow("uc ends with its group") << rtfDoc("{\\uc2\\u1055 xy}\\u1056 z") << u"\u041F\u0420"_s;
    QTest::newRow("negative u") << rtfDoc("\\u-10179?\\u-8704?") << u"\U0001F600"_s;
    QTest::newRow("u forging a picture or a frame") << rtfDoc("a\\u-4?b\\u-560?\\u-559?c\\u65535?") << u"abc"_s;
    QTest::newRow("symbol font") << rtfDoc("{\\f2 \\'b7a}") << u"\u2022\u03B1"_s;
    QTest::newRow("symbol charset") << rtfDoc("{\\f5 \\'b7}") << u"\u2022"_s;
    QTest::newRow("wingdings") << rtfDoc("{\\f4 \\'a7\\'fc}") << u"\u25AA\u2713"_s;
    QTest::newRow("symbol as private use") << rtfDoc("\\u61623?") << u"\u2022"_s;
    QTest::newRow("list text") << rtfDoc("{\\listtext 1.\\tab}First\\par{\\listtext 2.\\tab}Second")
                               << u"1.\tFirst\n2.\tSecond"_s;
    QTest::newRow("word's o bullet") << rtfDoc("{\\listtext\\f1 o\\tab}Item") << u"\u25E6\tItem"_s;
    QTest::newRow("legacy numbering") << rtfDoc("{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}A\\par B\\par C")
                                      << u"1.\tA\n2.\tB\n3.\tC"_s;
    QTest::newRow("legacy roman") << rtfDoc("{\\*\\pn\\pnlvlbody\\pnucrm\\pnstart3{\\pntxta )}}A\\par B")
                                  << u"III)\tA\nIV)\tB"_s;
    QTest::newRow("legacy bullets") << rtfDoc("{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb \\'b7}}A\\par B\\par\\pard C")
                                    << u"\u2022\tA\n\u2022\tB\nC"_s;
    QTest::newRow("unicode copy of upr") << rtfDoc("{\\upr{ansi}{\\*\\ud{unicode}}}") << u"unicode"_s;
}

void TestRtfReader::text()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, expected);
    QTextDocument doc;
    const ReadResult r = readRtf(rtf, doc);
    QVERIFY2(r.ok && !r.partial, qPrintable(r.message));
    QCOMPARE(rawText(doc), expected);
}

void TestRtfReader::skippedDestinations_data()
{
    QTest::addColumn<QByteArray>("group");
    QTest::newRow("info") << QByteArray("{\\info{\\title T}{\\author A}}");
    QTest::newRow("header") << QByteArray("{\\header Page head}");
    QTest::newRow("footer") << QByteArray("{\\footerl foot}");
    QTest::newRow("unknown ignorable") << QByteArray("{\\*\\madeup text {nested}}");
    QTest::newRow("themedata") << QByteArray("{\\*\\themedata 504b0304}");
    QTest::newRow("datastore") << QByteArray("{\\*\\datastore 0105}");
    QTest::newRow("xmlnstbl") << QByteArray("{\\*\\xmlnstbl {\\xmlns1 http://x}}");
    QTest::newRow("generator") << QByteArray("{\\*\\generator Riched20;}");
    QTest::newRow("list table") << QByteArray("{\\*\\listtable{\\list{\\listlevel{\\leveltext\\'01\\'b7;}}{\\listname ;}}}");
    QTest::newRow("stylesheet") << QByteArray("{\\stylesheet{\\s0 Normal;}{\\*\\cs1 Char;}}");
    QTest::newRow("picture properties") << QByteArray("{\\*\\picprop{\\sp{\\sn x}{\\sv 1}}}");
    QTest::newRow("old picture copy") << QByteArray("{\\nonshppict{\\pict\\wmetafile8 0102}}");
    QTest::newRow("bookmark end") << QByteArray("{\\*\\bkmkend b}");
    QTest::newRow("annotation") << QByteArray("{\\*\\atnid JS}{\\*\\annotation note}");
}

void TestRtfReader::skippedDestinations()
{
    QFETCH(QByteArray, group);
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc(group + "Body"), doc).ok);
    QCOMPARE(doc.toPlainText(), u"Body"_s);
}

void TestRtfReader::tables()
{
    QTextDocument doc;
    // The second row has more cells than boundaries: the table grows to fit.
    QVERIFY(readRtf(rtfDoc("Before\\trowd\\cellx2000\\cellx4000\\pard\\intbl A\\par\\cell\\pard\\intbl B\\cell\\row"
                           "\\trowd\\cellx2000\\pard\\intbl C\\cell D\\cell\\cell\\row\\pard After\\par"),
                    doc).ok);
    QTextCursor c(&doc);
    c.setPosition(blockWith(doc, u"A"_s).position());
    QTextTable *t = c.currentTable();
    QVERIFY(t);
    QCOMPARE(t->rows(), 2);
    QCOMPARE(t->columns(), 3);
    const auto cellText = [t](int r, int col) {
        QTextCursor cc = t->cellAt(r, col).firstCursorPosition();
        cc.setPosition(t->cellAt(r, col).lastCursorPosition().position(), QTextCursor::KeepAnchor);
        return cc.selectedText();
    };
    QCOMPARE(cellText(0, 0), u"A"_s); // the \par before \cell leaves no empty line
    QCOMPARE(cellText(0, 1), u"B"_s);
    QCOMPARE(cellText(1, 0), u"C"_s);
    QCOMPARE(cellText(1, 1), u"D"_s);
    QCOMPARE(cellText(1, 2), QString());
    c.setPosition(blockWith(doc, u"After"_s).position());
    QVERIFY(!c.currentTable());
    c.setPosition(blockWith(doc, u"Before"_s).position());
    QVERIFY(!c.currentTable());
}

void TestRtfReader::nestedTables()
{
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc("\\trowd\\cellx5000\\pard\\intbl Outer\\par"
                           "\\pard\\intbl\\itap2 In A\\nestcell In B\\nestcell{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}"
                           "{\\nonesttables fallback\\par}\\pard\\intbl\\itap1 Tail\\cell\\row\\pard Out"),
                    doc).ok);
    QCOMPARE(words(doc.toPlainText()), (QStringList{u"Outer"_s, u"In"_s, u"A"_s, u"In"_s, u"B"_s, u"Tail"_s, u"Out"_s}));
    QTextCursor c(&doc);
    c.setPosition(blockWith(doc, u"In A"_s).position());
    QTextTable *inner = c.currentTable();
    QVERIFY(inner);
    QCOMPARE(inner->columns(), 2);
    c.setPosition(blockWith(doc, u"Tail"_s).position());
    QTextTable *outer = c.currentTable();
    QVERIFY(outer && outer != inner);
    QCOMPARE(outer->columns(), 1);
    QVERIFY(inner->firstPosition() > outer->firstPosition() && inner->lastPosition() < outer->lastPosition());
}

void TestRtfReader::links_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<QString>("href");

    QTest::newRow("web link") << QByteArray("{\\field{\\*\\fldinst{HYPERLINK \"https://example.org/a\"}}{\\fldrslt{\\ul word}}}")
                              << u"word"_s << u"https://example.org/a"_s;
    QTest::newRow("with tooltip") << QByteArray("{\\field{\\*\\fldinst HYPERLINK \"u.htm\" \\\\o \"tip\"}{\\fldrslt word}}")
                                  << u"word"_s << u"u.htm"_s;
    QTest::newRow("bookmark link") << QByteArray("{\\field{\\*\\fldinst HYPERLINK \\\\l \"part2\"}{\\fldrslt word}}")
                                   << u"word"_s << u"#part2"_s;
    QTest::newRow("other field shows its result") << QByteArray("p. {\\field{\\*\\fldinst PAGE}{\\fldrslt 3}} word")
                                                  << u"p. 3 word"_s << QString();
    QTest::newRow("field without result") << QByteArray("{\\field{\\*\\fldinst DATE}}word") << u"word"_s << QString();
}

void TestRtfReader::links()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, expectedText);
    QFETCH(QString, href);
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc(body), doc).ok);
    QCOMPARE(doc.toPlainText(), expectedText);
    const QTextCharFormat f = formatOf(doc, u"word"_s);
    QCOMPARE(f.isAnchor(), !href.isEmpty());
    QCOMPARE(f.anchorHref(), href);
    if (!href.isEmpty())
        QCOMPARE(f.underlineStyle(), QTextCharFormat::SingleUnderline);

    QVERIFY(readRtf(rtfDoc("{\\*\\bkmkstart part2}Part two"), doc).ok);
    QCOMPARE(formatOf(doc, u"Part"_s).anchorNames(), QStringList{u"part2"_s});
}

void TestRtfReader::pictures_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("images");
    QTest::addColumn<QString>("expectedText");

    const QByteArray png = pngBytes(QSize(4, 3)).toHex();
    const QByteArray jpeg = jpegBytes();
    QTest::newRow("png as hex") << "A{\\pict\\pngblip\\picw4\\pich3\\picwgoal600\\pichgoal450\n" + png + "}B"
                                << 1 << u"A[image]B"_s;
    QTest::newRow("jpeg as binary") << "{\\pict\\jpegblip\\bin" + QByteArray::number(jpeg.size()) + ' ' + jpeg + '}'
                                    << 1 << u"[image]"_s;
    QTest::newRow("word's two copies") << "{\\*\\shppict{\\pict\\pngblip " + png + "}}{\\nonshppict{\\pict\\wmetafile8 0100}}"
                                       << 1 << u"[image]"_s;
    QTest::newRow("metafile") << QByteArray("A{\\pict\\wmetafile8\\picw100\\pich100 0100090000037a00000002}B")
                              << 0 << u"A[picture]B"_s;
    QTest::newRow("damaged png") << QByteArray("{\\pict\\pngblip 89504e470d0a1a0a0000zz}") << 0 << u"[picture]"_s;
    QTest::newRow("hidden") << "{\\v{\\pict\\pngblip " + png + "}}shown" << 0 << u"shown"_s;
}

void TestRtfReader::pictures()
{
    QFETCH(QByteArray, body);
    QFETCH(int, images);
    QFETCH(QString, expectedText);
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc(body), doc).ok);
    QCOMPARE(visibleText(doc), expectedText);
    QCOMPARE(imageCount(doc), images);
    if (QByteArray(QTest::currentDataTag()) != "png as hex")
        return;
    auto it = doc.begin().begin();
    ++it; // "A", then the picture
    const QTextImageFormat img = it.fragment().charFormat().toImageFormat();
    QVERIFY(img.isValid());
    QCOMPARE(QSizeF(img.width(), img.height()), QSizeF(40, 30)); // \picwgoal is in twips
    QCOMPARE(doc.resource(QTextDocument::ImageResource, QUrl(img.name())).value<QImage>().size(), QSize(4, 3));
}

void TestRtfReader::footnotes()
{
    QTextDocument doc;
    QVERIFY(readRtf(rtfDoc("Text\\chftn{\\footnote\\pard\\plain{\\up6\\chftn} First note.} more"
                           "\\chftn{\\footnote{\\up6\\chftn} Second.}\\par End."),
                    doc).ok);
    QCOMPARE(words(doc.toPlainText()),
             (QStringList{u"Text"_s, u"1"_s, u"more"_s, u"2"_s, u"End"_s, u"1"_s, u"First"_s, u"note"_s, u"2"_s, u"Second"_s}));
    QCOMPARE(formatOf(doc, u"[1]"_s).verticalAlignment(), QTextCharFormat::AlignSuperScript);
    QVERIFY(blockWith(doc, u"First note."_s).text().startsWith(u"[1]"_s));
    QVERIFY(blockWith(doc, u"Second."_s).text().startsWith(u"[2]"_s));
}

void TestRtfReader::malformed_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("expectedText"); // must appear in the document

    QTest::newRow("empty") << QByteArray() << false << QString();
    QTest::newRow("blank") << QByteArray(" \r\n ") << false << QString();
    QTest::newRow("not rtf") << QByteArray("Dear student, read this.") << false << QString();
    QTest::newRow("html") << QByteArray("<html><body>rtf</body></html>") << false << QString();
    QTest::newRow("header only") << QByteArray("{\\rtf") << false << QString();
    QTest::newRow("cut in font table") << QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0 Ari") << false << QString();
    QTest::newRow("missing last brace") << QByteArray("{\\rtf1 Hello {\\b world") << true << u"Hello world"_s;
    QTest::newRow("extra closing braces") << QByteArray("{\\rtf1 Hello}}}} ignored") << true << u"Hello"_s;
    QTest::newRow("cut in control word") << QByteArray("{\\rtf1 Hello\\pa") << true << u"Hello"_s;
    QTest::newRow("cut in hex") << QByteArray("{\\rtf1 caf\\'e") << true << u"caf"_s;
    QTest::newRow("lone backslash at end") << QByteArray("{\\rtf1 text\\") << true << u"text"_s;
    QTest::newRow("invalid hex") << QByteArray("{\\rtf1 a\\'zzb}") << true << u"azzb"_s;
    QTest::newRow("parameter overflow") << QByteArray("{\\rtf1\\fs99999999999999999999\\li-99999999999999 big}") << true << u"big"_s;
    QTest::newRow("huge bin") << QByteArray("{\\rtf1 a\\bin999999999 xyz}") << true << u"a"_s;
    QTest::newRow("negative bin") << QByteArray("{\\rtf1 a\\bin-5 b}") << true << u"ab"_s;
    QTest::newRow("huge uc") << QByteArray("{\\rtf1\\uc999999999\\u1055 skipped}after") << true << u"\u041F"_s;
    QTest::newRow("absurd u") << QByteArray("{\\rtf1\\u-99999999999 x\\u99999999 yz}") << true << u"z"_s;
    QTest::newRow("nul bytes") << QByteArray("{\\rtf1 a\0b}", 11) << true << u"ab"_s;
    QTest::newRow("deep groups") << "{\\rtf1 " + QByteArray(100000, '{') + "deep" + QByteArray(100000, '}') + '}'
                                 << true << u"deep"_s;
    QTest::newRow("deep groups unclosed") << "{\\rtf1 top" + QByteArray(200000, '{') + "x" << true << u"topx"_s;
    QTest::newRow("deep tables") << "{\\rtf1\\intbl\\itap1000 cell\\nestcell" + QByteArray(5000, ' ') + "\\nestrow}"
                                 << true << u"cell"_s;
    QTest::newRow("wide row") << "{\\rtf1\\trowd\\pard\\intbl " + QByteArray("x\\cell ").repeated(20000) + "\\row}"
                              << true << u"x"_s;
    QTest::newRow("many rows") << "{\\rtf1 " + QByteArray("\\intbl r\\cell\\row ").repeated(5000) + '}' << true << u"r"_s;
    QTest::newRow("many fields") << "{\\rtf1 " + QByteArray("{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt l}}").repeated(20000) + '}'
                                 << true << u"l"_s;
    QTest::newRow("bad picture") << QByteArray("{\\rtf1{\\pict\\pngblip\\picw99999999\\picwgoal-5 ffd8ffzz}}") << true
                                 << u"[picture]"_s;
    QTest::newRow("binary junk") << "{\\rtf1 ok " + QByteArray(4096, '\xff') + '}' << true << u"ok"_s;
}

void TestRtfReader::malformed()
{
    QFETCH(QByteArray, rtf);
    QFETCH(bool, ok);
    QFETCH(QString, expectedText);
    QTextDocument doc;
    QElapsedTimer timer;
    timer.start();
    const ReadResult r = readRtf(rtf, doc);
    QVERIFY2(timer.elapsed() < 10000, "reading took too long");
    QCOMPARE(r.ok, ok);
    if (!r.ok) {
        QVERIFY(!r.message.isEmpty());
        QVERIFY(doc.isEmpty()); // the screen shows its error state, not half a document
        return;
    }
    QVERIFY2(doc.toPlainText().remove(u'\n').contains(expectedText), qPrintable(doc.toPlainText().left(200)));
    if (r.partial)
        QVERIFY(!r.message.isEmpty());
}

void TestRtfReader::samples_data()
{
    QTest::addColumn<QString>("path");
    const QDir dir(samplesDir());
    if (!dir.exists())
        QTest::newRow("no samples") << QString();
    const QStringList files = dir.entryList({u"*.rtf"_s}, QDir::Files, QDir::Name);
    for (const QString &name : files)
        QTest::newRow(qPrintable(name)) << dir.filePath(name);
}

void TestRtfReader::samples()
{
    QFETCH(QString, path);
    if (!QFileInfo::exists(samplesDir()))
        QSKIP("The shared RTF samples are not here.");
    QFile expectedFile(QString(path).replace(u".rtf"_s, u".expected.txt"_s));
    if (!expectedFile.open(QIODevice::ReadOnly))
        QSKIP("No expected text for this sample.");
    const QString expected = QString::fromUtf8(expectedFile.readAll());
    QTextDocument doc;
    const ReadResult r = readRtfFile(path, doc);
    QVERIFY2(r.ok && !r.partial, qPrintable(r.message));
    QCOMPARE(words(visibleText(doc)), words(expected));
    QString text;
    QVERIFY(readRtfTextFile(path, &text).ok);
    QCOMPARE(text, doc.toPlainText());
}

void TestRtfReader::corpus_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("readable");
    for (const bool readable : {true, false}) {
        const QDir dir(QStringLiteral(STUDYDESK_SOURCE_DIR "/tests/rtf/corpus/") + (readable ? u"pass"_s : u"fail"_s));
        for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
            QTest::newRow(qPrintable(dir.dirName() + u'/' + name)) << dir.filePath(name) << readable;
    }
}

void TestRtfReader::corpus()
{
    QFETCH(QString, path);
    QFETCH(bool, readable);
    QTextDocument doc;
    QElapsedTimer timer;
    timer.start();
    const ReadResult r = readRtfFile(path, doc);
    QVERIFY2(timer.elapsed() < 10000, "reading took too long");
    QCOMPARE(r.ok, readable);
    QCOMPARE(doc.toPlainText().trimmed().isEmpty(), !readable);
    // The text-only reader says the same, character for character.
    QString text;
    QCOMPARE(readRtfTextFile(path, &text).ok, readable);
    QCOMPARE(text, doc.toPlainText());
}

// rtf2txt reads text only; it must give exactly what the program's documents hold.
void TestRtfReader::textOnlyAsTheDocument_data()
{
    QTest::addColumn<QByteArray>("rtf");
    const auto row = [](const char *name, const QByteArray &body) { QTest::newRow(name) << rtfDoc(body); };
    row("paragraphs and breaks", "One\\par Two\\line three\\~four\\page\\par\\par Five\\u8233?six\\'0d\\'0aseven");
    row("table after text in one paragraph",
        "Before\\trowd\\cellx2000\\cellx4000\\pard\\intbl A\\par\\cell\\pard\\intbl B\\cell\\row"
        "\\trowd\\cellx2000\\pard\\intbl C\\cell D\\cell\\cell\\row\\pard After\\par");
    row("nested tables", "\\trowd\\cellx5000\\pard\\intbl Outer\\par"
        "\\pard\\intbl\\itap2 In A\\nestcell In B\\nestcell{\\*\\nesttableprops\\trowd\\cellx2000\\cellx4000\\nestrow}"
        "\\pard\\intbl\\itap1 Tail\\cell\\row\\pard Out");
    row("table starting nested, deeper than allowed",
        "\\pard\\intbl\\itap3 deep\\nestcell{\\*\\nesttableprops\\nestrow}\\itap12 deeper\\nestcell\\itap1 x\\cell\\row tail");
    row("table at the end", "Text\\par\\trowd\\cellx1000\\intbl last\\cell\\row");
    row("empty rows and cells", "\\trowd\\cellx1000\\row\\trowd\\cellx1000\\cellx2000\\intbl\\cell\\cell\\row\\pard after");
    QByteArray wide = "\\trowd";
    for (int i = 1; i <= 70; ++i)
        wide += "\\intbl c" + QByteArray::number(i) + "\\cell";
    row("more cells than columns", wide + "\\row end");
    QByteArray tall;
    for (int r = 0; r < 300; ++r)
        tall += "\\trowd\\cellx1000\\cellx2000\\intbl r" + QByteArray::number(r) + "\\cell x\\cell\\row";
    row("many rows", tall + "\\pard end");
    row("footnotes", "Text\\chftn{\\footnote\\pard\\plain{\\up6\\chftn} First note.} more"
                     "\\chftn{\\footnote{\\up6\\chftn} Second\\par two.}\\par End.");
    row("footnote with a table", "A{\\footnote \\trowd\\cellx1000\\intbl n\\cell\\row}");
    row("pictures", "x{\\pict\\pngblip " + pngBytes(QSize(4, 3)).toHex() + "}y{\\pict\\wmetafile8 0102}"
                    "\\trowd\\cellx1000\\intbl{\\pict\\jpegblip " + jpegBytes().toHex() + "}\\cell\\row");
    row("list text and bullets", "{\\listtext 1.\\tab}Item\\par{\\pntext o}{\\*\\pn\\pnlvlblt{\\pntxtb o}}Bullet\\par");
    row("cut short", "Open {\\b bold \\trowd\\cellx1000\\intbl cell");
}

void TestRtfReader::textOnlyAsTheDocument()
{
    QFETCH(QByteArray, rtf);
    QTextDocument doc;
    const ReadResult full = readRtf(rtf, doc);
    QString text;
    const ReadResult plain = readRtfText(rtf, &text);
    QCOMPARE(plain.ok, full.ok);
    QCOMPARE(plain.partial, full.partial);
    QCOMPARE(text, doc.toPlainText());
}

QTEST_MAIN(TestRtfReader)
#include "tst_rtfreader.moc"
