// Draws an SVG picture into a square PNG of the size asked for: studydesk-icon SVG SIZE PNG.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    bool sizeOk = false;
    const int size = args.size() == 4 ? args.at(2).toInt(&sizeOk) : 0;
    if (!sizeOk || size < 16 || size > 1024) {
        std::fprintf(stderr, "usage: studydesk-icon SVG SIZE PNG (SIZE 16 to 1024)\n");
        return 2;
    }
    QSvgRenderer svg(args.at(1));
    if (!svg.isValid()) {
        std::fprintf(stderr, "studydesk-icon: cannot read %s\n", qPrintable(args.at(1)));
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    svg.render(&painter);
    painter.end();
    if (!image.save(args.at(3), "PNG")) {
        std::fprintf(stderr, "studydesk-icon: cannot write %s\n", qPrintable(args.at(3)));
        return 1;
    }
    return 0;
}
