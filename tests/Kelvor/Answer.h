#pragma once

#include "TestMain.h"

/// Answers the next message box with a button and keeps its text.
class Answer
{
public:
    explicit Answer(QMessageBox::StandardButton button)
    {
        m_timer.callOnTimeout([this, button] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text();
                m_timer.stop();
                box->button(button)->click();
            }
        });
        m_timer.start(5);
    }
    QString text;

private:
    QTimer m_timer;
};
