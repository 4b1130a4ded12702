#include "imagebutton.h"

#include "pictures.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace sd::ui {

QColor focusRingColour()
{
    return QColor(255, 200, 40);
}

void drawFocusRing(QWidget *w)
{
    // Amber, two pixels wide at the design size: it reads against the dark background and is
    // unlike the pale-blue highlight of the pointer.
    QPainter p(w);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal width = std::max<qreal>(2.0, w->height() / 24.0);
    QPen pen(focusRingColour(), width);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    const qreal inset = width / 2.0;
    p.drawRoundedRect(QRectF(w->rect()).adjusted(inset, inset, -inset, -inset), 4, 4);
}

namespace {
void setTextColour(QLabel *label, const QColor &c)
{
    QPalette pal = label->palette();
    pal.setColor(QPalette::WindowText, c);
    label->setPalette(pal);
}
} // namespace

ImageButton::ImageButton(const QString &icon, QWidget *parent) : QLabel(parent), m_icon(icon)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    refresh();
}

void ImageButton::setCaptionColours(const QColor &normal, const QColor &lit)
{
    m_normalCaption = normal;
    m_litCaption = lit;
    setLook(m_look);
}

void ImageButton::setCaption(QLabel *caption)
{
    if (m_caption)
        m_caption->removeEventFilter(this);
    m_caption = caption;
    if (m_caption) {
        m_caption->installEventFilter(this);
        m_caption->setCursor(Qt::PointingHandCursor);
        m_caption->setAttribute(Qt::WA_Hover);
    }
    resetLook();
}

bool ImageButton::eventFilter(QObject *watched, QEvent *e)
{
    if (watched == m_caption && isEnabled() && isVisible()) {
        switch (e->type()) {
        case QEvent::Enter: showLit(); break;
        case QEvent::Leave: resetLook(); break;
        case QEvent::MouseMove:
            // The pointer is still over the caption: the button stays lit.
            if (m_look == Look::Normal)
                showLit();
            return true;
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent *>(e)->button() == Qt::LeftButton)
                setLook(Look::Pressed);
            return true;
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent *>(e)->button() == Qt::LeftButton
                && m_caption->rect().contains(static_cast<QMouseEvent *>(e)->position().toPoint())) {
                setLook(Look::Lit);
                Q_EMIT clicked();
            }
            return true;
        default: break;
        }
    }
    return QLabel::eventFilter(watched, e);
}

void ImageButton::resetLook()
{
    setLook(Look::Normal);
}

void ImageButton::showLit()
{
    if (m_lightable)
        setLook(Look::Lit);
}

void ImageButton::click()
{
    if (!isEnabled() || !isVisible())
        return;
    setLook(Look::Pressed);
    setLook(Look::Lit);
    Q_EMIT clicked();
}

void ImageButton::setLook(Look look)
{
    m_look = look;
    if (m_caption)
        setTextColour(m_caption, look == Look::Normal ? m_normalCaption : m_litCaption);
    refresh();
}

void ImageButton::refresh()
{
    const QSize sz = size().isEmpty() ? QSize(48, 48) : size();
    const ButtonState st = m_look == Look::Normal ? ButtonState::Normal
                           : m_look == Look::Lit  ? ButtonState::Lit
                                                  : ButtonState::Pressed;
    // The picture a student sees, by name, for the automation's dump.
    const QString look = st == ButtonState::Normal ? QString() : st == ButtonState::Lit ? QStringLiteral("-lit") : QStringLiteral("-pressed");
    setProperty("picture", QString(m_icon + look));
    if (!m_shown)
        return; // not drawn before its size is known
    QPixmap pm = buttonPicture(m_icon, st, sz * devicePixelRatioF());
    pm.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(pm);
}

void ImageButton::enterEvent(QEnterEvent *e)
{
    showLit();
    QLabel::enterEvent(e);
}

void ImageButton::leaveEvent(QEvent *e)
{
    resetLook();
    QLabel::leaveEvent(e);
}

void ImageButton::mouseMoveEvent(QMouseEvent *e)
{
    // Moving over the button keeps it lit; the screen below never hears of it.
    if (m_look == Look::Normal && isEnabled())
        showLit();
    e->accept();
}

void ImageButton::mousePressEvent(QMouseEvent *e)
{
    if (e->button() == Qt::LeftButton)
        setLook(Look::Pressed);
}

void ImageButton::mouseReleaseEvent(QMouseEvent *e)
{
    if (e->button() != Qt::LeftButton)
        return;
    const bool inside = rect().contains(e->position().toPoint());
    setLook(inside ? Look::Lit : Look::Normal);
    if (inside)
        Q_EMIT clicked();
}

void ImageButton::focusInEvent(QFocusEvent *e)
{
    QLabel::focusInEvent(e);
    update();
}

void ImageButton::focusOutEvent(QFocusEvent *e)
{
    QLabel::focusOutEvent(e);
    update();
}

void ImageButton::paintEvent(QPaintEvent *e)
{
    QLabel::paintEvent(e);
    if (hasFocus())
        drawFocusRing(this);
}

void ImageButton::keyPressEvent(QKeyEvent *e)
{
    if (e->key() == Qt::Key_Space || e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)
        click();
    else
        QLabel::keyPressEvent(e);
}

void ImageButton::resizeEvent(QResizeEvent *e)
{
    QLabel::resizeEvent(e);
    refresh();
}

void ImageButton::showEvent(QShowEvent *e)
{
    QLabel::showEvent(e);
    if (!std::exchange(m_shown, true))
        refresh();
}

void ImageButton::changeEvent(QEvent *e)
{
    QLabel::changeEvent(e);
    // A caption hides and shows with its button.
    if (e->type() == QEvent::EnabledChange && m_caption)
        m_caption->setEnabled(isEnabled());
}

MenuLabel::MenuLabel(const QString &text, QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setNormalLook();
}

void MenuLabel::setNormalLook()
{
    setLook(Qt::white, m_chosen);
}

void MenuLabel::setLitLook()
{
    setLook(ImageButton::highlightColour(), true);
}

void MenuLabel::setChosen(bool chosen)
{
    m_chosen = chosen;
    setNormalLook();
}

void MenuLabel::setLook(const QColor &colour, bool bold)
{
    QPalette pal = palette();
    pal.setColor(QPalette::WindowText, colour);
    setPalette(pal);
    QFont f = font();
    f.setBold(bold);
    setFont(f);
}

void MenuLabel::enterEvent(QEnterEvent *e)
{
    Q_EMIT hovered();
    QLabel::enterEvent(e);
}

void MenuLabel::mouseMoveEvent(QMouseEvent *e)
{
    Q_EMIT hovered();
    QLabel::mouseMoveEvent(e);
}

void MenuLabel::mouseReleaseEvent(QMouseEvent *e)
{
    if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint()))
        Q_EMIT clicked();
}

void MenuLabel::keyPressEvent(QKeyEvent *e)
{
    switch (e->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT clicked(); break;
    // The arrows move between the entries of a menu as Tab does.
    case Qt::Key_Down:
    case Qt::Key_Right: focusNextChild(); break;
    case Qt::Key_Up:
    case Qt::Key_Left: focusPreviousChild(); break;
    default: QLabel::keyPressEvent(e);
    }
}

void MenuLabel::focusInEvent(QFocusEvent *e)
{
    // The focus has its own mark, the ring; the pointer's highlight stays where the pointer is.
    QLabel::focusInEvent(e);
    update();
}

void MenuLabel::focusOutEvent(QFocusEvent *e)
{
    QLabel::focusOutEvent(e);
    update();
}

void MenuLabel::paintEvent(QPaintEvent *e)
{
    QLabel::paintEvent(e);
    if (hasFocus())
        drawFocusRing(this);
}

} // namespace sd::ui
