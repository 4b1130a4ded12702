// Fills a QTextDocument from the reader's stream of text, breaks, cells and pictures; or, without
// any formatting, keeps only the text the document would hold (the plain-text reader).
#pragma once

#include "ui/rtf/rtfstate.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <vector>

class QImage;
class QTextDocument;
class QTextTable;

namespace sd::rtf {

class DocumentBuilder
{
public:
    // Deeper tables are flattened into the deepest allowed one.
    static constexpr int kMaxTableDepth = 8;
    // Cells past this are merged into the last column.
    static constexpr int kMaxColumns = 64;

    // Pictures are registered as resources of resourceDoc, so notes built in a side document
    // can be copied into the main one with their pictures.
    DocumentBuilder(QTextDocument &doc, const DocTables &tables, QTextDocument *resourceDoc = nullptr);
    // Text only: the same characters in the same order as the document would hold them, with its
    // block and frame separators, and no formats, layout or pictures kept.
    explicit DocumentBuilder(const DocTables &tables);

    void text(QStringView s, const CharProps &c, const ParaProps &p);
    void paragraphEnd(const CharProps &c, const ParaProps &p);
    void pageBreak(const CharProps &c, const ParaProps &p);
    // Ends the current paragraph unless nothing has been written to it yet.
    void newParagraph(const CharProps &c, const ParaProps &p);
    void image(const QImage &image, QSizeF size, const CharProps &c, const ParaProps &p);
    void addAnchorName(const QString &name);

    void resetRowDefinition() { m_rowDefinition.clear(); }
    void addCellBoundary(int twips);
    void cellEnd(const ParaProps &p);
    void rowEnd(const ParaProps &p);

    // Adds notes (footnotes, endnotes) after a rule at the end of the document.
    void appendNotes(const QTextDocument &notes);
    // The same for a text-only builder of notes.
    void appendNotes(const DocumentBuilder &notes);
    void finish();

    bool textOnly() const { return m_textOnly; }
    // A text-only builder's content as QTextDocument::toPlainText() gives it.
    QString plainText() const;

    // Characters and pictures written so far.
    qsizetype contentCount() const { return m_contentCount; }

private:
    struct Level {
        QTextTable *table = nullptr;
        int row = 0;
        int col = 0;
        int usedRows = 0;
        bool entered = false;
        std::vector<std::vector<QString>> cells; // text only: rows of cells, each as the document holds it
    };

    // The cursor's block is empty.
    bool blockEmpty() const;
    // Text-only counterparts of the cursor's insertions.
    void insertRawText(QStringView s);
    QString &target();

    void flushText();
    void prepareContent(const CharProps &c, const ParaProps &p);
    void syncDepth(int depth);
    void openTable();
    void closeTable();
    void enterCell(Level &level);
    QTextBlockFormat blockFormat(const ParaProps &p) const;
    const QTextCharFormat &charFormat(const CharProps &c);

    QTextDocument *m_doc;       // none when text only
    QTextDocument *m_resources;
    const DocTables &m_tables;
    QTextCursor m_cursor;

    QString m_buffer;
    CharProps m_bufferProps;
    int m_bufferDepth = 0;
    QStringList m_anchorNames;

    CharProps m_formatProps;
    QTextCharFormat m_format;
    bool m_formatValid = false;

    bool m_fresh = true;      // the cursor's block is empty and has not been formatted yet
    bool m_pending = false;   // a \par was read: the next content starts a new block
    bool m_pageBreakNext = false;
    bool m_blockPageBreak = false;

    std::vector<Level> m_levels;
    int m_depthAsked = 0;    // the last depth the file gave...
    int m_depthGiven = 0;    // ...and the one we used for it
    QList<int> m_rowDefinition;
    qsizetype m_contentCount = 0;
    int m_imageCount = 0;

    bool m_textOnly = false;
    QString m_raw; // text only: the top level, with the document's separators
};

} // namespace sd::rtf
