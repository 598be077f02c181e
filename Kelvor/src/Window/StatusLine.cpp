#include "StatusLine.h"

namespace {

constexpr int passingTime = 8000; // ms

}

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent)
{
    connect(this, &QStatusBar::messageChanged, this, [this](const QString& text) {
        if (text.isEmpty() && !m_lasting.isEmpty())
            showMessage(m_lasting);
    });
}

void StatusLine::tell(const QString& sentence, const QString& details)
{
    m_lasting = sentence;
    showMessage(sentence);
    setToolTip(details);
}

void StatusLine::tellInPassing(const QString& sentence)
{
    showMessage(sentence, passingTime);
}
