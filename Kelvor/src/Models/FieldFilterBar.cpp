#include "Models/FieldFilterBar.h"

#include "Models/DrawnIcon.h"
#include "Models/FieldFilter.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

namespace {

void drawSliders(QPainter& painter)
{
    for (const QPointF& knob : {QPointF(10.5, 4), QPointF(5, 8), QPointF(9, 12)}) {
        painter.drawLine(QPointF(2, knob.y()), QPointF(14, knob.y()));
        painter.drawEllipse(knob, 1.7, 1.7);
    }
}

void drawPencil(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{2, 14}, {3, 10.5}, {11, 2.5}, {13.5, 5}, {5.5, 13}}));
    painter.drawLine(QPointF(9.5, 4), QPointF(12, 6.5));
}

} // namespace

FieldFilterBar::FieldFilterBar(FieldFilter* filter, QWidget* parent)
    : QWidget(parent)
    , m_line(new QLineEdit(this))
{
    m_line->setPlaceholderText(tr("Filter fields"));
    m_line->setAccessibleName(tr("Filter fields"));
    m_line->setToolTip(tr("Words that name, type, value or state contain"));
    m_line->setClearButtonEnabled(true);
    m_line->installEventFilter(this);
    connect(m_line, &QLineEdit::textChanged, filter, &FieldFilter::setText);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 4);
    layout->setSpacing(2);
    layout->addWidget(m_line);
    const auto addSwitch = [this, layout, filter](DrawnIcon::Drawing drawing, const QString& name,
                                                  const QString& toolTip,
                                                  void (FieldFilter::*toggled)(bool)) {
        auto* button = new QToolButton(this);
        button->setIcon(DrawnIcon::of(drawing));
        button->setAccessibleName(name);
        button->setToolTip(toolTip);
        button->setCheckable(true);
        button->setAutoRaise(true);
        connect(button, &QToolButton::toggled, filter, toggled);
        layout->addWidget(button);
        return button;
    };
    m_onlySet =
        addSwitch(drawSliders, tr("Only set fields"),
                  tr("Only set fields: not at their default, or connected"), &FieldFilter::setOnlySet);
    m_onlyChanged =
        addSwitch(drawPencil, tr("Only changed fields"),
                  tr("Only changed fields: edited since the scene was opened"), &FieldFilter::setOnlyChanged);
    setFocusProxy(m_line);
}

void FieldFilterBar::start()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void FieldFilterBar::showAll()
{
    m_line->clear();
    m_onlySet->setChecked(false);
    m_onlyChanged->setChecked(false);
}

bool FieldFilterBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT entered();
        return true;
    case Qt::Key_Escape:
        if (m_line->text().isEmpty())
            Q_EMIT left();
        else
            m_line->clear();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}
