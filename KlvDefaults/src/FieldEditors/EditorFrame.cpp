#include "FieldEditors/EditorFrame.h"

#include "FieldEditors/klsettings_fieldEditor.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLayout>

void setBox(QFrame* frame, const char* lineWidth)
{
    frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    frame->setLineWidth(klsettings_fieldEditor(QString::fromUtf8(lineWidth)));
}

void setUpLayout(QLayout* layout, const char* name, const char* margin, const char* spacing)
{
    const int width = klsettings_fieldEditor(QString::fromUtf8(margin));
    layout->setContentsMargins(width, width, width, width);
    layout->setSpacing(klsettings_fieldEditor(QString::fromUtf8(spacing)));
    layout->setObjectName(QString::fromUtf8(name));
}

QString centered(const QString& text)
{
    return QCoreApplication::translate("KlvFieldEditors", "<p align=\"center\">") + text +
           QCoreApplication::translate("KlvFieldEditors", "</p>");
}

void nameKind(QLabel*& label, QWidget* container, const QString& kind)
{
    if (!label)
        label = new QLabel(container);
    if (label->text().isEmpty())
        label->setText(centered(kind));
}

void setUpKindLabel(QLabel* label)
{
    label->setObjectName(QStringLiteral("m_label"));
    QFont font = label->font();
    font.setPointSize(klsettings_fieldEditor(QStringLiteral("labelPointSize")));
    label->setFont(font);
    setBox(label, "labelLineWidth");
    label->setScaledContents(true);
}
