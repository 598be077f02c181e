#pragma once

#include <QObject>
#include <QString>

class QLineEdit;

/// Has a line edit with a `DvRealValidator` take pasted numbers that are longer than what can be typed there,
/// or stand between blanks, as far as they fit.
class DvPastedNumber : public QObject
{
    Q_OBJECT

public:
    /// Works for as long as the line edit lives, whatever validator that has meanwhile.
    static void install(QLineEdit* line);

private:
    explicit DvPastedNumber(QLineEdit* line);
    void noteRefused();
    void enterFitting();

    QLineEdit* m_line;
    QString m_fitting; ///< still to be entered
};
