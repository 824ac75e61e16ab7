#include <QApplication>
#include <QLabel>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tomvera"));
    QLabel etichetta(QStringLiteral("Tomvera"));
    etichetta.show();
    return app.exec();
}
