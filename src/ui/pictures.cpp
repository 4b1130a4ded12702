#include "pictures.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

// Resources compiled into a static library are registered on first use.
static void registerPictures()
{
    static const bool done = [] {
        Q_INIT_RESOURCE(pictures);
        return true;
    }();
    Q_UNUSED(done);
}

namespace sd::ui {

namespace {
QString resourcePath(const QString &name)
{
    return name.startsWith(u':') ? name : QStringLiteral(":/pictures/%1.svg").arg(name);
}

void render(QPainter &p, const QString &name, const QRectF &where)
{
    registerPictures();
    QSvgRenderer r(resourcePath(name));
    if (r.isValid())
        r.render(&p, where);
}
} // namespace

QPixmap picture(const QString &name, QSize size)
{
    QPixmap pm(size.expandedTo(QSize(1, 1)));
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    render(p, name, QRectF(QPointF(0, 0), QSizeF(pm.size())));
    return pm;
}

QPixmap coveringPicture(const QString &name, QSize size)
{
    registerPictures();
    QPixmap pm(size.expandedTo(QSize(1, 1)));
    pm.fill(Qt::transparent);
    QSvgRenderer r(resourcePath(name));
    if (!r.isValid())
        return pm;
    // Scaled evenly until it covers the whole area, centred, the overflow cut off: never stretched.
    const QSizeF own = r.defaultSize();
    const qreal scale = std::max(pm.width() / own.width(), pm.height() / own.height());
    const QSizeF drawn = own * scale;
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    r.render(&p, QRectF(QPointF((pm.width() - drawn.width()) / 2, (pm.height() - drawn.height()) / 2), drawn));
    return pm;
}

QPixmap buttonPicture(const QString &icon, ButtonState state, QSize size)
{
    static const char *backgrounds[] = {"button-normal", "button-lit", "button-pressed"};
    QPixmap pm(size.expandedTo(QSize(1, 1)));
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF all(QPointF(0, 0), QSizeF(pm.size()));
    render(p, QString::fromLatin1(backgrounds[int(state)]), all);
    // A pressed button's icon moves down a little, as if pushed in.
    render(p, QStringLiteral("icon-") + icon, state == ButtonState::Pressed ? all.translated(0, size.height() * 0.03) : all);
    return pm;
}

} // namespace sd::ui
