// A window with nothing in it: what the libraries cost that every program of their kind loads.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
