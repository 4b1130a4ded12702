#include "pictures.h"

#include <QCache>
#include <QCoreApplication>
#include <QHash>
#include <QImage>
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

/// Each picture is parsed once and kept.
QSvgRenderer &renderer(const QString &name)
{
    registerPictures();
    static QHash<QString, QSvgRenderer *> renderers;
    QSvgRenderer *&r = renderers[name];
    if (!r)
        r = new QSvgRenderer(resourcePath(name));
    return *r;
}

void render(QPainter &p, const QString &name, const QRectF &where)
{
    QSvgRenderer &r = renderer(name);
    if (r.isValid())
        r.render(&p, where);
}

/// Pictures are drawn once for each size they are shown at and kept: screens of the same size share
/// their background, and a button's looks are drawn once, not at every change. What is kept is
/// bounded; a picture larger than the bound is drawn each time it is asked for.
QCache<QString, QPixmap> &keptPictures()
{
    static QCache<QString, QPixmap> cache(32 * 1024); // kilobytes
    // Pixmaps go with the application, not after it.
    static const bool cleared = [] {
        qAddPostRoutine([] { keptPictures().clear(); });
        return true;
    }();
    Q_UNUSED(cleared);
    return cache;
}

template<typename Draw>
QPixmap kept(const QString &key, QSize size, Draw draw)
{
    QCache<QString, QPixmap> &cache = keptPictures();
    size = size.expandedTo(QSize(1, 1));
    const QString k = key + u'@' + QString::number(size.width()) + u'x' + QString::number(size.height());
    if (const QPixmap *pm = cache.object(k))
        return *pm;
    const QPixmap pm = draw(size);
    cache.insert(k, new QPixmap(pm), std::max<qint64>(1, qint64(size.width()) * size.height() * 4 / 1024));
    return pm;
}
} // namespace

QPixmap picture(const QString &name, QSize size)
{
    return kept(name, size, [&](QSize sz) {
        QPixmap pm(sz);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        render(p, name, QRectF(QPointF(0, 0), QSizeF(pm.size())));
        return pm;
    });
}

QPixmap coveringPicture(const QString &name, QSize size, const QColor &under)
{
    return kept(QStringLiteral("covering:") + name, size, [&](QSize sz) {
        // Opaque: it covers everything under it, so it is drawn without blending.
        QImage image(sz, QImage::Format_RGB32);
        image.fill(under);
        QSvgRenderer &r = renderer(name);
        if (r.isValid()) {
            // Scaled evenly until it covers the whole area, centred, the overflow cut off: never stretched.
            const QSizeF own = r.defaultSize();
            const qreal scale = std::max(image.width() / own.width(), image.height() / own.height());
            const QSizeF drawn = own * scale;
            QPainter p(&image);
            p.setRenderHint(QPainter::Antialiasing);
            r.render(&p, QRectF(QPointF((image.width() - drawn.width()) / 2, (image.height() - drawn.height()) / 2), drawn));
        }
        return QPixmap::fromImage(std::move(image));
    });
}

QPixmap buttonPicture(const QString &icon, ButtonState state, QSize size)
{
    static const char *backgrounds[] = {"button-normal", "button-lit", "button-pressed"};
    const QString background = QString::fromLatin1(backgrounds[int(state)]);
    return kept(background + u'+' + icon, size, [&](QSize sz) {
        QPixmap pm(sz);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        const QRectF all(QPointF(0, 0), QSizeF(pm.size()));
        render(p, background, all);
        // A pressed button's icon moves down a little, as if pushed in.
        render(p, QStringLiteral("icon-") + icon, state == ButtonState::Pressed ? all.translated(0, sz.height() * 0.03) : all);
        return pm;
    });
}

} // namespace sd::ui
