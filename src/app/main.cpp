#include "app/start.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    quorvane::start(QString());
    return QApplication::exec();
}
