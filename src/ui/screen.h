#pragma once

#include <QHash>
#include <QLabel>
#include <QPointer>
#include <QWidget>

namespace sd::ui {

/// Texts of the program break lines with a carriage return; a label draws a line feed.
QString lineBreaks(QString text);

class ImageButton;
class MenuLabel;

/// Base of every screen. Controls are placed in design units on a 1024 x 768 canvas and scale with
/// the window (fonts too), so a screen reads the same from 1024 x 768 to 4K. The objectName is the
/// screen's code.
class Screen : public QWidget
{
    Q_OBJECT

public:
    static constexpr int DesignWidth = 1024;
    static constexpr int DesignHeight = 768;

    explicit Screen(const QString &code, QWidget *parent = nullptr);

    QString code() const { return objectName(); }
    /// Design size of this screen (small windows such as check screens use less than the canvas).
    void setDesignSize(QSize size);
    QSize designSize() const { return m_designSize; }

    /// Places a control at design coordinates with a design font size in points (0: keep).
    void place(QWidget *w, QRect designRect, qreal fontPt = 0);
    QLabel *addLabel(const QString &name, const QString &text, QRect rect, qreal fontPt = 12, bool bold = false,
                     Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);
    /// An image button with its caption label beside it (`name` and `captionName`).
    ImageButton *addButton(const QString &name, const QString &icon, QRect rect, const QString &captionName = {},
                           const QString &caption = {}, QRect captionRect = {});
    MenuLabel *addMenuLabel(const QString &name, const QString &text, QRect rect, qreal fontPt = 14,
                            Qt::Alignment align = Qt::AlignLeft | Qt::AlignVCenter);
    /// A heading plate: picture, shadow and label (`lblHeadN`, `imgHeadN`, `imgHeadshadowN`).
    QLabel *addHeadingPlate(int n, const QString &text, QRect rect);
    /// A picture that scales with the screen.
    QLabel *addPicture(const QString &name, const QString &picture, QRect rect);
    void setPicture(QLabel *label, const QString &picture);

    /// Puts the normal picture and caption colour back on every image button of the screen.
    void ResetButtons();
    /// Caption colours of this screen's picture buttons, for those already placed and those to come.
    void setCaptionColours(const QColor &normal, const QColor &lit);
    /// Menu highlighting: resets every menu label, then lights `label` (one at a time).
    void highlightMenuLabel(MenuLabel *label);
    void clearMenuHighlight();
    /// Which menu label is lit (0 none); screens over the program state keep it there.
    virtual int hoverIndex() const { return m_hoverIndex; }
    virtual void setHoverIndex(int n) { m_hoverIndex = n; }
    qreal scale() const { return m_scale; }
    /// The student's reading text size on top of the window's scale (1.0: as designed). Rich-text
    /// and web-page boxes follow both.
    void setTextFactor(qreal factor);
    qreal textFactor() const { return m_textFactor; }

    /// Modal screens are shown as small windows over the main window.
    bool isModalScreen() const { return m_modal; }
    /// Gives every control without an accessible name one from what it shows: a label's text, a
    /// button's caption, a box's purpose from its name ("Answer box for question 4").
    void nameControlsForScreenReaders();
    void setModalScreen(bool modal) { m_modal = modal; }

Q_SIGNALS:
    void closed();

protected:
    void showEvent(QShowEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
    void paintEvent(QPaintEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    /// Called when the pointer moves over the background (not over a control).
    virtual void backgroundHovered();
    /// A picture covering the whole screen, drawn over nothing (no fill of the window first).
    void setBackgroundPicture(const QString &picture);

private:
    struct Placement
    {
        QRect rect;
        qreal fontPt;
        QString picture;
    };
    void applyPlacement(QWidget *w, const Placement &p);

    QSize m_designSize{DesignWidth, DesignHeight};
    QHash<QWidget *, Placement> m_placements;
    QList<QPointer<ImageButton>> m_buttons;
    QColor m_normalCaption, m_litCaption;
    QList<QPointer<MenuLabel>> m_menuLabels;
    qreal m_scale = 1.0;
    qreal m_textFactor = 1.0;
    QPoint m_offset;
    bool m_modal = false;
    int m_hoverIndex = 0;
    QString m_background;
    QPixmap m_backgroundCache;
    bool m_shown = false; ///< pictures are drawn from the first show on, at the size shown
};

} // namespace sd::ui
