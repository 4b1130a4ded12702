#pragma once

#include "writingscreen.h"

namespace sd {

class RichTextBox;
class WebPageBox;

/// One title of the chosen type at a time, paged with arrows over the ten slots; prints the list
/// of ten titles and opens the composition editor.
class seecomptitle : public WritingScreen
{
    Q_OBJECT

public:
    seecomptitle(ProgramState &state, Navigator &nav);
    void ShowTitle();

private:
    void page(int step);
    void printList();
    void updateArrows();

    QLabel *lblTitle = nullptr, *Label2 = nullptr, *Label4 = nullptr, *lblTopicno = nullptr;
    ui::ImageButton *Following = nullptr, *Previousq = nullptr;
};

/// "SELECT A COMPOSITION": the ten Transactional-letter topics.
class letatitles : public WritingScreen
{
    Q_OBJECT

public:
    letatitles(ProgramState &state, Navigator &nav);

private:
    void chooseTopic(int n);
};

/// The task sheet of one Transactional-letter topic beside its task text.
class showleta : public WritingScreen
{
    Q_OBJECT

public:
    showleta(ProgramState &state, Navigator &nav);

private:
    void printSheet();

    WebPageBox *WebBrowser1 = nullptr;
};

/// The full-page picture of topic 9's material ("leta09.png"), printed as a screen print.
class letapicture : public AppScreen
{
    Q_OBJECT

public:
    letapicture(ProgramState &state, Navigator &nav);
    bool hasPicture() const { return !m_picture.isNull(); }
    static QString pictureFile() { return QStringLiteral("leta09.png"); }

protected:
    void paintEvent(QPaintEvent *e) override;

private:
    QImage m_picture;
};

/// A test's Part 2 questions in a rich-text box, with print and "Write the composition now".
class seecomptitlex : public WritingScreen
{
    Q_OBJECT

public:
    seecomptitlex(ProgramState &state, Navigator &nav);

private:
    RichTextBox *RichTextBox1 = nullptr;
};

} // namespace sd
