#include "ExampleWindow.h"

#include "CarouselScene.h"
#include "SceneWidget.h"

#include <Kelvor/KelvorInspector.h>

#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QMenuBar>

ExampleWindow::ExampleWindow()
    : m_view(new SceneWidget)
{
    setWindowTitle(tr("Carousel"));
    setCentralWidget(m_view);
    QMenu* menu = menuBar()->addMenu(tr("&Scene"));
    menu->addAction(tr("&Inspect Scene…"), Qt::CTRL | Qt::Key_I, this, &ExampleWindow::inspect);
    menu->addSeparator();
    // The application goes on with its scene as it likes while it is inspected.
    menu->addAction(tr("&Delete a Horse"), Qt::Key_Delete, this, &ExampleWindow::deleteHorse);
    menu->addAction(tr("&Replace the Scene"), Qt::CTRL | Qt::Key_R, this, &ExampleWindow::replaceScene);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), Qt::CTRL | Qt::Key_Q, this, &QWidget::close);
    showScene(makeCarousel(20));
}

ExampleWindow::~ExampleWindow()
{
    m_view->setScene(nullptr, nullptr);
    m_scene->unref();
}

void ExampleWindow::inspect()
{
    KelvorInspector::inspect(m_scene);
}

void ExampleWindow::deleteHorse()
{
    const int last = m_scene->getNumChildren() - 1;
    if (m_scene->getChild(last)->isOfType(SoSeparator::getClassTypeId()))
        m_scene->removeChild(last);
}

void ExampleWindow::replaceScene()
{
    showScene(makeCarousel(7));
}

void ExampleWindow::showScene(SoSeparator* scene)
{
    scene->ref();
    m_view->setScene(scene, static_cast<SoCamera*>(scene->getChild(0)));
    if (m_scene)
        m_scene->unref();
    m_scene = scene;
}
