// The reference for the start-up figures: a bare Qt Widgets program that shows one window and quits
// once it is shown, as StudyDesk does with a script of one "quit".
#include <QApplication>
#include <QLabel>
#include <QTimer>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QLabel window(QStringLiteral("StudyDesk"));
    window.resize(1024, 768);
    window.show();
    QTimer::singleShot(0, &app, &QCoreApplication::quit);
    return app.exec();
}
