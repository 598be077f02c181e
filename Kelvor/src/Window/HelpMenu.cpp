#include "HelpMenu.h"

#include "KeysDialog.h"
#include "WindowDialogs.h"

#include <Inventor/SoDB.h>

#include <QMainWindow>

HelpMenu::HelpMenu(QMainWindow* window)
    : QMenu(tr("&Help"), window)
    , m_window(window)
{
    addAction(tr("&Keys"), QKeySequence(Qt::Key_F1), this, &HelpMenu::showKeys);
    addAction(tr("&About Kelvor"), this, &HelpMenu::showAbout);
}

void HelpMenu::showKeys()
{
    // Anew, with the keys as they are now.
    delete m_keys;
    m_keys = new KeysDialog(m_window);
    m_keys->setAttribute(Qt::WA_DeleteOnClose);
    m_keys->show();
}

void HelpMenu::showAbout()
{
    QMessageBox box(QMessageBox::NoIcon, tr("About Kelvor"),
                    tr("Kelvor %1\n\nShows and tunes the live scene graph of a 3D scene.\n\nQt %2\n%3")
                        .arg(QStringLiteral(KELVOR_VERSION), QString::fromLatin1(qVersion()),
                             QString::fromLatin1(SoDB::getVersion())),
                    QMessageBox::Close, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setIconPixmap(m_window->windowIcon().pixmap(64));
    execForWindow(box);
}
