#pragma once

#include <QColor>
#include <QLabel>
#include <QPointer>

namespace sd::ui {

/// The colour of a wrong answer shown beside its key: a dark red that keeps 4.5:1 against the light
/// plates it is drawn on (pure red does not).
inline QColor wrongAnswerColour()
{
    return QColor(176, 0, 0);
}

/// The keyboard focus mark of our own controls: a ring, not the pointer's highlight.
QColor focusRingColour();
void drawFocusRing(QWidget *w);

/// A button drawn as a picture, with normal, lit and pressed states and an optional caption label
/// that takes the highlight colour while the pointer is over the button. Acts on release.
class ImageButton : public QLabel
{
    Q_OBJECT

public:
    static QColor highlightColour() { return QColor(169, 191, 222); }
    static QColor captionColour() { return QColor(255, 255, 255); }

    ImageButton(const QString &icon, QWidget *parent = nullptr);

    /// The caption acts as part of the button: pointing at it or clicking it works the same.
    void setCaption(QLabel *caption);
    /// Caption colours at rest and while the pointer is over the button.
    void setCaptionColours(const QColor &normal, const QColor &lit);
    QLabel *caption() const { return m_caption; }
    void setIcon(const QString &icon) { m_icon = icon; refresh(); }
    /// Whether hovering shows the lit look (an arrow that cannot move stays unlit).
    void setLightable(bool on) { m_lightable = on; }
    void resetLook();
    void showLit();
    /// Presses and releases as a click would (used by keyboard activation and automation).
    void click();

Q_SIGNALS:
    void clicked();

protected:
    void enterEvent(QEnterEvent *e) override;
    void leaveEvent(QEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
    void mousePressEvent(QMouseEvent *e) override;
    void mouseReleaseEvent(QMouseEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;
    void paintEvent(QPaintEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;
    void showEvent(QShowEvent *e) override;
    void changeEvent(QEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;

private:
    enum class Look { Normal, Lit, Pressed };
    void setLook(Look look);
    void refresh();

    QString m_icon;
    QPointer<QLabel> m_caption;
    QColor m_normalCaption = captionColour();
    QColor m_litCaption = highlightColour();
    Look m_look = Look::Normal;
    bool m_lightable = true;
    bool m_shown = false; ///< drawn from the first show on, at the size it is shown at
};

/// A selectable menu label: white text, lit in the highlight colour and bold under the pointer.
class MenuLabel : public QLabel
{
    Q_OBJECT

public:
    MenuLabel(const QString &text, QWidget *parent = nullptr);
    void setNormalLook();
    void setLitLook();
    /// A chosen label stays white and bold while others light up.
    void setChosen(bool chosen);
    bool isChosen() const { return m_chosen; }
    void click() { Q_EMIT clicked(); }

Q_SIGNALS:
    void hovered();
    void clicked();

protected:
    void enterEvent(QEnterEvent *e) override;
    void mouseMoveEvent(QMouseEvent *e) override;
    void mouseReleaseEvent(QMouseEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    void focusInEvent(QFocusEvent *e) override;
    void focusOutEvent(QFocusEvent *e) override;
    void paintEvent(QPaintEvent *e) override;

private:
    void setLook(const QColor &colour, bool bold);
    bool m_chosen = false;
};

} // namespace sd::ui
