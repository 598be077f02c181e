#pragma once

#include <QStatusBar>

/// A status bar that tells one lasting sentence. Passing sentences and the tips of menus show in place of it
/// for a while.
class StatusLine : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Tells a sentence from now on, or nothing; `details` are its tool tip.
    void tell(const QString& sentence, const QString& details = QString());
    /// Tells a sentence for some seconds.
    void tellInPassing(const QString& sentence);

private:
    QString m_lasting;
};
