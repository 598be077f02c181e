#include "FieldEditors/DvPastedNumber.h"

#include "FieldEditors/DvRealValidator.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

#include <utility>

namespace {

/// What is typed has one character.
bool holdsPasted(const QString& text)
{
    const QClipboard* clipboard = QGuiApplication::clipboard();
    for (const auto mode : {QClipboard::Clipboard, QClipboard::Selection}) {
        const QString pasted = clipboard->text(mode);
        if (pasted.size() > 1 && text.contains(pasted))
            return true;
    }
    return false;
}

} // namespace

DvPastedNumber::DvPastedNumber(QLineEdit* line)
    : QObject(line)
    , m_line(line)
{
    connect(line, &QLineEdit::inputRejected, this, &DvPastedNumber::noteRefused);
    // Another text has come meanwhile, or the refused one stays because it was not pasted.
    connect(line, &QLineEdit::textChanged, this, [this] { m_fitting.clear(); });
    // A text that its validator rewrites, commas into points, would count as shown.
    connect(line, &QLineEdit::textEdited, this, [line] { line->setModified(true); });
}

void DvPastedNumber::install(QLineEdit* line)
{
    new DvPastedNumber(line);
}

void DvPastedNumber::noteRefused()
{
    const auto* validator = qobject_cast<const DvRealValidator*>(m_line->validator());
    const QString refused = m_line->text();
    m_fitting = validator ? validator->fitting(refused) : QString();
    // The line edit is about to take the refused text back.
    if (!m_fitting.isEmpty() && holdsPasted(refused))
        QMetaObject::invokeMethod(this, &DvPastedNumber::enterFitting, Qt::QueuedConnection);
}

void DvPastedNumber::enterFitting()
{
    if (m_fitting.isEmpty())
        return;
    m_line->selectAll();
    m_line->insert(std::exchange(m_fitting, QString()));
}
