#pragma once

#include <QMainWindow>

class SceneWidget;
class SoSeparator;

/// An application that shows a scene of its own and lets a developer inspect it.
class ExampleWindow : public QMainWindow
{
    Q_OBJECT

public:
    ExampleWindow();
    ~ExampleWindow() override;

    SoSeparator* scene() const { return m_scene; }

private:
    void inspect();
    void deleteHorse();
    void replaceScene();
    void showScene(SoSeparator* scene);

    SceneWidget* m_view;
    SoSeparator* m_scene = nullptr;
};
