#include "ExampleWindow.h"
#include "SensorQueue.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include <QApplication>

int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    const QApplication application(argc, argv);
    const SensorQueue sensorQueue;
    ExampleWindow window;
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
