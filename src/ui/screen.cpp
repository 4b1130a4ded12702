#include "screen.h"

#include "imagebutton.h"
#include "pictures.h"
#include "richtextbox.h"
#include "webpagebox.h"

#include <QCloseEvent>
#include <QRegularExpression>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

namespace sd::ui {

QString lineBreaks(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text;
}

Screen::Screen(const QString &code, QWidget *parent) : QWidget(parent)
{
    setObjectName(code);
    setWindowTitle(QStringLiteral("StudyDesk"));
    setMouseTracking(true);
    setAutoFillBackground(true);
    QPalette pal = palette();
    // Dark enough that the pale-blue captions keep 4.5:1 against it.
    pal.setColor(QPalette::Window, QColor(22, 66, 144));
    pal.setColor(QPalette::WindowText, Qt::white);
    setPalette(pal);
    resize(m_designSize);
}

void Screen::setBackgroundPicture(const QString &picture)
{
    m_background = picture;
    // The picture covers every pixel: filling the window first would only be drawn over.
    setAutoFillBackground(picture.isEmpty());
    setAttribute(Qt::WA_OpaquePaintEvent, !picture.isEmpty());
    update();
}

void Screen::setTextFactor(qreal factor)
{
    if (qFuzzyCompare(factor, m_textFactor))
        return;
    m_textFactor = factor;
    for (auto it = m_placements.cbegin(); it != m_placements.cend(); ++it)
        if (qobject_cast<RichTextBox *>(it.key()) || qobject_cast<WebPageBox *>(it.key()))
            applyPlacement(it.key(), it.value());
}

void Screen::setDesignSize(QSize size)
{
    m_designSize = size;
    resize(size);
}

void Screen::place(QWidget *w, QRect designRect, qreal fontPt)
{
    if (w->parentWidget() != this)
        w->setParent(this);
    Placement p{designRect, fontPt, m_placements.value(w).picture};
    m_placements.insert(w, p);
    w->setMouseTracking(true);
    applyPlacement(w, p);
}

void Screen::applyPlacement(QWidget *w, const Placement &p)
{
    const QRect r(m_offset + QPoint(qRound(p.rect.x() * m_scale), qRound(p.rect.y() * m_scale)),
                  QSize(qRound(p.rect.width() * m_scale), qRound(p.rect.height() * m_scale)));
    w->setGeometry(r);
    // Reading text (rich-text and web-page boxes) also follows the student's text size.
    auto *rich = qobject_cast<RichTextBox *>(w);
    auto *web = qobject_cast<WebPageBox *>(w);
    const qreal textScale = rich || web ? m_scale * m_textFactor : m_scale;
    if (p.fontPt > 0) {
        QFont f = w->font();
        f.setPointSizeF(std::max(6.0, p.fontPt * textScale));
        w->setFont(f);
    }
    if (rich)
        rich->setTextScale(textScale);
    if (web)
        web->setTextScale(textScale);
    if (!p.picture.isEmpty()) {
        w->setProperty("picture", QFileInfo(p.picture).completeBaseName());
        auto *label = qobject_cast<QLabel *>(w);
        if (label && m_shown) { // before the first show the size is not known yet
            QPixmap pm = picture(p.picture, r.size() * devicePixelRatioF());
            pm.setDevicePixelRatio(devicePixelRatioF());
            label->setPixmap(pm);
        }
    }
}

QLabel *Screen::addLabel(const QString &name, const QString &text, QRect rect, qreal fontPt, bool bold,
                         Qt::Alignment align)
{
    auto *l = new QLabel(this);
    // Text from data files is shown as it is written: never as markup that could load a file.
    l->setTextFormat(Qt::PlainText);
    l->setText(text);
    l->setObjectName(name);
    l->setAlignment(align);
    l->setWordWrap(true);
    QFont f = l->font();
    f.setBold(bold);
    l->setFont(f);
    place(l, rect, fontPt);
    return l;
}

ImageButton *Screen::addButton(const QString &name, const QString &icon, QRect rect, const QString &captionName,
                               const QString &caption, QRect captionRect)
{
    auto *b = new ImageButton(icon, this);
    b->setObjectName(name);
    place(b, rect);
    if (!captionName.isEmpty()) {
        if (captionRect.isNull())
            captionRect = QRect(rect.x() - 40, rect.bottom() + 2, rect.width() + 80, 22);
        QLabel *c = addLabel(captionName, caption, captionRect, 10, true, Qt::AlignHCenter | Qt::AlignTop);
        b->setCaption(c);
        b->setAccessibleName(caption);
    }
    m_buttons.append(b);
    if (m_normalCaption.isValid())
        b->setCaptionColours(m_normalCaption, m_litCaption);
    return b;
}

MenuLabel *Screen::addMenuLabel(const QString &name, const QString &text, QRect rect, qreal fontPt,
                                Qt::Alignment align)
{
    auto *l = new MenuLabel(text, this);
    l->setObjectName(name);
    l->setAlignment(align);
    place(l, rect, fontPt);
    connect(l, &MenuLabel::hovered, this, [this, l] { highlightMenuLabel(l); });
    m_menuLabels.append(l);
    l->setProperty("menuIndex", int(m_menuLabels.size()));
    return l;
}

QLabel *Screen::addHeadingPlate(int n, const QString &text, QRect rect)
{
    addPicture(QStringLiteral("imgHeadshadow%1").arg(n), QStringLiteral("plate-shadow"), rect.translated(4, 4));
    addPicture(QStringLiteral("imgHead%1").arg(n), QStringLiteral("plate"), rect);
    QLabel *l = addLabel(QStringLiteral("lblHead%1").arg(n), text, rect, 13, true, Qt::AlignCenter);
    QPalette pal = l->palette();
    pal.setColor(QPalette::WindowText, QColor(0, 0, 64));
    l->setPalette(pal);
    return l;
}

QLabel *Screen::addPicture(const QString &name, const QString &pictureName, QRect rect)
{
    auto *l = new QLabel(this);
    l->setTextFormat(Qt::PlainText);
    l->setObjectName(name);
    l->setScaledContents(false);
    m_placements[l].picture = pictureName;
    place(l, rect);
    return l;
}

void Screen::setPicture(QLabel *label, const QString &pictureName)
{
    m_placements[label].picture = pictureName;
    applyPlacement(label, m_placements.value(label));
}

void Screen::setCaptionColours(const QColor &normal, const QColor &lit)
{
    m_normalCaption = normal;
    m_litCaption = lit;
    for (const auto &b : std::as_const(m_buttons))
        if (b)
            b->setCaptionColours(normal, lit);
}

void Screen::ResetButtons()
{
    for (const auto &b : std::as_const(m_buttons))
        if (b)
            b->resetLook();
}

void Screen::highlightMenuLabel(MenuLabel *label)
{
    const int n = label ? label->property("menuIndex").toInt() : 0;
    if (n == hoverIndex())
        return; // moving within the same label does nothing
    clearMenuHighlight();
    setHoverIndex(n);
    if (label)
        label->setLitLook();
}

void Screen::clearMenuHighlight()
{
    for (const auto &l : std::as_const(m_menuLabels)) {
        if (!l)
            continue;
        l->setNormalLook();
    }
}

void Screen::showEvent(QShowEvent *e)
{
    QWidget::showEvent(e);
    if (!std::exchange(m_shown, true)) {
        for (auto it = m_placements.cbegin(); it != m_placements.cend(); ++it)
            if (!it.value().picture.isEmpty())
                applyPlacement(it.key(), it.value());
    }
    nameControlsForScreenReaders();
}

void Screen::nameControlsForScreenReaders()
{
    static const QRegularExpression numbered(u"^(Text|Combo|CheckBox)(\\d+)$"_s);
    const auto children = findChildren<QWidget *>();
    for (QWidget *w : children) {
        if (w->objectName().isEmpty() || w->objectName().startsWith(u"qt_"_s))
            continue;
        QString name = w->accessibleName();
        if (!name.isEmpty()) {
            // named by the screen itself
        } else if (auto *b = qobject_cast<ImageButton *>(w)) {
            name = b->caption() ? b->caption()->text() : w->property("picture").toString();
        } else if (auto *l = qobject_cast<QLabel *>(w)) {
            const QString picture = w->property("picture").toString();
            name = l->text().isEmpty() && !picture.isEmpty() ? u"Picture: "_s + picture
                                                             : lineBreaks(l->text()).replace(u'\n', u' ');
        } else if (const QRegularExpressionMatch m = numbered.match(w->objectName()); m.hasMatch()) {
            name = m.captured(1) == u"CheckBox"_s ? u"Line %1 is correct"_s.arg(m.captured(2))
                                                  : u"Answer box for question %1"_s.arg(m.captured(2));
        } else if (w->objectName() == u"RichTextBox1"_s || w->objectName() == u"WebBrowser1"_s) {
            name = u"Passage"_s;
        } else if (w->objectName() == u"RichTextBox2"_s) {
            name = u"Questions"_s;
        } else {
            name = w->objectName();
        }
        if (!name.isEmpty() && w->accessibleName().isEmpty())
            w->setAccessibleName(name);
        // What the control does, for the screen reader to say after its name.
        if (w->accessibleDescription().isEmpty()) {
            if (qobject_cast<ImageButton *>(w))
                w->setAccessibleDescription(u"Button: press Enter or Space"_s);
            else if (qobject_cast<MenuLabel *>(w))
                w->setAccessibleDescription(u"Menu entry: press Enter to choose, arrow keys to move"_s);
            else if (numbered.match(w->objectName()).hasMatch())
                w->setAccessibleDescription(u"Your answer"_s);
        }
    }
}

void Screen::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    const qreal sx = qreal(width()) / m_designSize.width();
    const qreal sy = qreal(height()) / m_designSize.height();
    m_scale = std::min(sx, sy);
    m_offset = QPoint(qRound((width() - m_designSize.width() * m_scale) / 2),
                      qRound((height() - m_designSize.height() * m_scale) / 2));
    for (auto it = m_placements.cbegin(); it != m_placements.cend(); ++it)
        applyPlacement(it.key(), it.value());
    m_backgroundCache = QPixmap();
}

void Screen::mouseMoveEvent(QMouseEvent *e)
{
    // Only the background puts the buttons back: a move over a control that passed it on does not.
    if (!childAt(e->position().toPoint()))
        backgroundHovered();
    QWidget::mouseMoveEvent(e);
}

void Screen::backgroundHovered()
{
    ResetButtons();
}

void Screen::paintEvent(QPaintEvent *e)
{
    QPainter p(this);
    if (!m_background.isEmpty()) {
        if (m_backgroundCache.size() != size())
            m_backgroundCache = coveringPicture(m_background, size(), palette().color(QPalette::Window));
        p.drawPixmap(0, 0, m_backgroundCache);
    } else {
        QWidget::paintEvent(e);
    }
    if (m_modal) {
        // A window over the page has a frame of its own, whatever the window manager draws.
        const qreal w = std::max<qreal>(2.0, 3.0 * m_scale);
        p.setPen(QPen(ImageButton::highlightColour(), w));
        p.drawRect(QRectF(rect()).adjusted(w / 2, w / 2, -w / 2, -w / 2));
    }
}

void Screen::closeEvent(QCloseEvent *e)
{
    QWidget::closeEvent(e);
    Q_EMIT closed();
}

} // namespace sd::ui
